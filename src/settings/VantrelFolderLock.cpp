#include "VantrelFolderLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <thread>

#include "VantrelExceptions.h"
#include "VantrelFileSystem.h"

TVantrelFolderLock::TVantrelFolderLock(const std::string& fileName, std::chrono::milliseconds patience) {
  constexpr std::chrono::milliseconds step{10};
  const auto folder = std::filesystem::absolute(fileName).parent_path().string();
  TVantrelFileSystem::CreateDirectory(folder);
  FDescriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  for (; ::flock(FDescriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK; patience -= step) {
    if (patience < step) {
      ::close(FDescriptor);
      throw EVantrelFileHandleError(TVantrelErrorCode::SharingViolation);
    }
    std::this_thread::sleep_for(step);
  }
}

TVantrelFolderLock::~TVantrelFolderLock() {
  ::close(FDescriptor);
}
