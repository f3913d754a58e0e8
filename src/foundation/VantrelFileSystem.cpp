#include "VantrelFileSystem.h"

#include <sys/stat.h>

#include <cerrno>

#include "VantrelExceptions.h"
#include "VantrelPaths.h"

namespace {
constexpr unsigned NewDirectoryMode = 0777;

bool StatusOf(const std::string& path, struct stat& status) {
  return ::stat(path.c_str(), &status) == 0;
}
}  // namespace

bool TVantrelFileSystem::Exists(const std::string& path) {
  struct stat status {};
  return ::lstat(path.c_str(), &status) == 0;
}

void TVantrelFileSystem::CreateDirectory(const std::string& path) {
  if (path.empty() || path.ends_with(':') || TVantrelFilePath::IsRoot(path)) return;
  struct stat status {};
  if (StatusOf(path, status) && S_ISDIR(status.st_mode)) return;
  CreateDirectory(TVantrelFilePath::GetDirectoryName(path));
  if (::mkdir(path.c_str(), NewDirectoryMode) == 0) return;
  const int error = errno;
  if (error == EEXIST && StatusOf(path, status) && S_ISDIR(status.st_mode)) return;
  throw EVantrelFileSystemError(EVantrelWin32Error::CodeOfErrno(error));
}
