#include <grp.h>
#include <sys/stat.h>

#include <csignal>
#include <functional>

#include "AccessLists.h"
#include "InChild.h"
#include "Testing.h"
#include "VantrelFileStreams.h"
#include "VantrelSafeSave.h"

namespace {
using enum TVantrelFileAccessMode;
using enum TVantrelFileOpenMode;
using THandle = std::unique_ptr<TVantrelFileHandle>;

THandle Save(const std::string& name, std::string_view text, TVantrelFileAccessMode access = famShareExclusive,
             THandle* own = nullptr, const System::TFileRights& most = {}) {
  const std::span bytes(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
  return TVantrelSafeSave::Write(name, bytes, access, own, most);
}

/// 0 where the save succeeds, else the code of the error.
int CodeOfSaving(const std::string& name, std::string_view text, THandle* own = nullptr) {
  return static_cast<int>(FileErrorOf([&] { Save(name, text, famShareExclusive, own); }));
}

struct SafeSave : testing::Test {
  const TempFolder FFolder;
  const std::string FName = FFolder / "f";
};

TEST_F(SafeSave, ReplacesTheFileAndHoldsIt) {
  for (const auto& name : {FFolder / "projekt.kvr", FFolder / (std::string(200, 'x') + "äöü" + std::string(40, 'y'))}) {
    EXPECT_EQ(CodeOfSaving(name, "eins"), 0);
    auto handle = Save(name, "zwei");
    EXPECT_EQ(ReadFileText(name), "zwei");
    EXPECT_EQ(CodeOfSaving(name, "drei"), 32);
    TVantrelFileStream stream(std::move(handle));
    EXPECT_EQ(stream.ReadAll().size(), 4U);
  }
  EXPECT_EQ(FFolder.FileCount(), 2U);
}

TEST_F(SafeSave, OwnHandleIsExchangedForeignOneRefuses) {
  WriteFileText(FName, "alt");
  auto own = std::make_unique<TVantrelFileHandle>(FName, famShareDenyWrite, fomOpenReadWrite);
  {
    const TVantrelFileHandle foreign(FName, famShareDenyNone, fomOpenRead);
    EXPECT_EQ(CodeOfSaving(FName, "neu", &own), 32);
    EXPECT_NE(own, nullptr);
    EXPECT_THROW(TVantrelFileHandle(FName, famShareDenyNone, fomOpenReadWrite), EVantrelFileHandleError);
  }
  const auto handle = Save(FName, "neu", famShareDenyWrite, &own);
  EXPECT_EQ(own, nullptr);
  EXPECT_EQ(ReadFileText(FName), "neu");
  EXPECT_NO_THROW(TVantrelFileHandle(FName, famShareDenyNone, fomOpenRead));
  EXPECT_THROW(TVantrelFileHandle(FName, famShareDenyNone, fomOpenReadWrite), EVantrelFileHandleError);
}

TEST_F(SafeSave, KeepsPermissionsAndLinks) {
  std::filesystem::create_directory(FFolder / "weit");
  WriteFileText(FFolder / "weit/f", "alt");
  ::chmod((FFolder / "weit/f").c_str(), 0640);
  std::filesystem::create_symlink("weit/f", FFolder / "link");
  std::filesystem::create_symlink("weit/fehlt", FFolder / "ins-leere");
  std::filesystem::create_hard_link(FFolder / "weit/f", FFolder / "weit/zweiter");
  EXPECT_EQ(CodeOfSaving(FFolder / "link", "neu"), 0);
  EXPECT_TRUE(std::filesystem::is_symlink(FFolder / "link"));
  EXPECT_EQ(ReadFileText(FFolder / "weit/f"), "neu");
  EXPECT_EQ(ReadFileText(FFolder / "weit/zweiter"), "alt");
  EXPECT_EQ(static_cast<int>(std::filesystem::status(FFolder / "weit/f").permissions()), 0640);
  EXPECT_EQ(CodeOfSaving(FFolder / "ins-leere", "neu"), 0);
  EXPECT_EQ(ReadFileText(FFolder / "weit/fehlt"), "neu");
}

TEST_F(SafeSave, RemovesWhatNobodyHolds) {
  const auto held = FFolder / ".f.mytessaron-1-1.tmp";
  const TVantrelFileHandle writer(held, famShareDenyNone, fomCreate);
  for (const auto* leftOver : {".f.mytessaron-1-2.tmp", ".g.mytessaron-1-1.tmp", ".f.tmp"})
    WriteFileText(FFolder / leftOver, "rest");
  EXPECT_EQ(CodeOfSaving(FName, "neu"), 0);
  EXPECT_TRUE(!std::filesystem::exists(FFolder / ".f.mytessaron-1-2.tmp") && std::filesystem::exists(held));
  EXPECT_EQ(FFolder.FileCount(), 4U);
}

unsigned ModeOf(const std::string& name) {
  return static_cast<unsigned>(std::filesystem::status(name).permissions());
}

TEST_F(SafeSave, KeepsAccessListsAndIsNeverMoreReadable) {
  WriteFileText(FName, "alt");
  ::chmod(FName.c_str(), 0600);
  TVantrelSafeSave::CopyBeside(FName, ".andere");
  EXPECT_EQ(ModeOf(FName + ".andere"), 0600u);
  if (!SetAccessList(FName)) GTEST_SKIP() << "no access lists here";
  const auto list = Attribute(FName, AccessList);
  EXPECT_EQ(ModeOf(FName), 0640u);
  EXPECT_EQ(CodeOfSaving(FName, "neu"), 0);
  EXPECT_EQ(ModeOf(FName), 0640u);
  EXPECT_EQ(Attribute(FName, AccessList), list);
  EXPECT_EQ(Attribute(FName, "user.herkunft"), "mail");
  TVantrelSafeSave::CopyBeside(FName, ".kopie");
  EXPECT_EQ(ModeOf(FName + ".kopie"), 0600u);
  // In a FFolder that gives a list to all that is made there, too.
  ASSERT_EQ(::setxattr(FFolder.Path().c_str(), "system.posix_acl_default", list.data(), list.size(), 0), 0);
  EXPECT_EQ(CodeOfSaving(FName + ".andere", "neu"), 0);
  EXPECT_EQ(ModeOf(FName + ".andere"), 0600u);
  EXPECT_EQ(Attribute(FName + ".andere", AccessList), "");
  TVantrelSafeSave::CopyBeside(FName, ".andere");
  EXPECT_EQ(ModeOf(FName + ".andere2"), 0600u);
  EXPECT_EQ(Attribute(FName + ".andere2", AccessList), "");
  EXPECT_EQ(ReadFileText(FName + ".andere2"), "neu");
  const auto most = TVantrelFileHandle(FName + ".kopie", famShareDenyNone, fomOpenRead).File().Rights();
  EXPECT_NE(Save(FName, "neu", famShareExclusive, nullptr, most), nullptr);
  EXPECT_EQ(Attribute(FName, AccessList), "");
}

/// As InChild, by a user who is in no group but his own.
template <class TCall>
int AsUser(TCall call) {
  return InChild(
      [&] { return ::setgroups(0, nullptr) == 0 && ::setgid(65534) == 0 && ::setuid(65534) == 0 ? call() : 255; });
}

TEST_F(SafeSave, WhatTakesInAnotherFileIsNoMoreReadable) {
  WriteFileText(FFolder / "g", "geheim");
  ::chmod((FFolder / "g").c_str(), 0600);
  const auto most = TVantrelFileHandle(FFolder / "g", famShareDenyNone, fomOpenRead).File().Rights();
  const auto save = [&] { return Save(FName, "neu", famShareExclusive, nullptr, most) != nullptr ? 0 : 1; };
  for (const bool inPlace : {false, true}) {
    WriteFileText(FName, "alt");
    ::chmod(FName.c_str(), 0644);
    ::chmod(FFolder.Path().c_str(), inPlace ? 0500 : 0700);
    EXPECT_EQ(InChildAsOrdinaryUser(FFolder.Path(), save), 0);
    EXPECT_EQ(ModeOf(FName), 0600u) << inPlace;
  }
  ::chmod(FFolder.Path().c_str(), 0700);
  if (::geteuid() != 0) return;
  // The copy is of another group than the file.
  for (const auto& [mode, ofCopy] : {std::pair(0640u, 0600u), {0664u, 0644u}, {0604u, 0604u}}) {
    EXPECT_EQ(::chown((FFolder / "g").c_str(), 0, 1234), 0);
    ::chmod((FFolder / "g").c_str(), mode);
    TVantrelSafeSave::CopyBeside(FFolder / "g", ".kopie");
    EXPECT_EQ(ModeOf(FFolder / "g.kopie"), ofCopy);
    std::filesystem::remove(FFolder / "g.kopie");
  }
}

TEST_F(SafeSave, AGroupThatCannotBeKeptGetsNothing) {
  if (::geteuid() != 0) GTEST_SKIP() << "only the superuser can make such a file";
  WriteFileText(FFolder / "f", "alt");
  ::chmod((FFolder / "f").c_str(), 0664);
  EXPECT_EQ(::chown(FFolder.Path().c_str(), 65534, 65534), 0);
  EXPECT_EQ(::chown((FFolder / "f").c_str(), 65534, 1234), 0);
  // The user's file, of a group that he is not in.
  EXPECT_EQ(AsUser([&] { return CodeOfSaving(FName, "neu") == 0 && ModeOf(FName) == 0604 ? 0 : 1; }), 0);
}

TEST_F(SafeSave, InAStickyFolderWritesInPlaceAndFollowsNoForeignLink) {
  if (::geteuid() != 0) GTEST_SKIP() << "only the superuser can make such a FFolder";
  WriteFileText(FName, "der alte, längere Inhalt");
  WriteFileText(FFolder / "ziel", "fremd");
  std::filesystem::create_symlink("ziel", FFolder / "link");
  ::chmod(FName.c_str(), 0666);
  ::chmod((FFolder / "ziel").c_str(), 0666);
  ::chmod(FFolder.Path().c_str(), 01777);
  EXPECT_EQ(::chown(FFolder.Path().c_str(), 1234, 1234), 0);
  EXPECT_EQ(AsUser([&] { return CodeOfSaving(FName, "neu"); }), 0);
  EXPECT_EQ(ReadFileText(FName), "neu");
  EXPECT_EQ(AsUser([&] { return CodeOfSaving(FFolder / "link", "neu"); }), 5);
  EXPECT_EQ(ReadFileText(FFolder / "ziel"), "fremd");
  EXPECT_EQ(CodeOfSaving(FFolder / "link", "neu"), 0);
  EXPECT_EQ(FFolder.FileCount(), 3u);

  // Of a folder, at the end of a link of one's own, and where not all may write.
  const std::tuple<const char*, unsigned, unsigned, int> links[] = {
      {"tief/weit/f", 01777, 65534, 5}, {"eigener/f", 01777, 65534, 5},  {"tief/weit/f", 01777, 0, 0},
      {"tief/weit/f", 01777, 1234, 0},  {"tief/weit/f", 0777, 65534, 0}, {"tief/weit/f", 01775, 65534, 0}};
  std::filesystem::create_directories(FFolder / "tief");
  std::filesystem::create_directory(FFolder / "anderswo");
  std::filesystem::create_directory_symlink("../anderswo", FFolder / "tief/weit");
  std::filesystem::create_directory_symlink("./tief/weit/", FFolder / "eigener");
  EXPECT_EQ(::chown((FFolder / "tief").c_str(), 1234, 1234), 0);
  for (const auto& [link, mode, owner, code] : links) {
    WriteFileText(FFolder / "anderswo/f", "alt");
    ::chmod((FFolder / "tief").c_str(), mode);
    EXPECT_EQ(::lchown((FFolder / "tief/weit").c_str(), owner, owner), 0);
    EXPECT_EQ(CodeOfSaving(FFolder / link, "neu"), code) << link << " " << mode << " " << owner;
    EXPECT_EQ(ReadFileText(FFolder / "anderswo/f"), code == 0 ? "neu" : "alt");
  }
}

TEST_F(SafeSave, AFileThatAnotherProgramChangedIsSeen) {
  const auto other = FFolder / "g";
  const std::tuple<const char*, std::function<void()>, bool> cases[] = {
      {"nothing", [] {}, false},
      {"touched", [&] { std::filesystem::last_write_time(FName, {}); }, false},
      {"same bytes", [&] { WriteFileText(other, "eins"), std::filesystem::rename(other, FName); }, false},
      {"replaced", [&] { WriteFileText(other, "zwei"), std::filesystem::rename(other, FName); }, true},
      {"changed", [&] { WriteFileText(FName, "zwei"), std::filesystem::last_write_time(FName, {}); }, true},
      {"longer",
       [&] {
         const auto time = std::filesystem::last_write_time(FName);
         WriteFileText(FName, "eins und mehr");
         std::filesystem::last_write_time(FName, time);
       },
       true},
      {"gone", [&] { std::filesystem::remove(FName); }, false},
  };
  for (const bool read : {true, false}) {
    for (const auto& [what, change, outdated] : cases) {
      SCOPED_TRACE(what);
      WriteFileText(FName, read ? "eins" : "");
      auto handle =
          read ? std::make_unique<TVantrelFileHandle>(FName, famShareDenyNone, fomOpenRead) : Save(FName, "eins");
      const std::string_view text = "eins";
      TVantrelFileStamp stamp(*handle, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
      if (read) stamp = TVantrelFileStamp(*handle), stamp.Seal(*handle);
      change();
      EXPECT_EQ(stamp.IsOutdated(), outdated);
    }
  }
}

TEST_F(SafeSave, AStampKnowsItsFileByEveryNameAndWhatCannotBeRead) {
  WriteFileText(FName, "eins");
  std::filesystem::create_symlink("f", FFolder / "link");
  WriteFileText(FFolder / "g", "eins");
  const TVantrelFileHandle handle(FName, famShareDenyNone, fomOpenRead);
  TVantrelFileStamp stamp(handle);
  for (const auto& name : {FName, FFolder / "link", std::filesystem::relative(FName).string()})
    EXPECT_TRUE(stamp.IsOf(name)) << name;
  EXPECT_FALSE(stamp.IsOf(FFolder / "g") || TVantrelFileStamp().IsOf(""));
  // Changed between the reading of its first byte and that of the last.
  WriteFileText(FName, "eins und mehr");
  stamp.Seal(handle);
  EXPECT_TRUE(stamp.IsOutdated());
  stamp = TVantrelFileStamp(handle);
  stamp.Seal(handle);
  EXPECT_FALSE(stamp.IsOutdated());
  std::filesystem::rename(FFolder / "g", FName);
  ::chmod(FName.c_str(), 0);
  EXPECT_EQ(InChildAsOrdinaryUser(FFolder.Path(), [&] { return stamp.IsOutdated() ? 1 : 0; }), 1);
}

TEST_F(SafeSave, WritesInPlaceWhereTheFolderForbidsFiles) {
  WriteFileText(FName, "der alte, längere Inhalt");
  ::chmod(FFolder.Path().c_str(), 0500);
  EXPECT_EQ(InChildAsOrdinaryUser(FFolder.Path(), [&] { return CodeOfSaving(FName, "neu"); }), 0);
  EXPECT_EQ(ReadFileText(FName), "neu");
  const auto withOwn = [&] {
    auto own = std::make_unique<TVantrelFileHandle>(FName, famShareDenyWrite, fomOpenRead);
    const auto handle = Save(FName, "neuer", famShareExclusive, &own);
    return own == nullptr ? CodeOfSaving(FName, "nie") : 1;
  };
  EXPECT_EQ(InChildAsOrdinaryUser(FFolder.Path(), withOwn), 32);
  EXPECT_EQ(ReadFileText(FName), "neuer");
  EXPECT_EQ(InChildAsOrdinaryUser(FFolder.Path(), [&] { return CodeOfSaving(FFolder / "g", "neu"); }), 5);
  EXPECT_EQ(CodeOfSaving(FFolder / "fehlt/f", "neu"), 3);
  EXPECT_EQ(CodeOfSaving("/dev/full", "neu"), 112);
}

struct TOpening {
  TVantrelFileOpenMode Mode;
  TVantrelFileAccessMode Access;

  bool Reads() const { return Mode != fomOpenWrite; }
  bool Writes() const { return Mode != fomOpenRead; }
  bool Admits(const TOpening& other) const {
    const bool mayRead = Access == famShareDenyNone || Access == famShareDenyWrite;
    const bool mayWrite = Access == famShareDenyNone || Access == famShareDenyRead;
    return (mayRead || !other.Reads()) && (mayWrite || !other.Writes());
  }
};

std::vector<TOpening> AllOpenings() {
  std::vector<TOpening> openings;
  for (const auto mode : {fomOpenRead, fomOpenWrite, fomOpenReadWrite}) {
    for (const auto access : {famShareExclusive, famShareDenyWrite, famShareDenyRead, famShareDenyNone})
      openings.push_back({mode, access});
  }
  return openings;
}

/// 0 where the file opens, else the code of the error.
int CodeOfOpening(const std::string& name, TOpening opening) {
  return static_cast<int>(FileErrorOf([&] { TVantrelFileHandle(name, opening.Access, opening.Mode); }));
}

/// How many openings come out otherwise than the share modes say while `first` is held.
int CountFaults(const std::string& name, const TOpening& first) {
  int faults = 0;
  for (const auto& second : AllOpenings()) {
    const int expected = first.Admits(second) && second.Admits(first) ? 0 : 32;
    faults += CodeOfOpening(name, second) == expected ? 0 : 1;
  }
  return faults;
}

using FileSharing = SafeSave;

TEST_F(FileSharing, HoldsInOneProcessAndBetweenProcesses) {
  WriteFileText(FName, "x");
  for (const auto& first : AllOpenings()) {
    const TVantrelFileHandle held(FName, first.Access, first.Mode);
    EXPECT_EQ(CountFaults(FName, first), 0);
    EXPECT_EQ(InChild([&] { return CountFaults(FName, first); }), 0);
  }
}

TEST_F(FileSharing, EndsWithTheHandleAndWithAKilledHolder) {
  { const TVantrelFileHandle held(FName, famShareExclusive, fomCreate); }
  EXPECT_EQ(CodeOfOpening(FName, {fomOpenRead, famShareExclusive}), 0);
  InChild([&] {
    const TVantrelFileHandle held(FName, famShareExclusive, fomOpenReadWrite);
    return ::raise(SIGKILL);
  });
  EXPECT_EQ(CodeOfOpening(FName, {fomOpenReadWrite, famShareExclusive}), 0);
}

TEST_F(FileSharing, CreateEmptiesOnlyWhatItGets) {
  WriteFileText(FName, "alt");
  {
    const TVantrelFileHandle held(FName, famShareDenyWrite, fomOpenRead);
    EXPECT_EQ(CodeOfOpening(FName, {fomCreate, famShareDenyNone}), 32);
    EXPECT_EQ(ReadFileText(FName), "alt");
  }
  EXPECT_EQ(CodeOfOpening(FName, {fomOpenReadWriteOrCreate, famShareExclusive}), 0);
  EXPECT_EQ(ReadFileText(FName), "alt");
  EXPECT_EQ(CodeOfOpening(FName, {fomCreate, famShareExclusive}), 0);
  EXPECT_EQ(ReadFileText(FName), "");
}

TEST_F(FileSharing, ReadOnlyFilesCanBeHeld) {
  WriteFileText(FName, "x");
  ::chmod(FName.c_str(), 0400);
  const auto write = [&] { return CodeOfOpening(FName, {fomOpenReadWrite, famShareExclusive}); };
  const auto readTwice = [&] {
    const TVantrelFileHandle held(FName, famShareExclusive, fomOpenRead);
    return CodeOfOpening(FName, {fomOpenRead, famShareDenyNone});
  };
  EXPECT_EQ(InChildAsOrdinaryUser(FFolder.Path(), write), 5);
  EXPECT_EQ(InChildAsOrdinaryUser(FFolder.Path(), readTwice), 32);
}
}  // namespace
