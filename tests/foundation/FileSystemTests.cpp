#include "InChild.h"
#include "Testing.h"
#include "VantrelFileSystem.h"
#include "VantrelPaths.h"

namespace {
using TSystem = TVantrelFileSystem;
using enum TVantrelFileAttribute;

struct FileSystem : testing::Test {
  const TempFolder FFolder;
  const std::string FName = FFolder / "f";
};

TEST_F(FileSystem, CreatesDirectoriesWithTheirParents) {
  const std::string paths[] = {FFolder / "a/b/c/", FFolder / "a/b/c", FFolder / "d//e//", FFolder / "f:/g", "/", "C:"};
  for (const auto& path : paths) EXPECT_TRUE(TSystem::ForceDirectory(path) || path == "C:") << path;
  EXPECT_TRUE(TSystem::Exists(FFolder / "a/b/c"));
  EXPECT_FALSE(TSystem::Exists("C:") || TSystem::Exists(""));
  WriteFileText(FFolder / "f", "");
  EXPECT_THROW(TSystem::CreateDirectory(FFolder / "f"), EVantrelFileSystemError);
  EXPECT_FALSE(TSystem::ForceDirectory(FFolder / "f/d"));
}

TEST_F(FileSystem, WhatLiesInADirectory) {
  const auto home = TSystem::GetCurrentDirectory();
  TSystem::SetCurrentDirectory(FFolder.Path());
  std::filesystem::create_symlink("loop", FFolder / "loop");
  std::filesystem::create_directory_symlink(".", FFolder / "link");
  WriteFileText(FFolder / "f", "");
  EXPECT_TRUE(TSystem::SameFile("link/f", FFolder / "f"));
  EXPECT_FALSE(TSystem::SameFile("f", "fehlt/f"));
  EXPECT_THROW(TSystem::SameFile("loop", FFolder / "f"), EVantrelFileSystemError);
  for (const auto* path : {"f", "fehlt/f", "link/..f"}) EXPECT_TRUE(TSystem::IsFileInDirectory(path, FFolder.Path()));
  for (const auto* path : {".", "link", "..", "/"}) EXPECT_FALSE(TSystem::IsFileInDirectory(path, FFolder.Path()));
  EXPECT_FALSE(TSystem::IsFileInDirectory("fehlt", FFolder / "feh"));
  EXPECT_THROW(TSystem::IsFileInDirectory("loop/f", FFolder.Path()), EVantrelFileSystemError);
  TSystem::SetCurrentDirectory(home);
  EXPECT_THROW(TSystem::SetCurrentDirectory(FFolder / "f"), EVantrelFileSystemError);
}

TEST_F(FileSystem, Attributes) {
  WriteFileText(FName, "");
  EXPECT_EQ(TSystem::GetFileMode(FName), TVantrelFileMode::fmodeReadWrite);
  TSystem::SetAttributes(FName, {fattrReadOnly});
  EXPECT_THAT(TSystem::GetAttributes(FName), ElementsAre(fattrReadOnly));
  const auto mode = [](const std::string& path) { return static_cast<int>(TSystem::GetFileMode(path)); };
  EXPECT_EQ(InChildAsOrdinaryUser(FFolder.Path(), [&] { return mode(FName) * 10 + mode(FFolder / "fehlt"); }), 20);
  TSystem::SetAttributes(FName, {});
  EXPECT_THAT(TSystem::GetAttributes(FName), ElementsAre(fattrNormal));
  std::filesystem::create_symlink(FFolder.Path(), FFolder / ".l");
  EXPECT_THAT(TSystem::GetAttributes(FFolder / ".l"), ElementsAre(fattrHidden, fattrDirectory, fattrReparsePoint));
  std::filesystem::create_symlink("fehlt", FFolder / "leer");
  EXPECT_THAT(TSystem::GetAttributes(FFolder / "leer"), ElementsAre(fattrReparsePoint));
  EXPECT_THROW(TSystem::GetAttributes(FFolder / "fehlt"), EVantrelFileSystemError);
}

TEST_F(FileSystem, TimesAreLocalOrUtc) {
  constexpr double hour = 1.0 / 24, millisecond = hour / 3'600'000;
  using TGet = TDateTime (*)(const std::string&);
  using TSet = void (*)(const std::string&, TDateTime);
  const std::tuple<TSet, TSet, TGet, TGet> cases[] = {{TSystem::SetLastAccessTime, TSystem::SetLastAccessTimeUtc,
                                                       TSystem::GetLastAccessTime, TSystem::GetLastAccessTimeUtc},
                                                      {TSystem::SetLastWriteTime, TSystem::SetLastWriteTimeUtc,
                                                       TSystem::GetLastWriteTime, TSystem::GetLastWriteTimeUtc}};
  WriteFileText(FName, "");
  setenv("TZ", "CET-1", 1);
  tzset();
  EXPECT_NEAR(TSystem::GetCreationTimeUtc(FName), TSystem::GetLastWriteTimeUtc(FName), hour / 2);
  EXPECT_NEAR(TSystem::GetCreationTime(FName) - TSystem::GetCreationTimeUtc(FName), hour, millisecond);
  for (const auto& [set, setUtc, get, getUtc] : cases) {
    set(FName, 30000.5);
    EXPECT_NEAR(getUtc(FName), 30000.5 - hour, millisecond);
    setUtc(FName, 30000.25);
    EXPECT_NEAR(get(FName), 30000.25 + hour, millisecond);
  }
  unsetenv("TZ");
  tzset();
  for (const TSet set : {TSystem::SetCreationTime, TSystem::SetCreationTimeUtc})
    EXPECT_THROW(set(FName, 30000), EVantrelFileSystemError);
  EXPECT_THROW(TSystem::SetTime(FFolder / "fehlt", TVantrelFileTimeInfo::ftimeLastWrite, 1), EVantrelFileSystemError);
}

TEST_F(FileSystem, EveryErrorSaysInGermanWhatToDo) {
  const auto codeOf = [](int error) { return System::CodeOf({error, std::generic_category()}); };
  for (const int error : {ENOENT, ENOTDIR, EACCES, ENOMEM, EBUSY, ENOSPC, EIO, ENXIO, EMFILE, EFBIG, ENOTEMPTY, EXDEV,
                          EINVAL, EINTR, ENOSYS, ETIMEDOUT, ESTALE})
    EXPECT_THAT(EVantrelWin32Error::TextOf(codeOf(error)),
                testing::AllOf(testing::ContainsRegex("[.] .*Sie.*[.]$"), testing::Not(HasSubstr("unerwartet"))))
        << error;
  for (const auto code : {4U, 1223U, codeOf(ENOTTY)})
    EXPECT_THAT(EVantrelWin32Error::TextOf(code),
                testing::ContainsRegex(fmt::format("unerwarteten Fehler [(]Code {}[)][.] .*Sie.*[.]$", code)));
}

using TPath = TVantrelFilePath;

TEST(FilePath, TakesPathsApart) {
  const char* cases[][5] = {{"C:\\d.x\\f", "C:\\d.x", "f", "f", ""},
                            {"C:\\f.a.kv", "C:\\", "f.a.kv", "f.a", "kv"},
                            {"C:f.kv", "C:", "f.kv", "f", "kv"},
                            {"\\\\s\\t\\f.", "\\\\s\\t", "f.", "f", ""},
                            {"/h/x.y/f.kv", "/h/x.y", "f.kv", "f", "kv"},
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
  EXPECT_TRUE(TPath::IsPathEqual("C:\\A", "c:\\a") && !TPath::IsPathEqual("/A", "/a"));
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
