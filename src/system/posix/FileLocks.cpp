#include "FileLocks.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <random>
#include <thread>

namespace {
constexpr off_t FirstByte = 0x7FFF'FFFF'FFFF'FF00;
constexpr off_t ByteCount = 4;
constexpr int Attempts = 4;
constexpr int LongestPauseMs = 5;

struct flock LockOf(short type, off_t start, off_t length = 1) {
  struct flock lock {};
  lock.l_type = type;
  lock.l_whence = SEEK_SET;
  lock.l_start = start;
  lock.l_len = length;
  return lock;
}

bool DeniesReading(TVantrelFileAccessMode access) {
  return access == TVantrelFileAccessMode::famShareExclusive || access == TVantrelFileAccessMode::famShareDenyRead;
}

bool DeniesWriting(TVantrelFileAccessMode access) {
  return access == TVantrelFileAccessMode::famShareExclusive || access == TVantrelFileAccessMode::famShareDenyWrite;
}

/// Reading, writing, denying reads, denying writes: the opposite of each is two bytes away.
std::array<bool, ByteCount> BytesOf(Posix::FileLocks::TUse use, TVantrelFileAccessMode access) {
  return {use.Reads, use.Writes, DeniesReading(access), DeniesWriting(access)};
}

/// Locks the bytes, whoever has those of the opposite meaning. Nothing is locked unless all are.
Posix::FileLocks::THold TakeBytes(int descriptor, const std::array<bool, ByteCount>& wanted) {
  using Posix::FileLocks::THold;
  for (std::size_t byte = 0; byte < wanted.size(); ++byte) {
    auto lock = LockOf(F_RDLCK, FirstByte + static_cast<off_t>(byte));
    if (!wanted[byte] || ::fcntl(descriptor, F_OFD_SETLK, &lock) == 0) continue;
    const bool refused = errno == EAGAIN || errno == EACCES;
    Posix::FileLocks::Release(descriptor);
    return refused ? THold::Refused : THold::NoLocks;
  }
  return THold::Held;
}
}  // namespace

namespace Posix::FileLocks {

TUse UseOf(TVantrelFileOpenMode openMode) {
  return {openMode != TVantrelFileOpenMode::fomOpenWrite, openMode != TVantrelFileOpenMode::fomOpenRead};
}

THold Take(int descriptor, TUse use, TVantrelFileAccessMode access) {
  if (const auto hold = TakeBytes(descriptor, BytesOf(use, access)); hold != THold::Held) return hold;
  if (!ConflictsWithOthers(descriptor, use, access)) return THold::Held;
  Release(descriptor);
  return THold::Refused;
}

bool ConflictsWithOthers(int descriptor, TUse use, TVantrelFileAccessMode access) {
  const auto wanted = BytesOf(use, access);
  for (std::size_t byte = 0; byte < wanted.size(); ++byte) {
    const auto opposite = static_cast<off_t>((byte + wanted.size() / 2) % wanted.size());
    auto lock = LockOf(F_WRLCK, FirstByte + opposite);
    if (wanted[byte] && ::fcntl(descriptor, F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK) return true;
  }
  return false;
}

THold TakePatiently(int descriptor, TUse use, TVantrelFileAccessMode access) {
  auto hold = Take(descriptor, use, access);
  for (int attempt = 1; attempt < Attempts && hold == THold::Refused; ++attempt) {
    std::random_device random;
    std::this_thread::sleep_for(std::chrono::milliseconds(1 + random() % LongestPauseMs));
    hold = Take(descriptor, use, access);
  }
  return hold;
}

void Release(int descriptor) {
  auto lock = LockOf(F_UNLCK, FirstByte, ByteCount);
  ::fcntl(descriptor, F_OFD_SETLK, &lock);
}

void PassOn(int from, int to, TUse use, TVantrelFileAccessMode access) {
  TakeBytes(to, BytesOf(use, access));
  Release(from);
}

bool IsSameFile(int descriptor, const std::string& name) {
  struct stat held {};
  struct stat named {};
  return ::fstat(descriptor, &held) == 0 && ::stat(name.c_str(), &named) == 0 &&
         Posix::FileOf(held) == Posix::FileOf(named);
}

}  // namespace Posix::FileLocks
