#include "VantrelFolderLock.h"

#include <filesystem>

#include "VantrelExceptions.h"
#include "VantrelFileSystem.h"

namespace {
System::TFolderLock LockFolderOf(const std::string& fileName, std::chrono::milliseconds patience) {
  const auto folder = std::filesystem::absolute(fileName).parent_path().string();
  TVantrelFileSystem::CreateDirectory(folder);
  return CheckSystem<EVantrelFileHandleError>(System::TFolderLock::Take(folder, patience));
}
}  // namespace

TVantrelFolderLock::TVantrelFolderLock(const std::string& fileName, std::chrono::milliseconds patience)
    : FLock(LockFolderOf(fileName, patience)) {}
