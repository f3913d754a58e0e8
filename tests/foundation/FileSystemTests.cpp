#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ErrorOf.h"
#include "InChild.h"
#include "TempFolder.h"
#include "VantrelFileSystem.h"
#include "VantrelPaths.h"

namespace {
using TSystem = TVantrelFileSystem;
using enum TVantrelFileAttribute;
using testing::ElementsAre;

TEST(FileSystem, CreatesDirectoriesWithTheirParents) {
  const TempFolder folder;
  const std::string paths[] = {folder / "a/b/c/", folder / "a/b/c", folder / "d//e//", folder / "f:/g", "/", "C:"};
  for (const auto& path : paths) EXPECT_TRUE(TSystem::ForceDirectory(path) || path == "C:") << path;
  EXPECT_TRUE(TSystem::Exists(folder / "a/b/c"));
  EXPECT_FALSE(TSystem::Exists("C:"));
  EXPECT_FALSE(TSystem::Exists(""));
  WriteFileText(folder / "f", "");
  EXPECT_THROW(TSystem::CreateDirectory(folder / "f"), EVantrelFileSystemError);
  EXPECT_FALSE(TSystem::ForceDirectory(folder / "f/d"));
}

TEST(FileSystem, CopiesMovesAndDeletes) {
  const TempFolder folder;
  WriteFileText(folder / "f", "eins");
  WriteFileText(folder / "g", "zwei");
  EXPECT_THROW(TSystem::CopyFile(folder / "f", folder / "g", true), EVantrelFileSystemError);
  EXPECT_THROW(TSystem::MoveFile(folder / "f", folder / "g"), EVantrelFileSystemError);
  EXPECT_EQ(ReadFileText(folder / "g"), "zwei");
  TSystem::SetLastWriteTime(folder / "f", 40000.5);
  TSystem::CopyFileEx(folder / "f", folder / "g");
  EXPECT_EQ(ReadFileText(folder / "g"), "eins");
  EXPECT_DOUBLE_EQ(TSystem::GetLastWriteTime(folder / "g"), 40000.5);
  TVantrelFile file(folder / "f");
  file.Move(TVantrelFilePath::GetGuidFileName("/dev/shm", "tmp"));
  EXPECT_THROW(file.Move(folder / "g"), EVantrelFileSystemError);
  EXPECT_THROW(file.Move(folder / "fehlt/f"), EVantrelFileSystemError);
  file.Move(folder / "h.txt");
  EXPECT_THAT(TVantrelDirectory(folder.Path()).Files(), ElementsAre(folder / "g", folder / "h.txt"));
  EXPECT_EQ(file.Name(), "h.txt");
  EXPECT_EQ(file.Extension(), "txt");
  EXPECT_EQ(file.Size(), 4);
  EXPECT_DOUBLE_EQ(TSystem::GetLastWriteTime(file.Path()), 40000.5);
  EXPECT_EQ(TSystem::MakeFileNameUnique(file.Path()), folder / "h (2).txt");
  file.Delete();
  EXPECT_FALSE(file.Exists());
  EXPECT_THROW(file.Delete(), EVantrelFileSystemError);
  EXPECT_THROW(TSystem::DeleteFile(folder.Path()), EVantrelFileSystemError);
}

TEST(FileSystem, DirectoriesAsAWhole) {
  const TempFolder folder;
  TVantrelDirectory directory(folder / "a");
  TSystem::CreateDirectory(folder / "a/b");
  for (const auto* name : {"a/x.kvr", "a/b/y.kvr", "a/z.txt"}) WriteFileText(folder / name, "");
  EXPECT_THAT(directory.Files("*.kvr"), ElementsAre(folder / "a/x.kvr"));
  EXPECT_THAT(directory.Files("?.kvr", true), ElementsAre(folder / "a/b/y.kvr", folder / "a/x.kvr"));
  EXPECT_THROW(TSystem::GetFiles(folder / "fehlt"), EVantrelFileSystemError);
  EXPECT_THROW(TSystem::DeleteDirectory(folder / "a"), EVantrelFileSystemError);
  EXPECT_THROW(TSystem::MoveFile(folder / "a", folder / "c"), EVantrelFileSystemError);
  directory.Move(folder / "c");
  std::filesystem::create_symlink(folder / "c", folder / "link");
  TSystem::DeleteDirectory(folder / "link", true);
  EXPECT_EQ(directory.Files().size(), 2U);
  directory.Delete();
  EXPECT_FALSE(directory.Exists());
  EXPECT_EQ(folder.FileCount(), 0U);
}

TEST(FileSystem, WhatLiesInADirectory) {
  const TempFolder folder;
  const auto home = TSystem::GetCurrentDirectory();
  TSystem::SetCurrentDirectory(folder.Path());
  std::filesystem::create_symlink("loop", folder / "loop");
  std::filesystem::create_directory_symlink(".", folder / "link");
  WriteFileText(folder / "f", "");
  EXPECT_TRUE(TSystem::SameFile("link/f", folder / "f"));
  for (const auto* path : {"f", "fehlt/f", "link/..f"}) EXPECT_TRUE(TSystem::IsFileInDirectory(path, folder.Path()));
  for (const auto* path : {".", "link", "..", "/"}) EXPECT_FALSE(TSystem::IsFileInDirectory(path, folder.Path()));
  EXPECT_FALSE(TSystem::IsFileInDirectory("fehlt", folder / "feh"));
  EXPECT_THROW(TSystem::IsFileInDirectory("loop/f", folder.Path()), EVantrelFileSystemError);
  TSystem::SetCurrentDirectory(home);
  EXPECT_THROW(TSystem::SetCurrentDirectory(folder / "f"), EVantrelFileSystemError);
}

TEST(FileSystem, Attributes) {
  const TempFolder folder;
  const auto name = folder / "f";
  WriteFileText(name, "");
  EXPECT_EQ(TSystem::GetFileMode(name), TVantrelFileMode::fmodeReadWrite);
  TSystem::SetAttributes(name, {fattrReadOnly});
  EXPECT_THAT(TSystem::GetAttributes(name), ElementsAre(fattrReadOnly));
  const auto mode = [](const std::string& path) { return static_cast<int>(TSystem::GetFileMode(path)); };
  EXPECT_EQ(InChildAsOrdinaryUser(folder.Path(), [&] { return mode(name) * 10 + mode(folder / "fehlt"); }), 20);
  TSystem::SetAttributes(name, {});
  EXPECT_THAT(TSystem::GetAttributes(name), ElementsAre(fattrNormal));
  std::filesystem::create_symlink(folder.Path(), folder / ".l");
  EXPECT_THAT(TSystem::GetAttributes(folder / ".l"), ElementsAre(fattrHidden, fattrDirectory, fattrReparsePoint));
  std::filesystem::create_symlink("fehlt", folder / "leer");
  EXPECT_THAT(TSystem::GetAttributes(folder / "leer"), ElementsAre(fattrReparsePoint));
  EXPECT_THROW(TSystem::GetAttributes(folder / "fehlt"), EVantrelFileSystemError);
}

TEST(FileSystem, TimesAreLocalOrUtc) {
  constexpr double hour = 1.0 / 24, millisecond = hour / 3'600'000;
  using TGet = TDateTime (*)(const std::string&);
  using TSet = void (*)(const std::string&, TDateTime);
  const std::tuple<TSet, TSet, TGet, TGet> cases[] = {{TSystem::SetLastAccessTime, TSystem::SetLastAccessTimeUtc,
                                                       TSystem::GetLastAccessTime, TSystem::GetLastAccessTimeUtc},
                                                      {TSystem::SetLastWriteTime, TSystem::SetLastWriteTimeUtc,
                                                       TSystem::GetLastWriteTime, TSystem::GetLastWriteTimeUtc}};
  const TempFolder folder;
  const auto name = folder / "f";
  WriteFileText(name, "");
  setenv("TZ", "CET-1", 1);
  tzset();
  EXPECT_NEAR(TSystem::GetCreationTimeUtc(name), TSystem::GetLastWriteTimeUtc(name), hour / 2);
  EXPECT_NEAR(TSystem::GetCreationTime(name) - TSystem::GetCreationTimeUtc(name), hour, millisecond);
  for (const auto& [set, setUtc, get, getUtc] : cases) {
    set(name, 30000.5);
    EXPECT_NEAR(getUtc(name), 30000.5 - hour, millisecond);
    setUtc(name, 30000.25);
    EXPECT_NEAR(get(name), 30000.25 + hour, millisecond);
  }
  unsetenv("TZ");
  tzset();
  for (const TSet set : {TSystem::SetCreationTime, TSystem::SetCreationTimeUtc})
    EXPECT_THROW(set(name, 30000), EVantrelFileSystemError);
  EXPECT_THROW(TSystem::SetTime(folder / "fehlt", TVantrelFileTimeInfo::ftimeLastWrite, 1), EVantrelFileSystemError);
}

TEST(FileSystem, EveryErrorSaysInGermanWhatToDo) {
  for (const int error : {ENOENT, ENOTDIR, EACCES, ENOMEM, EBUSY, ENOSPC, EIO, ENXIO, EMFILE, EFBIG, ENOTEMPTY, EXDEV,
                          EINVAL, EINTR, ENOSYS, ETIMEDOUT, ESTALE})
    EXPECT_THAT(
        EVantrelWin32Error::TextOf(EVantrelWin32Error::CodeOfErrno(error)),
        testing::AllOf(testing::ContainsRegex("[.] .*Sie.*[.]$"), testing::Not(testing::HasSubstr("unerwartet"))))
        << error;
  for (const auto code : {4U, 1223U, EVantrelWin32Error::CodeOfErrno(ENOTTY)})
    EXPECT_THAT(EVantrelWin32Error::TextOf(code), testing::ContainsRegex("unerwarteten Fehler.*Sie.*[.]$"));
}

TEST(FileSystem, DisksAndDriveLetters) {
  const TVantrelDriveInfo drive("/");
  EXPECT_TRUE(drive.IsReady());
  EXPECT_GE(drive.DiskInfo().TotalSize, drive.DiskInfo().FreeSize);
  EXPECT_NE(drive.VolumeInfo().FileSystemName, "");
  EXPECT_EQ(TVantrelDriveInfo("/fehlt/ganz").DriveType(), TVantrelDriveType::dtypeNoRootDir);
  EXPECT_FALSE(TSystem::IsRemote("/proc"));
  EXPECT_THAT(TSystem::GetDrives(), testing::Contains("/"));
  EXPECT_TRUE(TSystem::HasDriveLetter("C:\\f"));
  EXPECT_EQ(ErrorOf<EVantrelFileSystemError>([] { TSystem::GetLogicalDriveList(); }),
            "Systemfehler (Fehlercode: 50).\r\nAuf diesem System gibt es keine Laufwerksbuchstaben. Geben Sie einen "
            "Ordner an.");
  EXPECT_THROW(TSystem::GetDriveLetter("C:"), EVantrelFileSystemError);
  EXPECT_THROW(TSystem::QueryDosDevice("C:"), EVantrelFileSystemError);
  EXPECT_THROW(TSystem::SetVolumeLabel("/", "x"), EVantrelFileSystemError);
  EXPECT_THROW(TSystem::DeleteFileAfterReboot("/f"), EVantrelFileSystemError);
}
}  // namespace
