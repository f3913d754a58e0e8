#include <gtest/gtest.h>
#include <sys/stat.h>

#include <csignal>

#include "ErrorOf.h"
#include "InChild.h"
#include "TempFolder.h"
#include "VantrelFileStreams.h"

namespace {
using enum TVantrelFileAccessMode;
using enum TVantrelFileOpenMode;

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

TEST(FileSharing, HoldsInOneProcessAndBetweenProcesses) {
  const TempFolder folder;
  const auto name = folder / "projekt.kvr";
  WriteFileText(name, "x");
  for (const auto& first : AllOpenings()) {
    const TVantrelFileHandle held(name, first.Access, first.Mode);
    EXPECT_EQ(CountFaults(name, first), 0);
    EXPECT_EQ(InChild([&] { return CountFaults(name, first); }), 0);
  }
}

TEST(FileSharing, EndsWithTheHandleAndWithAKilledHolder) {
  const TempFolder folder;
  const auto name = folder / "f";
  { const TVantrelFileHandle held(name, famShareExclusive, fomCreate); }
  EXPECT_EQ(CodeOfOpening(name, {fomOpenRead, famShareExclusive}), 0);
  InChild([&] {
    const TVantrelFileHandle held(name, famShareExclusive, fomOpenReadWrite);
    return ::raise(SIGKILL);
  });
  EXPECT_EQ(CodeOfOpening(name, {fomOpenReadWrite, famShareExclusive}), 0);
}

TEST(FileSharing, CreateEmptiesOnlyWhatItGets) {
  const TempFolder folder;
  const auto name = folder / "f";
  WriteFileText(name, "alt");
  {
    const TVantrelFileHandle held(name, famShareDenyWrite, fomOpenRead);
    EXPECT_EQ(CodeOfOpening(name, {fomCreate, famShareDenyNone}), 32);
    EXPECT_EQ(ReadFileText(name), "alt");
  }
  EXPECT_EQ(CodeOfOpening(name, {fomOpenReadWriteOrCreate, famShareExclusive}), 0);
  EXPECT_EQ(ReadFileText(name), "alt");
  EXPECT_EQ(CodeOfOpening(name, {fomCreate, famShareExclusive}), 0);
  EXPECT_EQ(ReadFileText(name), "");
}

TEST(FileSharing, ReadOnlyFilesCanBeHeld) {
  const TempFolder folder;
  const auto name = folder / "f";
  WriteFileText(name, "x");
  ::chmod(name.c_str(), 0400);
  const auto write = [&] { return CodeOfOpening(name, {fomOpenReadWrite, famShareExclusive}); };
  const auto readTwice = [&] {
    const TVantrelFileHandle held(name, famShareExclusive, fomOpenRead);
    return CodeOfOpening(name, {fomOpenRead, famShareDenyNone});
  };
  EXPECT_EQ(InChildAsOrdinaryUser(folder.Path(), write), 5);
  EXPECT_EQ(InChildAsOrdinaryUser(folder.Path(), readTwice), 32);
}

}  // namespace
