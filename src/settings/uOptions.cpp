#include "uOptions.h"

#include <fcntl.h>
#include <unistd.h>

#include "SettingsTexts.h"
#include "VantrelDataIO.h"
#include "VantrelFileSystem.h"
#include "VantrelI18n.h"
#include "VantrelPaths.h"

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

bool IsWritable(const std::string& path) {
  return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
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
  const auto folder = TVantrelFilePath::GetDirectoryName(FCommonFileName);
  const bool isThere = TVantrelFileSystem::Exists(FCommonFileName);
  if (TVantrelFileSystem::IsDirectory(folder) && IsWritable(isThere ? FCommonFileName : folder)) return FCommonFileName;
  return TVantrelFilePath::Combine(FOwnFolder, TVantrelFilePath::GetFileName(FCommonFileName));
}

std::string TMyTessaronOptions::Load() {
  try {
    LoadFromFile(TVantrelDataStorageFormat::dsfXml);
    return {};
  } catch (const EVantrelWin32Error& error) {
    return Unreadable(error.Message());
  } catch (const std::exception&) {
    return Unreadable(ResourceText(SettingsTexts::Damaged));
  }
}

std::string TMyTessaronOptions::Save() {
  try {
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
