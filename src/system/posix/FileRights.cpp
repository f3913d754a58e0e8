#include "FileRights.h"

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace {
constexpr const char* AccessList = "system.posix_acl_access";
/// The system gives these labels by place and content of a file.
constexpr std::string_view SystemLabels = "security.";
constexpr unsigned PermissionBits = 07777;
constexpr unsigned GroupBits = S_IRWXG;

/// The names of the extended attributes, the access list being one of them.
std::vector<std::string> AttributesOf(int descriptor) {
  std::string names(static_cast<std::size_t>(std::max<ssize_t>(::flistxattr(descriptor, nullptr, 0), 0)), '\0');
  names.resize(static_cast<std::size_t>(std::max<ssize_t>(::flistxattr(descriptor, names.data(), names.size()), 0)));
  std::vector<std::string> list;
  for (std::size_t at = 0; at < names.size(); at += list.back().size() + 1) list.emplace_back(names.c_str() + at);
  return list;
}

bool HasAccessList(int descriptor) {
  return ::fgetxattr(descriptor, AccessList, nullptr, 0) >= 0;
}

bool CopyAttribute(int from, int to, const char* name) {
  std::string value(static_cast<std::size_t>(std::max<ssize_t>(::fgetxattr(from, name, nullptr, 0), 0)), '\0');
  return ::fgetxattr(from, name, value.data(), value.size()) == std::ssize(value) &&
         ::fsetxattr(to, name, value.data(), value.size(), 0) == 0;
}

/// False where the old file has an access list that the new one does not get.
bool CopyAttributes(int from, int to, bool withAccessList) {
  bool listIsKept = true;
  for (const auto& name : AttributesOf(from)) {
    if (name == AccessList)
      listIsKept = withAccessList && CopyAttribute(from, to, AccessList);
    else if (!name.starts_with(SystemLabels))
      CopyAttribute(from, to, name.c_str());
  }
  return listIsKept;
}

bool SetMode(int descriptor, unsigned mode) {
  return ::fchmod(descriptor, mode) == 0;
}
/// The mode of a file of `group` that has `mode`, within the limit.
unsigned Within(unsigned mode, unsigned group, const System::TFileRights& limit) {
  const auto* native = limit.Native();
  if (native == nullptr) return mode;
  unsigned most = native->Mode;
  // Another group may be people of any kind.
  if (group != native->Group) most &= ~GroupBits | (most & S_IRWXO) << 3;
  return (mode & most) | Posix::PrivateMode;
}
}  // namespace

System::TFileRights::TFileRights(TNative native) : FNative(std::make_shared<TNative>(native)) {}

System::TFileRights Posix::FileRights::Of(int descriptor) {
  struct stat status {};
  const bool isKnown = ::fstat(descriptor, &status) == 0;
  unsigned mode = isKnown ? status.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO) : 0U;
  // The bits of the group are those of the whole list, then.
  if (HasAccessList(descriptor)) mode &= ~GroupBits;
  return System::TFileRights(System::TFileRights::TNative{mode, status.st_gid});
}

void Posix::FileRights::Copy(int from, int to, const System::TFileRights& most) {
  struct stat old {};
  struct stat created {};
  if (::fstat(from, &old) != 0 || ::fstat(to, &created) != 0) return;
  const auto keep = [&](uid_t owner) { return ::fchown(to, owner, old.st_gid) == 0; };
  const bool ownerIsKept = created.st_uid == old.st_uid || keep(old.st_uid);
  const bool groupIsKept =
      created.st_gid == old.st_gid || (ownerIsKept && created.st_uid != old.st_uid) || keep(static_cast<uid_t>(-1));
  // One that the folder has given.
  ::fremovexattr(to, AccessList);
  const bool listIsKept = CopyAttributes(from, to, groupIsKept && most.Native() == nullptr);
  unsigned mode = old.st_mode & PermissionBits;
  if (!ownerIsKept) mode &= ~static_cast<unsigned>(S_ISUID);
  if (!groupIsKept || !listIsKept) mode &= ~(GroupBits | S_ISGID);
  SetMode(to, Within(mode, old.st_gid, most));
}

unsigned Posix::FileRights::ModeOfNew(const System::TFileRights& most) {
  return most.Native() == nullptr ? NewFileMode : (NewFileMode & most.Native()->Mode) | Posix::PrivateMode;
}

void Posix::FileRights::Limit(int descriptor, const System::TFileRights& most) {
  struct stat status {};
  if (most.Native() == nullptr || ::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) return;
  unsigned mode = Within(status.st_mode, status.st_gid, most);
  // The bits of the group are those of the whole list, which would stay when it is gone.
  if (HasAccessList(descriptor)) mode &= ~GroupBits;
  if (SetMode(descriptor, mode)) ::fremovexattr(descriptor, AccessList);
}
