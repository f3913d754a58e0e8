#include "Volumes.h"

#include <mntent.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string_view>

#include "Posix.h"

namespace {
struct TMount {
  std::string Device;
  std::string Folder;
  std::string Kind;
};

struct statvfs SpaceOf(const std::string& path) {
  struct statvfs space {};
  if (::statvfs(path.c_str(), &space) != 0) Posix::Fail();
  return space;
}

std::vector<TMount> Mounts() {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> table(::setmntent("/proc/self/mounts", "re"), ::endmntent);
  if (table == nullptr) Posix::Fail();
  std::vector<TMount> mounts;
  while (const auto* entry = ::getmntent(table.get())) {
    mounts.push_back({entry->mnt_fsname, entry->mnt_dir, entry->mnt_type});
  }
  return mounts;
}

/// The mount that the path lies below; the last of several at one place hides the others.
TMount MountOf(const std::string& path) {
  std::error_code error;
  const auto full = std::filesystem::canonical(path, error).string();
  if (error) Posix::Fail(error.value());
  TMount found;
  for (auto& mount : Mounts()) {
    const bool covers = mount.Folder == "/" || full == mount.Folder || full.starts_with(mount.Folder + "/");
    if (covers && mount.Folder.size() >= found.Folder.size()) found = std::move(mount);
  }
  return found;
}

template <std::size_t Count>
bool IsOneOf(const std::string& kind, const std::array<std::string_view, Count>& kinds) {
  return std::ranges::find(kinds, kind) != kinds.end();
}

bool IsRemovable(const TMount& mount) {
  struct stat device {};
  if (::stat(mount.Device.c_str(), &device) != 0 || !S_ISBLK(device.st_mode)) return false;
  const auto disk = std::filesystem::path(mount.Device).filename().string();
  std::error_code error;
  const auto system = std::filesystem::canonical("/sys/class/block/" + disk, error);
  // A partition's entry lies in that of its disk, which alone tells.
  for (const auto& folder : {system, system.parent_path()}) {
    if (char flag = 0; std::ifstream(folder / "removable").get(flag)) return flag == '1';
  }
  return false;
}

std::string LabelOf(const TMount& mount) {
  std::error_code error;
  for (std::filesystem::directory_iterator entry("/dev/disk/by-label", error), end; !error && entry != end;
       entry.increment(error)) {
    std::error_code gone;
    if (std::filesystem::equivalent(entry->path(), mount.Device, gone)) return entry->path().filename().string();
  }
  return {};
}

TVantrelDriveType TypeOf(const TMount& mount) {
  using enum TVantrelDriveType;
  constexpr std::array<std::string_view, 8> remote{"nfs", "nfs4", "cifs", "smb3", "ncpfs", "fuse.sshfs", "9p", "afs"};
  constexpr std::array<std::string_view, 2> memory{"tmpfs", "ramfs"};
  constexpr std::array<std::string_view, 1> disc{"iso9660"};
  if (IsOneOf(mount.Kind, remote)) return dtypeRemote;
  if (IsOneOf(mount.Kind, memory)) return dtypeRamDisk;
  if (IsOneOf(mount.Kind, disc)) return dtypeCDRom;
  if (mount.Folder.empty()) return dtypeUnknown;
  return IsRemovable(mount) ? dtypeRemovable : dtypeFixed;
}
}  // namespace

namespace System {

TResult<TVantrelDiskInfo> DiskInfoOf(const std::string& path) {
  return Posix::Guarded([&] {
    const auto space = SpaceOf(path);
    const auto bytes = [&](fsblkcnt_t blocks) { return static_cast<std::int64_t>(blocks * space.f_frsize); };
    return TVantrelDiskInfo{bytes(space.f_blocks), bytes(space.f_bfree), bytes(space.f_bavail)};
  });
}

TResult<TVantrelDriveType> DriveTypeOf(const std::string& path) {
  struct statvfs space {};
  if (::statvfs(path.c_str(), &space) != 0) return TVantrelDriveType::dtypeNoRootDir;
  return Posix::Guarded([&] { return TypeOf(MountOf(path)); });
}

TResult<TVantrelVolumeInfo> VolumeInfoOf(const std::string& path) {
  using enum TVantrelFileSystemFlag;
  return Posix::Guarded([&] {
    const auto space = SpaceOf(path);
    const auto mount = MountOf(path);
    TVantrelVolumeInfo info{LabelOf(mount),
                            mount.Kind,
                            space.f_fsid,
                            static_cast<int>(space.f_namemax),
                            {fsystemCaseSensitive, fsystemUnicode}};
    if ((space.f_flag & ST_RDONLY) != 0) info.Flags.insert(fsystemReadOnly);
    return info;
  });
}

TResult<std::vector<std::string>> Drives() {
  return Posix::Guarded([] {
    std::vector<std::string> folders;
    for (const auto& mount : Mounts()) {
      if (mount.Device.starts_with('/')) folders.push_back(mount.Folder);
    }
    return folders;
  });
}

}  // namespace System
