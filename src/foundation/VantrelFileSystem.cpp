#include "VantrelFileSystem.h"

#include <filesystem>

#include "VantrelExceptions.h"

bool TVantrelFileSystem::Exists(const std::string& path) {
  std::error_code error;
  return !path.empty() && std::filesystem::exists(std::filesystem::symlink_status(path, error));
}

void TVantrelFileSystem::CreateDirectory(const std::string& path) {
  if (path.empty() || path.back() == ':') return;
  std::error_code error;
  std::filesystem::create_directories(path, error);
  if (error) throw EVantrelFileSystemError(EVantrelWin32Error::CodeOfErrno(error.value()));
}
