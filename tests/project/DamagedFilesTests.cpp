#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

#include "Testing.h"
#include "VantrelDataXml.h"
#include "uProject.h"

namespace {
/// Bytes that operator new has given out, and the most there were.
std::size_t Taken = 0;
std::size_t MostTaken = 0;
/// How many there may be.
std::size_t MostAllowed = SIZE_MAX;
}  // namespace

void* operator new(std::size_t size) {
  void* memory = Taken > MostAllowed ? nullptr : std::malloc(size);
  if (memory == nullptr) throw std::bad_alloc();
  Taken += malloc_usable_size(memory);
  MostTaken = std::max(MostTaken, Taken);
  return memory;
}
void operator delete(void* memory) noexcept {
  if (memory != nullptr) Taken -= malloc_usable_size(memory);
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  operator delete(memory);
}

namespace {

using TForm = TVantrelDataStorageFormat;

struct DamagedFilesTest : testing::Test {
  void SetUp() override { TMyTessaronProject::RegisterClasses(); }

  static std::string Fixture(const char* name) { return ReadFileText(std::string(FIXTURES) + "/" + name); }
  /// Reads the bytes, which must end in a document or a message; true for a document. With `andBack`, what opened is
  /// saved, and must then be readable; only a value that XML has no text for may refuse the save.
  static bool Opens(std::string_view bytes, TForm form, bool andBack = false) {
    TVantrelMemoryStream stream({bytes.begin(), bytes.end()});
    auto project = CreateVantrel<TMyTessaronProject>();
    bool opened = false;
    try {
      project->LoadFromStream(stream, form);
      opened = true;
    } catch (const EVantrelException& error) {
      EXPECT_FALSE(error.Message().empty() || project->LoadDamage()->Place.empty());
    }
    if (andBack) SaveAndReadBack(*project);
    return opened;
  }
  static void SaveAndReadBack(TMyTessaronProject& project) {
    TVantrelMemoryStream saved;
    try {
      project.SaveToXmlStream(saved);
    } catch (const EVantrelDateTimeError&) {
      return;
    }
    saved.SetPosition(0);
    EXPECT_NO_THROW(CreateVantrel<TMyTessaronProject>()->LoadFromXmlStream(saved));
  }
  /// The bytes that reading takes at most, per byte of the file, beyond a constant that does not grow with it.
  static double MemoryFactor(TMyTessaronProject& source) {
    constexpr double constant = 320 * 1024;
    TVantrelMemoryStream stream;
    source.SaveToBinStream(stream);
    stream.SetPosition(0);
    const auto before = Taken;
    MostTaken = Taken;
    auto project = CreateVantrel<TMyTessaronProject>();
    project->LoadFromBinStream(stream);
    return (static_cast<double>(MostTaken - before) - constant) / static_cast<double>(stream.Size());
  }
};

const std::tuple<const char*, TForm, std::size_t> Files[] = {{"empty.kvr7", TForm::dsfBinary, 1},
                                                             {"protected.kvr7", TForm::dsfBinary, 5},
                                                             {"small.kvr7", TForm::dsfBinary, 41},
                                                             {"empty.kvrxr", TForm::dsfXml, 1},
                                                             {"protected.kvrxr", TForm::dsfXml, 211}};

TEST_F(DamagedFilesTest, ShortMemoryIsNoDamage) {
  for (const char* name : {"small.kvrx", "small.kvr7", "small.kvrxr"}) {
    const TempFolder folder;
    std::filesystem::copy(std::string(FIXTURES) + "/" + name, folder.Path());
    auto project = CreateVantrel<TMyTessaronProject>();
    constexpr std::size_t tooLittle = 60 * 1024;
    MostAllowed = Taken + tooLittle;
    EXPECT_THROW(project->LoadFile(folder / name), EOutOfMemory);
    MostAllowed = SIZE_MAX;
    EXPECT_FALSE(project->LoadDamage().has_value());
    project->LoadFile(folder / name);
    EXPECT_EQ(project->Students().Count(), 12);
  }
}

TEST_F(DamagedFilesTest, CutAtEveryLength) {
  for (const auto& [name, form, stride] : Files) {
    const auto whole = Fixture(name);
    const auto needed = form == TForm::dsfXml ? whole.rfind('>') : whole.size();
    for (std::size_t length = 0; length < needed; length += stride)
      EXPECT_FALSE(Opens(std::string_view(whole).substr(0, length), form, length % 401 == 0)) << name << " " << length;
    EXPECT_TRUE(Opens(whole, form, true));
  }
}

TEST_F(DamagedFilesTest, SingleBytesChanged) {
  for (const auto& [name, form, stride] : Files) {
    auto bytes = Fixture(name);
    for (std::size_t at = 0; at < bytes.size(); at += stride) {
      const char old = bytes[at];
      bytes[at] = static_cast<char>(old ^ (at % 2 == 0 ? 0xFF : 0x01));
      Opens(bytes, form, at % 97 == 0);
      bytes[at] = old;
    }
  }
}

/// The dearest file has courses that each name another student who never comes: 37 bytes make an empty student.
TEST_F(DamagedFilesTest, MemoryStaysWithinAMultipleOfTheFile) {
  for (const bool absentStudents : {false, true}) {
    for (int at = 0; at < 6; ++at) {
      auto source = CreateVantrel<TMyTessaronProject>();
      TVantrelDataList* const lists[] = {&source->Niveaus(),           &source->Noten(),    &source->Classes(),
                                         &source->Options().Columns(), &source->Students(), &source->Courses()};
      const auto* itemClass = std::array{&TCatalog::Class(), &TGrade::Class(),   &TClass::Class(),
                                         &TColumn::Class(),  &TStudent::Class(), &TCourse::Class()}[at];
      std::vector<TVantrelPtr<TStudent>> absent;
      for (int i = 0; i < 10000; ++i) {
        auto* course = dynamic_cast<TCourse*>(lists[at]->Add(*itemClass));
        if (course == nullptr || !absentStudents) continue;
        absent.push_back(CreateVantrel<TStudent>());
        course->Student = absent.back().get();
      }
      EXPECT_LE(MemoryFactor(*source), absentStudents ? 8.0 : 6.0) << itemClass->Name;
    }
  }
}

}  // namespace
