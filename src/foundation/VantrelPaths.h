#pragma once

#include <string>
#include <string_view>

/// Path arithmetic. Backslashes and colons are the system's own delimiters; a slash is one too, and real files are
/// reached by real paths. Nothing here looks at the disk unless it says so.
class TVantrelFilePath {
 public:
  TVantrelFilePath() = delete;

  /// The text behind the last point that comes after the last delimiter, without the point; empty if none.
  static std::string GetExtension(std::string_view path);
  static bool HasExtension(std::string_view path) { return !GetExtension(path).empty(); }
  /// Path, point, extension; if either is empty, the path as it is.
  static std::string AddExtension(std::string_view path, std::string_view extension);
  /// The path without the last extension.
  static std::string RemoveExtension(std::string_view path);
  static std::string ChangeExtension(std::string_view path, std::string_view extension);
  /// The text behind the last delimiter.
  static std::string GetFileName(std::string_view path);
  static std::string GetFileNameWithoutExtension(std::string_view path);
  /// The text up to the last delimiter; a trailing slash or backslash is dropped, unless it is the first character or
  /// another delimiter stands before it.
  static std::string GetDirectoryName(std::string_view path);
};
