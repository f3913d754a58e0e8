#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "VantrelDateTime.h"

/// Arithmetic on path texts. Backslash and colon delimit as in the system's own paths, the slash as on this platform;
/// what is put between two parts is the delimiter that the path itself uses. Unless said otherwise nothing here looks
/// at the disk and nothing raises.
class TVantrelFilePath {
 public:
  TVantrelFilePath() = delete;

  /// The text behind the last point of the file name, without the point; empty if there is none.
  static std::string GetExtension(std::string_view path);
  static bool HasExtension(std::string_view path);
  /// Path, point, extension; the path as it is if either is empty.
  static std::string AddExtension(std::string_view path, std::string_view extension);
  static std::string RemoveExtension(std::string_view path);
  static std::string ChangeExtension(std::string_view path, std::string_view extension);
  /// The path with `extension` added unless it has that one.
  static std::string ForceExtension(std::string_view path, std::string_view extension);
  /// Without regard to case.
  static bool IsExtensionEqual(std::string_view path, std::string_view extension);

  static std::string GetFileName(std::string_view path);
  static std::string GetFileNameWithoutExtension(std::string_view path);
  /// Without its trailing delimiter, except for that of a root.
  static std::string GetDirectoryName(std::string_view path);
  static std::string ChangeFileName(std::string_view path, std::string_view fileName);
  static std::string ChangeDirectoryName(std::string_view path, std::string_view directory);
  /// Replaces the letter of a path that begins with a drive; any other path stays as it is.
  static std::string ChangeDriveLetter(std::string_view path, char letter);
  /// "C:" or "\\server\share"; empty for any other path.
  static std::string GetDriveName(std::string_view path);
  /// What the user knows the file by: its name, of a root the path.
  static std::string GetDisplayName(std::string_view path);

  /// The second path alone if it is rooted or the first is empty; the first alone if the second is empty.
  static std::string Combine(std::string_view path1, std::string_view path2);
  static std::string AddTrailingPathDelimiter(std::string_view path);
  static std::string AddTrailingHTTPPathDelimiter(std::string_view path);
  static std::string RemoveLeadingPathDelimiter(std::string_view path);
  static std::string RemoveTrailingPathDelimiter(std::string_view path);
  /// The way from the directory `base` to `path`; `path` itself where the two have no root in common.
  static std::string GetRelativePath(std::string_view base, std::string_view path);

  /// True for a text that holds a delimiter.
  static bool IsPath(std::string_view text);
  /// True for a path from a root or a drive on, or of a network share. A single leading backslash is no root.
  static bool IsPathRooted(std::string_view path);
  /// "/", "C:\" and the like.
  static bool IsRoot(std::string_view path);
  /// Whether the full paths are equal; paths with a drive or share without regard to case. Raises as GetFullPath.
  static bool IsPathEqual(std::string_view path1, std::string_view path2);

  /// A rooted path as it is, any other from the current directory on. A result of more than 261 characters raises
  /// EVantrelFileSystemError with code 3.
  static std::string GetFullPath(std::string_view path);
  /// This system has no short names beside the long ones: both give the path as it is.
  static std::string GetLongPath(std::string_view path);
  static std::string GetShortPath(std::string_view path);
  /// Paths are not kept in a registry on this system: raises EVantrelFileSystemError.
  [[noreturn]] static std::string GetPathFromRegistry(std::string_view key, std::string_view name);

  /// The directory for temporary files, with its trailing delimiter. Raises EVantrelFileSystemError if there is none.
  static std::string GetTempPath();
  /// Makes an empty file with a new name in `directory`. Raises EVantrelFileSystemError.
  static std::string GetTempFileName(std::string_view directory, std::string_view prefix);
  /// A new GUID as the name of a file in `directory`.
  static std::string GetGuidFileName(std::string_view directory, std::string_view extension);
  /// The path itself if nothing has it, else with " (2)", " (3)", ... behind the name.
  static std::string GetUniqueFileName(std::string_view path);

  /// "-yyyy-mm-dd-ddd-hh-nn-ss" between name and extension, ddd being the German short day name; without a time the
  /// present one. Raises as DecodeDateTime.
  static std::string GetTimeStampedFileName(std::string_view path, std::optional<TDateTime> time = std::nullopt);
  /// Likewise "-yyyy-mm-dd-ddd".
  static std::string GetDateStampedFileName(std::string_view path, std::optional<TDateTime> date = std::nullopt);
};
