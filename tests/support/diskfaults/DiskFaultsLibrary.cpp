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

bool IsWatched(int folder, const char* path) {
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
  if (changes && Fails(IsWatched(folder, path), TNeed::Space)) return -1;
  return static_cast<int>(::syscall(SYS_openat, folder, path, flags, mode));
}

unsigned ModeOf(int flags, std::va_list arguments) {
  return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, unsigned) : 0;
}

int RenameAt(int from, const char* old, int to, const char* path, unsigned flags) {
  if (Fails(IsWatched(to, path), TNeed::Space)) return -1;
  return static_cast<int>(::syscall(SYS_renameat2, from, old, to, path, flags));
}

int UnlinkAt(int folder, const char* path, int flags) {
  if (Fails(IsWatched(folder, path), TNeed::Nothing)) return -1;
  return static_cast<int>(::syscall(SYS_unlinkat, folder, path, flags));
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
#define PWRITE_FUNCTION(name)                                                           \
  ssize_t name(int file, const void* bytes, size_t count, off_t offset) {               \
    const auto torn = [&] { ::syscall(SYS_pwrite64, file, bytes, count / 2, offset); }; \
    if (Fails(IsWatched(file), TNeed::Space, torn)) return -1;                          \
    return ::syscall(SYS_pwrite64, file, bytes, count, offset);                         \
  }
#define FTRUNCATE_FUNCTION(name)                                   \
  int name(int file, off_t size) noexcept {                        \
    if (Fails(IsWatched(file), TNeed::Space)) return -1;           \
    return static_cast<int>(::syscall(SYS_ftruncate, file, size)); \
  }
#define FALLOCATE_FUNCTION(name)                                             \
  int name(int file, off_t offset, off_t size) {                             \
    if (Fails(IsWatched(file), TNeed::Space)) return errno;                  \
    return ::syscall(SYS_fallocate, file, 0, offset, size) == 0 ? 0 : errno; \
  }
#define DESCRIPTOR_FUNCTION(name, need)                   \
  int name(int file) {                                    \
    if (Fails(IsWatched(file), need)) return -1;          \
    return static_cast<int>(::syscall(SYS_##name, file)); \
  }

extern "C" {
OPEN_FUNCTION(open(const char* path, int flags, ...), AT_FDCWD)
OPEN_FUNCTION(open64(const char* path, int flags, ...), AT_FDCWD)
OPEN_FUNCTION(openat(int folder, const char* path, int flags, ...), folder)
OPEN_FUNCTION(openat64(int folder, const char* path, int flags, ...), folder)
PWRITE_FUNCTION(pwrite)
PWRITE_FUNCTION(pwrite64)
FTRUNCATE_FUNCTION(ftruncate)
FTRUNCATE_FUNCTION(ftruncate64)
FALLOCATE_FUNCTION(posix_fallocate)
FALLOCATE_FUNCTION(posix_fallocate64)
DESCRIPTOR_FUNCTION(fsync, TNeed::Space)
DESCRIPTOR_FUNCTION(fdatasync, TNeed::Space)

ssize_t write(int file, const void* bytes, size_t count) {
  const auto torn = [&] { ::syscall(SYS_write, file, bytes, count / 2); };
  if (Fails(IsWatched(file), TNeed::Space, torn)) return -1;
  return ::syscall(SYS_write, file, bytes, count);
}

ssize_t writev(int file, const iovec* parts, int count) {
  const auto torn = [&] { ::syscall(SYS_writev, file, parts, count / 2); };
  if (Fails(IsWatched(file), TNeed::Space, torn)) return -1;
  return ::syscall(SYS_writev, file, parts, count);
}

int rename(const char* from, const char* to) noexcept {
  return RenameAt(AT_FDCWD, from, AT_FDCWD, to, 0);
}
int renameat(int from, const char* old, int to, const char* path) noexcept {
  return RenameAt(from, old, to, path, 0);
}
int renameat2(int from, const char* old, int to, const char* path, unsigned flags) noexcept {
  return RenameAt(from, old, to, path, flags);
}

int unlink(const char* path) noexcept {
  return UnlinkAt(AT_FDCWD, path, 0);
}
int unlinkat(int folder, const char* path, int flags) noexcept {
  return UnlinkAt(folder, path, flags);
}
int remove(const char* path) noexcept {
  return UnlinkAt(AT_FDCWD, path, 0);
}

int link(const char* from, const char* to) noexcept {
  if (Fails(IsWatched(AT_FDCWD, to), TNeed::Space)) return -1;
  return static_cast<int>(::syscall(SYS_linkat, AT_FDCWD, from, AT_FDCWD, to, 0));
}

int mkdir(const char* path, mode_t mode) noexcept {
  if (Fails(IsWatched(AT_FDCWD, path), TNeed::Space)) return -1;
  return static_cast<int>(::syscall(SYS_mkdirat, AT_FDCWD, path, mode));
}

int fchmod(int file, mode_t mode) noexcept {
  if (Fails(IsWatched(file), TNeed::Nothing)) return -1;
  return static_cast<int>(::syscall(SYS_fchmod, file, mode));
}

int fsetxattr(int file, const char* name, const void* value, size_t size, int flags) noexcept {
  if (Fails(IsWatched(file), TNeed::Space)) return -1;
  return static_cast<int>(::syscall(SYS_fsetxattr, file, name, value, size, flags));
}

int fchown(int file, uid_t owner, gid_t group) noexcept {
  if (Fails(IsWatched(file), TNeed::Nothing)) return -1;
  return static_cast<int>(::syscall(SYS_fchown, file, owner, group));
}
}
