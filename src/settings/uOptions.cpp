#include "uOptions.h"

#include <algorithm>
#include <filesystem>

#include "SettingsTexts.h"
#include "SystemFolders.h"
#include "VantrelDataIO.h"
#include "VantrelI18n.h"

namespace {

/// In stored order.
constexpr struct {
  const char* Name;
  bool TMyTessaronOptions::*Flag;
  bool Default;
} Flags[] = {{"RechtschreibungAktiv", &TMyTessaronOptions::RechtschreibungAktiv, true},
             {"RechtschreibungEingabe", &TMyTessaronOptions::RechtschreibungEingabe, true},
             {"RechtschreibungGross", &TMyTessaronOptions::RechtschreibungGross, true},
             {"RechtschreibungZahl", &TMyTessaronOptions::RechtschreibungZahl, true},
             {"RechtschreibungEmail", &TMyTessaronOptions::RechtschreibungEmail, true},
             {"RechtschreibungURL", &TMyTessaronOptions::RechtschreibungURL, true},
             {"RechtschreibungMischfaelle", &TMyTessaronOptions::RechtschreibungMischfaelle, true},
             {"RechtschreibungWiederholt", &TMyTessaronOptions::RechtschreibungWiederholt, false}};

bool HasRight(const std::filesystem::path& path, System::TRight right) {
  return System::CheckRight(System::NameOf(path), right) == System::Success;
}

/// True for a file that may be written, and for a missing one that could be made, if need be with its folders.
bool CanBeWritten(std::filesystem::path path) {
  std::error_code error;
  if (std::filesystem::exists(path, error)) return HasRight(path, System::TRight::Write);
  while (path.has_relative_path() && !std::filesystem::exists(path, error)) path = path.parent_path();
  return std::filesystem::is_directory(path, error) && HasRight(path, System::TRight::MakeFilesIn);
}

}  // namespace

TMyTessaronOptions::TMyTessaronOptions(std::string fileName, std::string ownFolder)
    : FCommonFileName(std::move(fileName)), FOwnFolder(std::move(ownFolder)) {
  Options = this;
}

TMyTessaronOptions::~TMyTessaronOptions() {
  Options = nullptr;
}

std::string TMyTessaronOptions::GetDefaultFileName() const {
  if (CanBeWritten(System::PathOf(FCommonFileName))) return FCommonFileName;
  return System::NameOf(System::PathOf(FOwnFolder) / System::PathOf(FCommonFileName).filename());
}

std::string TMyTessaronOptions::Load() {
  FRefusedFile.clear();
  try {
    LoadFromFile(TVantrelDataStorageFormat::dsfXml);
    return {};
  } catch (const EVantrelWin32Error& error) {
    FRefusedFile = FileName();
    FRefusal = error.Message();
    return Unreadable(FRefusal);
  } catch (const std::exception&) {
    return Unreadable(ResourceText(SettingsTexts::Damaged));
  }
}

std::string TMyTessaronOptions::Save(std::chrono::milliseconds patience) {
  try {
    if (!FRefusedFile.empty() && AreDefaults()) return {};
    if (FileName() == FRefusedFile) throw EVantrelException(FRefusal);
    const TVantrelFolderLock lock(FileName(), patience);
    SaveToFile(TVantrelDataStorageFormat::dsfXml);
    return {};
  } catch (const std::exception& error) {
    return FormatText(SettingsTexts::OptionsNotSaved, FileName(), error.what());
  }
}

std::string TMyTessaronOptions::Unreadable(std::string_view reason) {
  Clear();
  const std::string source = FileName();
  SetFileName(GetDefaultFileName());
  return FormatText(SettingsTexts::OptionsUnreadable, source, reason);
}

bool TMyTessaronOptions::AreDefaults() const {
  return std::ranges::all_of(Flags, [this](const auto& flag) { return this->*flag.Flag == flag.Default; });
}

void TMyTessaronOptions::DoCreate() {
  TVantrelDataStorage::DoCreate();
  DoClear();
}

void TMyTessaronOptions::DoClear() {
  TVantrelDataStorage::DoClear();
  for (const auto& flag : Flags) this->*flag.Flag = flag.Default;
}

void TMyTessaronOptions::ReadData(TVantrelDataObjectReader& reader) {
  TVantrelDataStorage::ReadData(reader);
  for (const auto& flag : Flags) this->*flag.Flag = reader.ReadBoolean(flag.Name, this->*flag.Flag);
}

void TMyTessaronOptions::WriteData(TVantrelDataObjectWriter& writer) const {
  TVantrelDataStorage::WriteData(writer);
  for (const auto& flag : Flags) writer.WriteBoolean(flag.Name, this->*flag.Flag);
}
