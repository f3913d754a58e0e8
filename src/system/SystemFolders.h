#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "SystemError.h"

/// Files and folders by their names.
namespace System {

/// The one way from a name to a path, and back.
std::filesystem::path PathOf(std::string_view name);
std::string NameOf(const std::filesystem::path& path);
/// The folder that the name tells; empty where it tells none.
std::string FolderOf(const std::string& name);
/// What stands behind the folder.
std::string LastNameOf(const std::string& name);

/// True for a file, a folder or a link, wherever that leads; false for an empty name.
bool Exists(const std::string& name);
/// True where both names lead to one file or folder, false where one of them leads nowhere.
TResult<bool> CompareFiles(const std::string& name1, const std::string& name2);
/// As CompareFiles; false where the system does not tell.
bool IsSameFile(const std::string& name1, const std::string& name2);
/// As CompareFiles; true where the system does not tell.
bool MayBeSameFile(const std::string& name1, const std::string& name2);
/// `name` if nothing has it, else the first free one of those that `numbered` makes of 2, 3 and so on.
std::string FirstFreeName(std::string name, const std::function<std::string(int number)>& numbered);
/// Likewise the name of a file with `ending`, or with a number behind that.
std::string FreeNameBeside(const std::string& name, const std::string& ending);
/// Whether the name of a file matches `mask` ("*", "?", "[a-z]").
bool Matches(const std::string& fileName, const std::string& mask);

/// What is told of a file or folder.
struct TFileInfo {
  /// In bytes.
  std::int64_t Size;
  bool IsFolder;
  /// Nobody has the right to write.
  bool IsReadOnly;
};
/// A link that leads nowhere answers for itself.
TResult<TFileInfo> InfoOf(const std::string& name);

enum class TRight { Read, Write, MakeFilesIn };
/// Whether the user has that right to the file or folder.
TCode CheckRight(const std::string& name, TRight right);

/// Makes an empty file, which nobody but the user can open. Fails where something has the name.
TCode MakeFile(const std::string& name);
/// Not a folder.
TCode RemoveFile(const std::string& name);
/// Fails where something has the new name, and for another disk.
TCode MoveFile(const std::string& from, const std::string& to);
/// One that is there already is no failure.
TCode MakeFolder(const std::string& name);
/// An empty one.
TCode RemoveFolder(const std::string& name);

/// Keeps all programs but one from changing the files of a folder, as long as it lives; the others wait for a while.
/// Where the file system has no locks there is none.
class TFolderLock {
 public:
  /// Fails with code 32 where another program does not let go of the folder in time.
  static TResult<TFolderLock> Take(const std::string& folder, std::chrono::milliseconds patience);

  TFolderLock(TFolderLock&& other) noexcept;
  ~TFolderLock();

 private:
  struct TNative;
  explicit TFolderLock(std::unique_ptr<TNative> native);

  std::unique_ptr<TNative> FNative;
};

}  // namespace System
