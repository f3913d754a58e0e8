#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "VantrelDateTime.h"

enum class TVantrelFileAttribute : std::uint8_t {
  fattrReadOnly,
  fattrHidden,
  fattrSystem,
  fattrDirectory,
  fattrArchive,
  fattrNormal,
  fattrReparsePoint
};
using TVantrelFileAttributes = std::set<TVantrelFileAttribute>;

enum class TVantrelFileMode : std::uint8_t { fmodeUnknown, fmodeReadWrite, fmodeReadOnly };
enum class TVantrelFileTimeInfo : std::uint8_t { ftimeCreation, ftimeLastAccess, ftimeLastWrite };

/// What the program does with files and directories as a whole. Failures raise EVantrelFileSystemError with the
/// system's error. Times without "Utc" are local; all are precise to the millisecond.
class TVantrelFileSystem {
 public:
  TVantrelFileSystem() = delete;

  /// True for a file, a directory or a symbolic link, wherever that leads; false for an empty path.
  static bool Exists(const std::string& path);
  static bool IsDirectory(const std::string& path);
  /// True if `path` lies in `directory` or below it.
  static bool IsFileInDirectory(const std::string& path, const std::string& directory);
  /// True if both lead to one file or directory.
  static bool SameFile(const std::string& path1, const std::string& path2);
  /// Whether the user may write the file; fmodeUnknown for one that is missing or cannot be read.
  static TVantrelFileMode GetFileMode(const std::string& path);
  /// In bytes.
  static std::int64_t GetSize(const std::string& path);

  /// Hidden is a name with a leading point; a file without any other attribute is normal.
  static TVantrelFileAttributes GetAttributes(const std::string& path);
  /// Sets or takes the right to write. The other attributes follow from name and kind and are passed over.
  static void SetAttributes(const std::string& path, const TVantrelFileAttributes& attributes);

  static TDateTime GetTime(const std::string& path, TVantrelFileTimeInfo info, bool utc = false);
  /// The time of creation cannot be set.
  static void SetTime(const std::string& path, TVantrelFileTimeInfo info, TDateTime time, bool utc = false);
  static TDateTime GetCreationTime(const std::string& path);
  static TDateTime GetCreationTimeUtc(const std::string& path);
  static TDateTime GetLastAccessTime(const std::string& path);
  static TDateTime GetLastAccessTimeUtc(const std::string& path);
  static TDateTime GetLastWriteTime(const std::string& path);
  static TDateTime GetLastWriteTimeUtc(const std::string& path);
  static void SetCreationTime(const std::string& path, TDateTime time);
  static void SetCreationTimeUtc(const std::string& path, TDateTime time);
  static void SetLastAccessTime(const std::string& path, TDateTime time);
  static void SetLastAccessTimeUtc(const std::string& path, TDateTime time);
  static void SetLastWriteTime(const std::string& path, TDateTime time);
  static void SetLastWriteTimeUtc(const std::string& path, TDateTime time);

  /// Copies a file. A target that exists is overwritten unless `failIfExists`.
  static void CopyFile(const std::string& source, const std::string& target, bool failIfExists = false);
  /// As CopyFile, and keeps the time of the last write.
  static void CopyFileEx(const std::string& source, const std::string& target, bool failIfExists = false);
  /// Renames, or copies (with the time of the last write) and deletes where the target lies on another disk. A target
  /// that exists is an error.
  static void MoveFile(const std::string& source, const std::string& target);
  static void MoveDirectory(const std::string& source, const std::string& target);
  /// A directory is an error.
  static void DeleteFile(const std::string& path);
  [[noreturn]] static void DeleteFileAfterReboot(const std::string& path);
  /// See TVantrelFilePath::GetUniqueFileName.
  static std::string MakeFileNameUnique(const std::string& path);

  /// Makes the directory and its missing parents. A root, a drive name and a directory that exists are left alone.
  static void CreateDirectory(const std::string& path);
  /// As CreateDirectory; true if the directory is there afterwards. Never raises.
  static bool ForceDirectory(const std::string& path);
  /// Deletes everything in the directory.
  static void ClearDirectory(const std::string& path);
  /// A directory that is not empty is an error unless `recursive`. Of a link to a directory the link alone goes.
  static void DeleteDirectory(const std::string& path, bool recursive = false);
  /// The paths of the files in the directory whose names match `mask` ("*", "?", "[a-z]"), sorted.
  static std::vector<std::string> GetFiles(const std::string& directory, const std::string& mask = "*",
                                           bool recursive = false);
  static std::string GetCurrentDirectory();
  static void SetCurrentDirectory(const std::string& path);
};
