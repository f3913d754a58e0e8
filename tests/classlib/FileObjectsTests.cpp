#include "VantrelFileObjects.h"

#include "Testing.h"
#include "VantrelPaths.h"
#include "VantrelVolumes.h"

namespace {
using TSystem = TVantrelFileSystem;

struct FileObjects : testing::Test {
  const TempFolder FFolder;
};

TEST_F(FileObjects, CopiesMovesAndDeletes) {
  WriteFileText(FFolder / "f", "eins");
  WriteFileText(FFolder / "g", "zwei");
  EXPECT_THROW(TSystem::CopyFile(FFolder / "f", FFolder / "g", true), EVantrelFileSystemError);
  EXPECT_THROW(TSystem::MoveFile(FFolder / "f", FFolder / "g"), EVantrelFileSystemError);
  EXPECT_EQ(ReadFileText(FFolder / "g"), "zwei");
  TSystem::SetLastWriteTime(FFolder / "f", 40000.5);
  TSystem::CopyFileEx(FFolder / "f", FFolder / "g");
  EXPECT_EQ(ReadFileText(FFolder / "g"), "eins");
  EXPECT_DOUBLE_EQ(TSystem::GetLastWriteTime(FFolder / "g"), 40000.5);
  TVantrelFile file(FFolder / "f");
  file.Move(TVantrelFilePath::GetGuidFileName("/dev/shm", "tmp"));
  EXPECT_THROW(file.Move(FFolder / "g"), EVantrelFileSystemError);
  EXPECT_THROW(file.Move(FFolder / "fehlt/f"), EVantrelFileSystemError);
  file.Move(FFolder / "h.txt");
  EXPECT_THAT(TVantrelDirectory(FFolder.Path()).Files(), ElementsAre(FFolder / "g", FFolder / "h.txt"));
  EXPECT_EQ(std::tuple(file.Name(), file.Extension(), file.Size()), std::tuple("h.txt", "txt", 4));
  EXPECT_DOUBLE_EQ(TSystem::GetLastWriteTime(file.Path()), 40000.5);
  EXPECT_EQ(TSystem::MakeFileNameUnique(file.Path()), FFolder / "h (2).txt");
  file.Delete();
  EXPECT_FALSE(file.Exists());
  EXPECT_THROW(file.Delete(), EVantrelFileSystemError);
  EXPECT_THROW(TSystem::DeleteFile(FFolder.Path()), EVantrelFileSystemError);
}

TEST_F(FileObjects, DirectoriesAsAWhole) {
  TVantrelDirectory directory(FFolder / "a");
  TSystem::CreateDirectory(FFolder / "a/b");
  for (const auto* name : {"a/x.kvr", "a/b/y.kvr", "a/z.txt"}) WriteFileText(FFolder / name, "");
  EXPECT_THAT(directory.Files("*.kvr"), ElementsAre(FFolder / "a/x.kvr"));
  EXPECT_THAT(directory.Files("?.kvr", true), ElementsAre(FFolder / "a/b/y.kvr", FFolder / "a/x.kvr"));
  EXPECT_THROW(TSystem::GetFiles(FFolder / "fehlt"), EVantrelFileSystemError);
  EXPECT_THROW(TSystem::DeleteDirectory(FFolder / "a"), EVantrelFileSystemError);
  EXPECT_THROW(TSystem::MoveFile(FFolder / "a", FFolder / "c"), EVantrelFileSystemError);
  directory.Move(FFolder / "c");
  std::filesystem::create_symlink(FFolder / "c", FFolder / "link");
  TSystem::DeleteDirectory(FFolder / "link", true);
  EXPECT_EQ(directory.Files().size(), 2U);
  directory.Delete();
  EXPECT_FALSE(directory.Exists());
  EXPECT_EQ(FFolder.FileCount(), 0U);
}

TEST_F(FileObjects, DisksAndDriveLetters) {
  const TVantrelDriveInfo drive("/");
  EXPECT_TRUE(drive.IsReady());
  EXPECT_GE(drive.DiskInfo().TotalSize, drive.DiskInfo().FreeSize);
  EXPECT_NE(drive.VolumeInfo().FileSystemName, "");
  EXPECT_EQ(TVantrelDriveInfo("/fehlt/ganz").DriveType(), TVantrelDriveType::dtypeNoRootDir);
  EXPECT_FALSE(TVantrelVolumes::IsRemote("/proc"));
  EXPECT_THAT(TVantrelVolumes::GetDrives(), testing::Contains("/"));
  EXPECT_TRUE(TVantrelVolumes::HasDriveLetter("C:\\f"));
  EXPECT_EQ(ErrorOf<EVantrelFileSystemError>([] { TVantrelVolumes::GetLogicalDriveList(); }),
            "Systemfehler (Fehlercode: 50).\r\nAuf diesem System gibt es keine Laufwerksbuchstaben. Geben Sie einen "
            "Ordner an.");
  EXPECT_THROW(TVantrelVolumes::GetDriveLetter("C:"), EVantrelFileSystemError);
  EXPECT_THROW(TVantrelVolumes::QueryDosDevice("C:"), EVantrelFileSystemError);
  EXPECT_THROW(TVantrelVolumes::SetVolumeLabel("/", "x"), EVantrelFileSystemError);
  EXPECT_THROW(TSystem::DeleteFileAfterReboot("/f"), EVantrelFileSystemError);
}
}  // namespace
