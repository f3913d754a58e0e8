#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <functional>

#include "ErrorOf.h"
#include "InChild.h"
#include "TempFolder.h"
#include "VantrelSafeSave.h"

namespace {
using enum TVantrelFileAccessMode;
using enum TVantrelFileOpenMode;
using THandle = std::unique_ptr<TVantrelFileHandle>;

THandle Save(const std::string& name, std::string_view text, TVantrelFileAccessMode access = famShareExclusive,
             THandle* own = nullptr) {
  const std::span bytes(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
  return TVantrelSafeSave::Write(name, bytes, access, own);
}

/// 0 where the save succeeds, else the code of the error.
int CodeOfSaving(const std::string& name, std::string_view text, THandle* own = nullptr) {
  return static_cast<int>(FileErrorOf([&] { Save(name, text, famShareExclusive, own); }));
}

TEST(SafeSave, ReplacesTheFileAndHoldsIt) {
  const TempFolder folder;
  for (const auto& name : {folder / "projekt.kvr", folder / (std::string(200, 'x') + "äöü" + std::string(40, 'y'))}) {
    EXPECT_EQ(CodeOfSaving(name, "eins"), 0);
    auto handle = Save(name, "zwei");
    EXPECT_EQ(ReadFileText(name), "zwei");
    EXPECT_EQ(CodeOfSaving(name, "drei"), 32);
    TVantrelFileStream stream(std::move(handle));
    EXPECT_EQ(stream.ReadAll().size(), 4U);
  }
  EXPECT_EQ(folder.FileCount(), 2U);
}

TEST(SafeSave, OwnHandleIsExchangedForeignOneRefuses) {
  const TempFolder folder;
  const auto name = folder / "f";
  WriteFileText(name, "alt");
  auto own = std::make_unique<TVantrelFileHandle>(name, famShareDenyWrite, fomOpenReadWrite);
  {
    const TVantrelFileHandle foreign(name, famShareDenyNone, fomOpenRead);
    EXPECT_EQ(CodeOfSaving(name, "neu", &own), 32);
    EXPECT_NE(own, nullptr);
    EXPECT_THROW(TVantrelFileHandle(name, famShareDenyNone, fomOpenReadWrite), EVantrelFileHandleError);
  }
  const auto handle = Save(name, "neu", famShareDenyWrite, &own);
  EXPECT_EQ(own, nullptr);
  EXPECT_EQ(ReadFileText(name), "neu");
  EXPECT_NO_THROW(TVantrelFileHandle(name, famShareDenyNone, fomOpenRead));
  EXPECT_THROW(TVantrelFileHandle(name, famShareDenyNone, fomOpenReadWrite), EVantrelFileHandleError);
}

TEST(SafeSave, KeepsPermissionsAndLinks) {
  const TempFolder folder;
  std::filesystem::create_directory(folder / "weit");
  WriteFileText(folder / "weit/f", "alt");
  ::chmod((folder / "weit/f").c_str(), 0640);
  std::filesystem::create_symlink("weit/f", folder / "link");
  std::filesystem::create_symlink("weit/fehlt", folder / "ins-leere");
  std::filesystem::create_hard_link(folder / "weit/f", folder / "weit/zweiter");
  EXPECT_EQ(CodeOfSaving(folder / "link", "neu"), 0);
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "link"));
  EXPECT_EQ(ReadFileText(folder / "weit/f"), "neu");
  EXPECT_EQ(ReadFileText(folder / "weit/zweiter"), "alt");
  EXPECT_EQ(static_cast<int>(std::filesystem::status(folder / "weit/f").permissions()), 0640);
  EXPECT_EQ(CodeOfSaving(folder / "ins-leere", "neu"), 0);
  EXPECT_EQ(ReadFileText(folder / "weit/fehlt"), "neu");
}

TEST(SafeSave, RemovesWhatNobodyHolds) {
  const TempFolder folder;
  const auto name = folder / "f";
  const auto held = folder / ".f.mytessaron-1-1.tmp";
  const TVantrelFileHandle writer(held, famShareDenyNone, fomCreate);
  for (const auto* leftOver : {".f.mytessaron-1-2.tmp", ".g.mytessaron-1-1.tmp", ".f.tmp"})
    WriteFileText(folder / leftOver, "rest");
  EXPECT_EQ(CodeOfSaving(name, "neu"), 0);
  EXPECT_FALSE(std::filesystem::exists(folder / ".f.mytessaron-1-2.tmp"));
  EXPECT_TRUE(std::filesystem::exists(held));
  EXPECT_EQ(folder.FileCount(), 4U);
}

unsigned ModeOf(const std::string& name) {
  return static_cast<unsigned>(std::filesystem::status(name).permissions());
}

/// One named user may read, the group may not. False where the file system knows no lists.
bool SetAccessList(const std::string& name) {
  const std::uint16_t list[] = {2, 0,      1,      6,  0xFFFF, 0xFFFF, 2,      4,  65534, 0,      4,
                                0, 0xFFFF, 0xFFFF, 16, 4,      0xFFFF, 0xFFFF, 32, 0,     0xFFFF, 0xFFFF};
  return ::setxattr(name.c_str(), "system.posix_acl_access", list, sizeof list, 0) == 0 &&
         ::setxattr(name.c_str(), "user.herkunft", "mail", 4, 0) == 0;
}

std::string Attribute(const std::string& name, const char* attribute) {
  std::string value(256, '\0');
  value.resize(
      static_cast<std::size_t>(std::max<ssize_t>(::getxattr(name.c_str(), attribute, value.data(), value.size()), 0)));
  return value;
}

TEST(SafeSave, KeepsAccessListsAndIsNeverMoreReadable) {
  const TempFolder folder;
  const auto name = folder / "f";
  WriteFileText(name, "alt");
  ::chmod(name.c_str(), 0600);
  TVantrelSafeSave::CopyBeside(name, ".andere");
  EXPECT_EQ(ModeOf(name + ".andere"), 0600u);
  if (!SetAccessList(name)) GTEST_SKIP() << "no access lists here";
  const auto list = Attribute(name, "system.posix_acl_access");
  EXPECT_EQ(ModeOf(name), 0640u);
  EXPECT_EQ(CodeOfSaving(name, "neu"), 0);
  EXPECT_EQ(ModeOf(name), 0640u);
  EXPECT_EQ(Attribute(name, "system.posix_acl_access"), list);
  EXPECT_EQ(Attribute(name, "user.herkunft"), "mail");
  // In a folder that gives a list to all that is made there, too.
  ASSERT_EQ(::setxattr(folder.Path().c_str(), "system.posix_acl_default", list.data(), list.size(), 0), 0);
  TVantrelSafeSave::CopyBeside(name, ".andere");
  EXPECT_EQ(ModeOf(name + ".andere2"), 0600u);
  EXPECT_EQ(Attribute(name + ".andere2", "system.posix_acl_access"), "");
  EXPECT_EQ(ReadFileText(name + ".andere2"), "neu");
}

TEST(SafeSave, AGroupThatCannotBeKeptGetsNothing) {
  if (::geteuid() != 0) GTEST_SKIP() << "only the superuser can make such a file";
  const TempFolder folder;
  const auto save = [&] {
    // The user's file, of a group that he is not in.
    const auto name = folder / "f";
    return CodeOfSaving(name, "neu") == 0 && ModeOf(name) == 0604 ? 0 : 1;
  };
  WriteFileText(folder / "f", "alt");
  ::chmod((folder / "f").c_str(), 0664);
  const auto asUser = [&] {
    return ::setgroups(0, nullptr) == 0 && ::setgid(65534) == 0 && ::setuid(65534) == 0 ? save() : 255;
  };
  EXPECT_EQ(::chown(folder.Path().c_str(), 65534, 65534), 0);
  EXPECT_EQ(::chown((folder / "f").c_str(), 65534, 1234), 0);
  EXPECT_EQ(InChild(asUser), 0);
}

TEST(SafeSave, InAStickyFolderWritesInPlaceAndFollowsNoForeignLink) {
  if (::geteuid() != 0) GTEST_SKIP() << "only the superuser can make such a folder";
  const TempFolder folder;
  const auto name = folder / "f";
  WriteFileText(name, "der alte, längere Inhalt");
  WriteFileText(folder / "ziel", "fremd");
  std::filesystem::create_symlink("ziel", folder / "link");
  ::chmod(name.c_str(), 0666);
  ::chmod((folder / "ziel").c_str(), 0666);
  ::chmod(folder.Path().c_str(), 01777);
  EXPECT_EQ(::chown(folder.Path().c_str(), 1234, 1234), 0);
  const auto asUser = [&](auto call) {
    return InChild([&] { return ::setgid(65534) == 0 && ::setuid(65534) == 0 ? call() : 255; });
  };
  EXPECT_EQ(asUser([&] { return CodeOfSaving(name, "neu"); }), 0);
  EXPECT_EQ(ReadFileText(name), "neu");
  EXPECT_EQ(asUser([&] { return CodeOfSaving(folder / "link", "neu"); }), 5);
  EXPECT_EQ(ReadFileText(folder / "ziel"), "fremd");
  EXPECT_EQ(CodeOfSaving(folder / "link", "neu"), 0);
  EXPECT_EQ(folder.FileCount(), 3u);
}

TEST(SafeSave, AFileThatAnotherProgramChangedIsSeen) {
  const TempFolder folder;
  const auto name = folder / "f";
  const auto other = folder / "g";
  const struct {
    const char* What;
    std::function<void()> Change;
    bool Outdated;
  } cases[] = {
      {"nothing", [] {}, false},
      {"touched", [&] { std::filesystem::last_write_time(name, {}); }, false},
      {"same bytes", [&] { WriteFileText(other, "eins"), std::filesystem::rename(other, name); }, false},
      {"replaced", [&] { WriteFileText(other, "zwei"), std::filesystem::rename(other, name); }, true},
      {"changed", [&] { WriteFileText(name, "zwei"), std::filesystem::last_write_time(name, {}); }, true},
      {"longer", [&] { WriteFileText(name, "eins und mehr"); }, true},
      {"gone", [&] { std::filesystem::remove(name); }, false},
  };
  for (const bool read : {true, false}) {
    for (const auto& [what, change, outdated] : cases) {
      SCOPED_TRACE(what);
      WriteFileText(name, read ? "eins" : "");
      auto handle =
          read ? std::make_unique<TVantrelFileHandle>(name, famShareDenyNone, fomOpenRead) : Save(name, "eins");
      const std::string_view text = "eins";
      TVantrelFileStamp stamp(*handle, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
      if (read) stamp = TVantrelFileStamp(*handle), stamp.Seal(*handle);
      change();
      EXPECT_EQ(stamp.IsOutdated(), outdated);
    }
  }
}

TEST(SafeSave, WritesInPlaceWhereTheFolderForbidsFiles) {
  const TempFolder folder;
  const auto name = folder / "f";
  WriteFileText(name, "der alte, längere Inhalt");
  ::chmod(folder.Path().c_str(), 0500);
  EXPECT_EQ(InChildAsOrdinaryUser(folder.Path(), [&] { return CodeOfSaving(name, "neu"); }), 0);
  EXPECT_EQ(ReadFileText(name), "neu");
  const auto withOwn = [&] {
    auto own = std::make_unique<TVantrelFileHandle>(name, famShareDenyWrite, fomOpenRead);
    const auto handle = Save(name, "neuer", famShareExclusive, &own);
    return own == nullptr ? CodeOfSaving(name, "nie") : 1;
  };
  EXPECT_EQ(InChildAsOrdinaryUser(folder.Path(), withOwn), 32);
  EXPECT_EQ(ReadFileText(name), "neuer");
  EXPECT_EQ(InChildAsOrdinaryUser(folder.Path(), [&] { return CodeOfSaving(folder / "g", "neu"); }), 5);
  EXPECT_EQ(CodeOfSaving(folder / "fehlt/f", "neu"), 3);
  EXPECT_EQ(CodeOfSaving("/dev/full", "neu"), 112);
}
}  // namespace
