#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ErrorOf.h"
#include "TempFolder.h"
#include "VantrelFileSystem.h"

namespace {
using TSystem = TVantrelFileSystem;
using enum TVantrelFileAttribute;
using testing::ElementsAre;

TEST(FileSystem, CreatesDirectoriesWithTheirParents) {
  const TempFolder folder;
  for (const auto& path : {folder / "a/b/c/", folder / "a/b/c", std::string("/"), std::string("C:")}) {
    EXPECT_NO_THROW(TSystem::CreateDirectory(path));
  }
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
  file.Move(folder / "h.txt");
  EXPECT_FALSE(TSystem::Exists(folder / "f"));
  EXPECT_EQ(file.Extension(), "txt");
  EXPECT_EQ(file.Size(), 4);
  file.Delete();
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
  EXPECT_TRUE(TSystem::IsFileInDirectory(folder / "a/b/y.kvr", folder / "a"));
  EXPECT_FALSE(TSystem::IsFileInDirectory(folder / "ab", folder / "a"));
  EXPECT_THROW(TSystem::GetFiles(folder / "fehlt"), EVantrelFileSystemError);
  EXPECT_THROW(TSystem::DeleteDirectory(folder / "a"), EVantrelFileSystemError);
  EXPECT_THROW(TSystem::MoveFile(folder / "a", folder / "c"), EVantrelFileSystemError);
  directory.Move(folder / "c");
  directory.Delete();
  EXPECT_EQ(folder.FileCount(), 0U);
}

TEST(FileSystem, AttributesAndTimes) {
  const TempFolder folder;
  const auto name = folder / "f";
  WriteFileText(name, "");
  EXPECT_THAT(TSystem::GetAttributes(name), ElementsAre(fattrNormal));
  TSystem::SetAttributes(name, {fattrReadOnly});
  EXPECT_THAT(TSystem::GetAttributes(name), ElementsAre(fattrReadOnly));
  std::filesystem::create_symlink(folder.Path(), folder / ".l");
  EXPECT_THAT(TSystem::GetAttributes(folder / ".l"), ElementsAre(fattrHidden, fattrDirectory, fattrReparsePoint));
  EXPECT_TRUE(TSystem::SameFile(folder / ".l/f", name));
  const auto created = TSystem::GetCreationTimeUtc(name);
  EXPECT_NEAR(created, TSystem::GetLastWriteTimeUtc(name), 1.0 / 24);
  TSystem::SetLastAccessTimeUtc(name, 30000.25);
  EXPECT_DOUBLE_EQ(TSystem::GetLastAccessTimeUtc(name), 30000.25);
  EXPECT_DOUBLE_EQ(TSystem::GetCreationTimeUtc(name), created);
  TSystem::SetTime(name, TVantrelFileTimeInfo::ftimeLastAccess, 30000.5);
  EXPECT_DOUBLE_EQ(TSystem::GetTime(name, TVantrelFileTimeInfo::ftimeLastAccess), 30000.5);
  TSystem::SetLastWriteTimeUtc(name, 30000.75);
  EXPECT_DOUBLE_EQ(TSystem::GetLastWriteTimeUtc(name), 30000.75);
  EXPECT_EQ(TSystem::GetFileMode(folder / "fehlt"), TVantrelFileMode::fmodeUnknown);
  EXPECT_THROW(TSystem::SetCreationTime(name, created), EVantrelFileSystemError);
}

TEST(FileSystem, DisksAndDriveLetters) {
  const TVantrelDriveInfo drive("/");
  EXPECT_TRUE(drive.IsReady());
  EXPECT_GE(drive.DiskInfo().TotalSize, drive.DiskInfo().FreeSize);
  EXPECT_NE(drive.VolumeInfo().FileSystemName, "");
  EXPECT_EQ(TSystem::GetDriveType("/fehlt/ganz"), TVantrelDriveType::dtypeNoRootDir);
  EXPECT_FALSE(TSystem::IsRemote("/proc"));
  EXPECT_THAT(TSystem::GetDrives(), testing::Contains("/"));
  EXPECT_TRUE(TSystem::HasDriveLetter("C:\\f"));
  EXPECT_EQ(ErrorOf<EVantrelFileSystemError>([] { TSystem::GetLogicalDriveList(); }),
            "Systemfehler (Fehlercode: 50).\r\nAuf diesem System gibt es keine Laufwerksbuchstaben.");
  EXPECT_THROW(TSystem::GetDriveLetter("C:"), EVantrelFileSystemError);
  EXPECT_THROW(TSystem::QueryDosDevice("C:"), EVantrelFileSystemError);
  EXPECT_THROW(TSystem::SetVolumeLabel("/", "x"), EVantrelFileSystemError);
  EXPECT_THROW(TSystem::DeleteFileAfterReboot("/f"), EVantrelFileSystemError);
}
}  // namespace
