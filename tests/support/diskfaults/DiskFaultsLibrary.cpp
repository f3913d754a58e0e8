// Preloaded into a program under test: counts the calls that change files below MYTESSARON_FAULT_FOLDER and lets the
// call MYTESSARON_FAULT_AT fail, or kills the program there; the calls behind it fail as well unless
// MYTESSARON_FAULT_ONCE is set. Such a write gets half of its bytes through first. What is needed of the system is
// called directly, so that nothing here calls itself.
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <sys/uio.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {
/// What a call asks of the disk: a full one still removes files and changes their rights.
enum class TNeed { Space, Nothing };

std::string_view Setting(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

bool IsWatched(const char* path, int folder = AT_FDCWD) {
  const auto watched = Setting("MYTESSARON_FAULT_FOLDER");
  if (watched.empty() || path == nullptr) return false;
  return path[0] == '/' ? std::string_view(path).starts_with(watched) : folder == AT_FDCWD;
}

bool IsWatched(int descriptor) {
  char target[4096];
  const auto link = "/proc/self/fd/" + std::to_string(descriptor);
  const auto length = ::syscall(SYS_readlinkat, AT_FDCWD, link.c_str(), target, sizeof target);
  const auto watched = Setting("MYTESSARON_FAULT_FOLDER");
  return !watched.empty() && length > 0 &&
         std::string_view(target, static_cast<std::size_t>(length)).starts_with(watched);
}

void Mark() {
  const auto marker = std::string(Setting("MYTESSARON_FAULT_MARKER"));
  const auto descriptor = ::syscall(SYS_openat, AT_FDCWD, marker.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
  if (descriptor >= 0) ::syscall(SYS_close, descriptor);
}

/// Counts the calls that this kind of fault strikes. True for those that have to fail.
bool IsStruck(bool watched, TNeed need) {
  static int count = 0;
  if (!watched || (Setting("MYTESSARON_FAULT_KIND") == "full" && need == TNeed::Nothing)) return false;
  const int at = std::atoi(std::string(Setting("MYTESSARON_FAULT_AT")).c_str());
  return ++count == at || (count > at && Setting("MYTESSARON_FAULT_ONCE").empty());
}

/// True where a call has to fail, with errno set. `torn` does a part of it first.
template <class TTorn>
bool Fails(bool watched, TNeed need, TTorn torn) {
  if (!IsStruck(watched, need)) return false;
  Mark();
  torn();
  const auto kind = Setting("MYTESSARON_FAULT_KIND");
  if (kind == "kill") ::syscall(SYS_kill, ::getpid(), SIGKILL);
  errno = kind == "full" ? ENOSPC : EIO;
  return true;
}

bool Fails(bool watched, TNeed need) {
  return Fails(watched, need, [] {});
}

int OpenAt(int folder, const char* path, int flags, unsigned mode) {
  const bool changes = (flags & (O_CREAT | O_TRUNC)) != 0;
  if (changes && Fails(IsWatched(path, folder), TNeed::Space)) return -1;
  return static_cast<int>(::syscall(SYS_openat, folder, path, flags, mode));
}

unsigned ModeOf(int flags, std::va_list arguments) {
  return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, unsigned) : 0;
}
}  // namespace

#define OPEN_FUNCTION(header, folder)           \
  int header {                                  \
    std::va_list arguments;                     \
    va_start(arguments, flags);                 \
    const auto mode = ModeOf(flags, arguments); \
    va_end(arguments);                          \
    return OpenAt(folder, path, flags, mode);   \
  }
/// The function whose descriptor is `file` and that takes `count` of something.
#define TORN_FUNCTION(header, number, bytes, ...)                                                                 \
  ssize_t header {                                                                                                \
    const auto call = [&](auto part) { return ::syscall(number, file, bytes, part __VA_OPT__(, ) __VA_ARGS__); }; \
    return Fails(IsWatched(file), TNeed::Space, [&] { call(count / 2); }) ? -1 : call(count);                     \
  }
#define FUNCTION(header, watched, need, ...)                                            \
  int header {                                                                          \
    return Fails(watched, TNeed::need) ? -1 : static_cast<int>(::syscall(__VA_ARGS__)); \
  }
#define FALLOCATE_FUNCTION(name)                                             \
  int name(int file, off_t offset, off_t size) {                             \
    if (Fails(IsWatched(file), TNeed::Space)) return errno;                  \
    return ::syscall(SYS_fallocate, file, 0, offset, size) == 0 ? 0 : errno; \
  }

extern "C" {
OPEN_FUNCTION(open(const char* path, int flags, ...), AT_FDCWD)
OPEN_FUNCTION(open64(const char* path, int flags, ...), AT_FDCWD)
OPEN_FUNCTION(openat(int folder, const char* path, int flags, ...), folder)
OPEN_FUNCTION(openat64(int folder, const char* path, int flags, ...), folder)
FALLOCATE_FUNCTION(posix_fallocate)
FALLOCATE_FUNCTION(posix_fallocate64)
TORN_FUNCTION(write(int file, const void* bytes, size_t count), SYS_write, bytes)
TORN_FUNCTION(writev(int file, const iovec* parts, int count), SYS_writev, parts)
TORN_FUNCTION(pwrite(int file, const void* bytes, size_t count, off_t offset), SYS_pwrite64, bytes, offset)
TORN_FUNCTION(pwrite64(int file, const void* bytes, size_t count, off_t offset), SYS_pwrite64, bytes, offset)
FUNCTION(ftruncate(int file, off_t size) noexcept, IsWatched(file), Space, SYS_ftruncate, file, size)
FUNCTION(ftruncate64(int file, off_t size) noexcept, IsWatched(file), Space, SYS_ftruncate, file, size)
FUNCTION(fsync(int file), IsWatched(file), Space, SYS_fsync, file)
FUNCTION(fdatasync(int file), IsWatched(file), Space, SYS_fdatasync, file)
FUNCTION(rename(const char* old, const char* path) noexcept, IsWatched(path), Space, SYS_renameat2, AT_FDCWD, old,
         AT_FDCWD, path, 0)
FUNCTION(renameat(int from, const char* old, int to, const char* path) noexcept, IsWatched(path, to), Space,
         SYS_renameat2, from, old, to, path, 0)
FUNCTION(renameat2(int from, const char* old, int to, const char* path, unsigned flags) noexcept, IsWatched(path, to),
         Space, SYS_renameat2, from, old, to, path, flags)
FUNCTION(unlink(const char* path) noexcept, IsWatched(path), Nothing, SYS_unlinkat, AT_FDCWD, path, 0)
FUNCTION(unlinkat(int folder, const char* path, int flags) noexcept, IsWatched(path, folder), Nothing, SYS_unlinkat,
         folder, path, flags)
FUNCTION(remove(const char* path) noexcept, IsWatched(path), Nothing, SYS_unlinkat, AT_FDCWD, path, 0)
FUNCTION(link(const char* from, const char* path) noexcept, IsWatched(path), Space, SYS_linkat, AT_FDCWD, from,
         AT_FDCWD, path, 0)
FUNCTION(mkdir(const char* path, mode_t mode) noexcept, IsWatched(path), Space, SYS_mkdirat, AT_FDCWD, path, mode)
FUNCTION(fchmod(int file, mode_t mode) noexcept, IsWatched(file), Nothing, SYS_fchmod, file, mode)
FUNCTION(fsetxattr(int file, const char* name, const void* value, size_t size, int flags) noexcept, IsWatched(file),
         Space, SYS_fsetxattr, file, name, value, size, flags)
FUNCTION(fchown(int file, uid_t owner, gid_t group) noexcept, IsWatched(file), Nothing, SYS_fchown, file, owner, group)
}
