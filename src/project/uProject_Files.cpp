// The project and its files: which kind is opened and saved how, and how an open file is held.

#include "ProjectTexts.h"
#include "VantrelAesCipher.h"
#include "VantrelExceptions.h"
#include "VantrelFileSystem.h"
#include "VantrelI18n.h"
#include "VantrelMsgBox.h"
#include "VantrelPaths.h"
#include "VantrelText.h"
#include "VantrelXmlText.h"
#include "uProject.h"

using enum TVantrelFileAccessMode;
using enum TVantrelFileOpenMode;
using enum TProjectFileKind;

namespace {

constexpr const char* PassPhrase = "9t4w7?k8e=6JRn!m5H2ydF]>z-3{ub1XC";

/// Runs both, and raises what the first one raised, or else the second.
template <class TFirst, class TSecond>
void RunBoth(TFirst first, TSecond second) {
  std::exception_ptr error;
  try {
    first();
  } catch (...) {
    error = std::current_exception();
  }
  try {
    second();
  } catch (...) {
    if (error == nullptr) error = std::current_exception();
  }
  if (error != nullptr) std::rethrow_exception(error);
}

}  // namespace

TProjectFileKind GetProjectFileKind(std::string_view fileName) {
  const auto extension = TVantrelFilePath::GetExtension(fileName);
  if (extension == "kvr" || extension == "kvr7") return pfkBinary;
  if (extension == "kvrx") return pfkEncryptedXml;
  if (extension == "kvrxr") return pfkPlainXml;
  return pfkUnknown;
}

void GetProjectFileExtension(TProjectFileKind kind, std::string& extension) {
  if (kind == pfkBinary) return;
  extension = kind == pfkEncryptedXml ? "kvrx" : kind == pfkPlainXml ? "kvrxr" : "";
}

void TMyTessaronProject::LoadFile(const std::string& fileName) {
  const std::string name = fileName.empty() ? FileName() : fileName;
  FIsWriteProtected = false;
  switch (GetProjectFileKind(name)) {
    case pfkBinary:
      OpenFileExclusive(name, TVantrelDataStorageFormat::dsfBinary);
      break;
    case pfkPlainXml:
      OpenFileExclusive(name, TVantrelDataStorageFormat::dsfXml);
      break;
    case pfkEncryptedXml:
      LoadEncryptedXml(name);
      break;
    case pfkUnknown:
      break;
  }
  SetModified(false);
}

bool TMyTessaronProject::LoadForReading(const std::string& fileName) {
  const auto kind = GetProjectFileKind(fileName);
  if (kind == pfkUnknown) return false;
  if (kind == pfkEncryptedXml) {
    ReadEnciphered(fileName);
  } else {
    TVantrelFileStream stream(fileName, famShareDenyWrite, fomOpenRead);
    BeginReading(stream);
    LoadFromStream(stream,
                   kind == pfkBinary ? TVantrelDataStorageFormat::dsfBinary : TVantrelDataStorageFormat::dsfXml);
  }
  SetFileName(fileName);
  return true;
}

void TMyTessaronProject::ReadEnciphered(const std::string& fileName) try {
  TVantrelMemoryStream plain;
  {
    TVantrelFileStream enciphered(fileName, famShareDenyWrite, fomOpenRead);
    TVantrelAesCipher cipher;
    cipher.Init(PassPhrase, nullptr);
    plain.Bytes().reserve(static_cast<std::size_t>(enciphered.Size()));
    BeginReading(enciphered);
    cipher.DecryptStream(enciphered, plain, enciphered.Size());
    EndReading(enciphered);
  }
  plain.SetPosition(0);
  LoadFromXmlStream(plain);
} catch (const std::bad_alloc&) {
  throw EOutOfMemory();
}

void TMyTessaronProject::LoadEncryptedXml(const std::string& fileName) {
  BeforeOpenFile();
  RunBoth(
      [&] {
        try {
          ReadEnciphered(fileName);
          SetFileName(fileName);
          FIsWriteProtected = TVantrelFileSystem::GetFileMode(fileName) == TVantrelFileMode::fmodeReadOnly;
        } catch (const EVantrelFileHandleError&) {
          throw;
        } catch (const EOutOfMemory&) {
          throw;
        } catch (const std::exception& error) {
          NoteDamagedFile(fileName);
          MsgBoxError(error.what(), TVantrelMsgBoxParent::mbpActiveWindow);
        }
      },
      [&] { AfterOpenFile(); });
}

void TMyTessaronProject::SaveFile(const std::string& fileName) {
  const std::string name = fileName.empty() ? FileName() : fileName;
  switch (GetProjectFileKind(name)) {
    case pfkBinary:
      StoreFile(name, TVantrelDataStorageFormat::dsfBinary);
      break;
    case pfkPlainXml:
      RequireStorablePassword();
      StoreFile(name, TVantrelDataStorageFormat::dsfXml);
      break;
    case pfkEncryptedXml:
      RequireStorablePassword();
      SaveEncryptedXml(name);
      break;
    case pfkUnknown:
      break;
  }
  if (name == FileName()) FIsWriteProtected = false;
  ++FSaveCount;
  SetModified(false);
  FListeners.Tell(TChangeMark::Saved);
}

void TMyTessaronProject::SaveEncryptedXml(const std::string& fileName) {
  BeforeStoreFile();
  TVantrelMemoryStream plain;
  TVantrelMemoryStream enciphered;
  SaveToXmlStream(plain);
  plain.SetPosition(0);
  TVantrelAesCipher cipher;
  cipher.Init(PassPhrase, nullptr);
  enciphered.Bytes().reserve(plain.Bytes().size());
  cipher.EncryptStream(plain, enciphered, plain.Size());
  std::unique_ptr<TVantrelFileStream> other;
  auto& held = fileName == FileName() ? FExclusiveFileStream : other;
  WriteFile(held, fileName, enciphered.Bytes(), famShareExclusive);
  if (&held == &FExclusiveFileStream) CloseFile();
  AfterStoreFile();
}

void TMyTessaronProject::RequireStorablePassword() const {
  if (Utf8ToUtf16(XmlText(Password)) != Utf8ToUtf16(Password))
    throw EVantrelException(ResourceText(ProjectTexts::PasswordNotStorable));
}

void TMyTessaronProject::HoldFile() {
  FExclusiveFileStream = std::make_unique<TVantrelFileStream>(FileName(), famShareExclusive, fomOpenRead);
}

void TMyTessaronProject::BeforeOpenFile() {
  FExclusiveFileStream.reset();
  if (OnLoadFile) OnLoadFile(*this, TFileLoadTimeType::lfBefore);
}

void TMyTessaronProject::AfterOpenFile() {
  const auto hold = [&] {
    const auto kind = GetProjectFileKind(FileName());
    if (!FileName().empty() && kind != pfkBinary && kind != pfkPlainXml) HoldFile();
  };
  // What the document does not hold goes with the first save.
  if (!LoadDamage() && !LoadNotes().empty()) NoteDamagedFile(FileName());
  RunBoth(hold, [&] {
    if (OnLoadFile) OnLoadFile(*this, TFileLoadTimeType::lfAfter);
  });
}

void TMyTessaronProject::AfterStoreFile() {
  if (IsOn(FFileStream, FileName()))
    FExclusiveFileStream.reset();
  else if (!IsOn(FExclusiveFileStream, FileName()))
    HoldFile();
}
