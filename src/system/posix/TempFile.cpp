#include "TempFile.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>

#include "FileLocks.h"
#include "SystemFolders.h"

namespace Posix {
namespace {
using FileLocks::THold;

constexpr const char* Marker = ".mytessaron-";
constexpr const char* Ending = ".tmp";
constexpr std::size_t LongestNumbers = 24;
constexpr long UsualNameMax = 255;
constexpr int Attempts = 1000;

std::filesystem::path FolderOf(const std::string& target) {
  const auto folder = std::filesystem::path(target).parent_path();
  return folder.empty() ? "." : folder;
}

/// What the names of all temporary files of the target begin with. A long name is cut between two characters.
std::string PrefixOf(const std::string& target) {
  auto name = std::filesystem::path(target).filename().string();
  const auto folderMax = ::pathconf(FolderOf(target).c_str(), _PC_NAME_MAX);
  const auto nameMax = static_cast<std::size_t>(folderMax > 0 ? folderMax : UsualNameMax);
  const auto added =
      1 + std::char_traits<char>::length(Marker) + LongestNumbers + std::char_traits<char>::length(Ending);
  if (name.size() + added > nameMax) {
    auto end = nameMax > added ? nameMax - added : 0;
    while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0) == 0x80) --end;
    name.resize(end);
  }
  return "." + name + Marker;
}

bool ForbidsFiles(int error) {
  return error == EACCES || error == EPERM || error == EROFS;
}

/// True if nobody holds the file; on a file system without locks nobody can tell.
bool IsAbandoned(const std::string& name) {
  const int descriptor = ::open(name.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
  if (descriptor < 0) return false;
  const bool abandoned =
      FileLocks::Take(descriptor, {true, true}, TVantrelFileAccessMode::famShareExclusive) == THold::Held;
  ::close(descriptor);
  return abandoned;
}
}  // namespace

std::optional<TTempFile> TTempFile::Create(const std::string& target, TVantrelFileAccessMode access,
                                           unsigned permissions) {
  const auto prefix = (FolderOf(target) / PrefixOf(target)).string();
  for (int number = 1; number <= Attempts; ++number) {
    const auto name = fmt::format("{}{}-{}{}", prefix, ::getpid(), number, Ending);
    const int descriptor = ::open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, permissions);
    if (descriptor < 0 && errno == EEXIST) continue;
    if (descriptor < 0 && ForbidsFiles(errno)) return std::nullopt;
    if (descriptor < 0) Fail();
    TTempFile file(name, descriptor);
    // Between the two calls another save may have taken the file for a left-over.
    if (FileLocks::Take(descriptor, {true, true}, access) != THold::Refused &&
        FileLocks::IsSameFile(descriptor, name)) {
      return file;
    }
  }
  Fail(TVantrelErrorCode::SharingViolation);
}

void TTempFile::RemoveLeftOvers(const std::string& target) noexcept {
  try {
    const auto prefix = PrefixOf(target);
    for (const auto& entry : std::filesystem::directory_iterator(FolderOf(target))) {
      const auto name = entry.path().filename().string();
      if (!name.starts_with(prefix) || !name.ends_with(Ending)) continue;
      if (entry.is_regular_file() && IsAbandoned(entry.path())) ::unlink(entry.path().c_str());
    }
  } catch (const std::exception&) {
    // A folder that cannot be listed keeps what lies there.
  }
}

TTempFile::~TTempFile() {
  if (FFile.Descriptor >= 0 && !FIsKept) ::unlink(FName.c_str());
}

void TTempFile::KeepBeside(const std::string& target, const std::string& ending) {
  auto name = System::FreeNameBeside(target, ending);
  int result = RenameToFree(FName, name);
  for (int attempt = 1; result != 0 && errno == EEXIST && attempt < Attempts; ++attempt) {
    name = System::FreeNameBeside(target, ending);
    result = RenameToFree(FName, name);
  }
  if (result != 0 && !ForbidsFiles(errno) && errno != ENAMETOOLONG) Fail();
  if (result == 0) FName = std::move(name);
  FIsKept = true;
}

TTempFile::TPlace TTempFile::TakePlaceOf(const std::string& target, bool expectedMissing) {
  const int result = expectedMissing ? RenameToFree(FName, target) : ::rename(FName.c_str(), target.c_str());
  if (result != 0 && expectedMissing && errno == EEXIST) return TPlace::CameToBe;
  if (result != 0 && ForbidsFiles(errno)) return TPlace::Forbidden;
  if (result != 0) Fail();
  return TPlace::Taken;
}

}  // namespace Posix
