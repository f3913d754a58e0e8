#include <gtest/gtest.h>

#include "TempFolder.h"
#include "VantrelExceptions.h"
#include "VantrelFileSystem.h"
#include "VantrelPaths.h"

namespace {
using TPath = TVantrelFilePath;

TEST(FilePath, TakesPathsApart) {
  const char* cases[][5] = {{"C:\\dir.x\\f", "C:\\dir.x", "f", "f", ""},
                            {"C:\\f.a.kvr", "C:\\", "f.a.kvr", "f.a", "kvr"},
                            {"C:f.kvr", "C:", "f.kvr", "f", "kvr"},
                            {"\\\\server\\share\\f.", "\\\\server\\share", "f.", "f", ""},
                            {"/home/x.y/f.kvrx", "/home/x.y", "f.kvrx", "f", "kvrx"},
                            {"/f", "/", "f", "f", ""},
                            {"dir/", "dir", "", "", ""},
                            {"dir//f", "dir//", "f", "f", ""},
                            {"\\f", "", "f", "f", ""},
                            {"f", "", "f", "f", ""},
                            {"", "", "", "", ""}};
  for (const auto& [path, directory, name, stem, extension] : cases) {
    SCOPED_TRACE(path);
    EXPECT_EQ(TPath::GetDirectoryName(path), directory);
    EXPECT_EQ(TPath::GetFileName(path), name);
    EXPECT_EQ(TPath::GetFileNameWithoutExtension(path), stem);
    EXPECT_EQ(TPath::GetExtension(path), extension);
    EXPECT_EQ(TPath::HasExtension(path), *extension != '\0');
  }
}

TEST(FilePath, Combines) {
  const char* cases[][3] = {
      {"", "b", "b"},    {"C:\\a", "b", "C:\\a\\b"},  {"a", "", "a"},     {"C:\\a\\", "\\b", "C:\\a\\b"},
      {"a", "b", "a/b"}, {"C:\\a", "D:\\b", "D:\\b"}, {"a/", "b", "a/b"}, {"/a", "\\\\s\\b", "\\\\s\\b"},
      {"/a", "/b", "/b"}};
  for (const auto& [path1, path2, combined] : cases) EXPECT_EQ(TPath::Combine(path1, path2), combined);
}

TEST(FilePath, ChangesParts) {
  EXPECT_EQ(TPath::ChangeExtension("/a.b/f", "kvr"), "/a.b/f.kvr");
  EXPECT_EQ(TPath::ChangeExtension("f.old.kvr", ""), "f.old");
  EXPECT_EQ(TPath::AddExtension("", "kvr"), "");
  EXPECT_EQ(TPath::ForceExtension("f.KVR", "kvr"), "f.KVR");
  EXPECT_EQ(TPath::ForceExtension("f.x", "kvr"), "f.x.kvr");
  EXPECT_EQ(TPath::ChangeFileName("C:\\f", "g"), "C:\\g");
  EXPECT_EQ(TPath::ChangeDirectoryName("/a/f", "/b"), "/b/f");
  EXPECT_EQ(TPath::ChangeDriveLetter("C:\\f", 'D'), "D:\\f");
  EXPECT_EQ(TPath::GetDriveName("\\\\s\\t\\f"), "\\\\s\\t");
  EXPECT_EQ(TPath::GetDisplayName("/a/b/"), "b");
}

TEST(FilePath, DelimitersAndRoots) {
  const struct {
    const char *Path, *Added, *Removed, *WithoutLeading;
    bool IsPath, IsRooted, IsRoot;
  } cases[] = {{"/", "/", "", "", true, true, true},
               {"C:\\", "C:\\", "C:", "C:\\", true, true, true},
               {"C:\\a", "C:\\a\\", "C:\\a", "C:\\a", true, true, false},
               {"\\a", "\\a\\", "\\a", "a", true, false, false},
               {"/a/", "/a/", "/a", "a/", true, true, false},
               {"a", "a/", "a", "a", false, false, false},
               {"", "/", "", "", false, false, false}};
  for (const auto& one : cases) {
    SCOPED_TRACE(one.Path);
    EXPECT_EQ(TPath::AddTrailingPathDelimiter(one.Path), one.Added);
    EXPECT_EQ(TPath::RemoveTrailingPathDelimiter(one.Path), one.Removed);
    EXPECT_EQ(TPath::RemoveLeadingPathDelimiter(one.Path), one.WithoutLeading);
    EXPECT_EQ(TPath::IsPath(one.Path), one.IsPath);
    EXPECT_EQ(TPath::IsPathRooted(one.Path), one.IsRooted);
    EXPECT_EQ(TPath::IsRoot(one.Path), one.IsRoot);
    EXPECT_EQ(TPath::GetLongPath(TPath::GetShortPath(one.Path)), one.Path);
  }
  EXPECT_EQ(TPath::AddTrailingHTTPPathDelimiter("http://a"), "http://a/");
  EXPECT_EQ(TPath::GetGuidFileName("/a", "kvr").size(), std::string_view("/a/.kvr").size() + 36);
  EXPECT_TRUE(TVantrelFileSystem::IsDirectory(TPath::GetTempPath()));
}

TEST(FilePath, RelativePaths) {
  const char* cases[][3] = {{"/a/b", "/a/c/f", "../c/f"}, {"C:\\A", "c:\\a\\f", "f"}, {"/a", "/a", "."},
                            {"C:\\a", "D:\\a", "D:\\a"},  {"/a/b/c", "/a", "../.."},  {"/a", "b", "b"}};
  for (const auto& [base, path, relative] : cases) EXPECT_EQ(TPath::GetRelativePath(base, path), relative);
}

TEST(FilePath, FullAndEqualPaths) {
  EXPECT_EQ(TPath::GetFullPath("C:\\..\\f"), "C:\\..\\f");
  EXPECT_EQ(TPath::GetFullPath("./a/../f"), (std::filesystem::current_path() / "f").string());
  EXPECT_THROW(TPath::GetFullPath(std::string(262, 'x')), EVantrelFileSystemError);
  EXPECT_TRUE(TPath::IsPathEqual("f/", (std::filesystem::current_path() / "f").string()));
  EXPECT_TRUE(TPath::IsPathEqual("C:\\A", "c:\\a"));
  EXPECT_FALSE(TPath::IsPathEqual("/A", "/a"));
  EXPECT_THROW(TPath::GetPathFromRegistry("a", "b"), EVantrelFileSystemError);
}

TEST(FilePath, StampsAndUniqueNames) {
  const auto time = EncodeDateTime({2024, 3, 15, 14, 5, 9, 0});
  EXPECT_EQ(TPath::GetTimeStampedFileName("/a/f.log", time), "/a/f-2024-03-15-Fr-14-05-09.log");
  EXPECT_EQ(TPath::GetDateStampedFileName("f", time), "f-2024-03-15-Fr");
  const TempFolder folder;
  EXPECT_EQ(TPath::GetUniqueFileName(folder / "f.x"), folder / "f.x");
  WriteFileText(folder / "f.x", "");
  WriteFileText(folder / "f (2).x", "");
  EXPECT_EQ(TPath::GetUniqueFileName(folder / "f.x"), folder / "f (3).x");
  EXPECT_TRUE(TVantrelFileSystem::Exists(TPath::GetTempFileName(folder.Path().string(), "x")));
}
}  // namespace
