#include <gtest/gtest.h>
#include <sys/stat.h>

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
