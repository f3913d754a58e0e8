#include "VantrelFolderLock.h"

#include <filesystem>

#include "SystemFolders.h"
#include "VantrelExceptions.h"
#include "VantrelFileSystem.h"

namespace {
System::TFolderLock LockFolderOf(const std::string& fileName, std::chrono::milliseconds patience) {
  const auto folder = System::NameOf(std::filesystem::absolute(System::PathOf(fileName)).parent_path());
  TVantrelFileSystem::CreateDirectory(folder);
  return CheckSystem<EVantrelFileHandleError>(System::TFolderLock::Take(folder, patience));
}
}  // namespace

TVantrelFolderLock::TVantrelFolderLock(const std::string& fileName, std::chrono::milliseconds patience)
    : FLock(LockFolderOf(fileName, patience)) {}
