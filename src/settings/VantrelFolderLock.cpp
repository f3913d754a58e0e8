#include "VantrelFolderLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <thread>

#include "VantrelExceptions.h"
#include "VantrelFileSystem.h"

TVantrelFolderLock::TVantrelFolderLock(const std::string& fileName) {
  using namespace std::chrono_literals;
  constexpr int maxAttempts = 500;
  const auto folder = std::filesystem::absolute(fileName).parent_path().string();
  TVantrelFileSystem::CreateDirectory(folder);
  FDescriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  for (int attempt = 0; ::flock(FDescriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK; ++attempt) {
    if (attempt == maxAttempts) {
      ::close(FDescriptor);
      throw EVantrelFileHandleError(TVantrelErrorCode::SharingViolation);
    }
    std::this_thread::sleep_for(10ms);
  }
}

TVantrelFolderLock::~TVantrelFolderLock() {
  ::close(FDescriptor);
}
