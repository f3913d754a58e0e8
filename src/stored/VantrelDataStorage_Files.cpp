// The file operations of a document: which file is opened how, and what becomes of it.

#include "StoredTexts.h"
#include "SystemFolders.h"
#include "VantrelDataStorage.h"
#include "VantrelExceptions.h"
#include "VantrelFileSystem.h"
#include "VantrelI18n.h"
#include "VantrelMsgBox.h"
#include "VantrelSafeSave.h"

using enum TVantrelFileAccessMode;
using enum TVantrelFileOpenMode;

namespace {

template <class TAct>
bool Succeeds(TAct act) {
  try {
    act();
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace

void KeepBytesBeside(const std::string& name) {
  TVantrelSafeSave::CopyBeside(name, ".beschaedigt");
}

void TVantrelDataStorage::CloseFile() {
  FFileStream.reset();
}

void TVantrelDataStorage::NewFile() {
  BeforeNewFile();
  CloseFile();
  Clear();
  FFileName.clear();
  FModified = false;
  AfterNewFile();
}

void TVantrelDataStorage::LoadFromFile(const std::string& name, TVantrelDataStorageFormat format) {
  if (name.empty()) return;
  const auto load = [this](const std::string& source, TVantrelDataStorageFormat sourceFormat) {
    BeforeOpenFile();
    FFileName = source;
    FDamagedFile.clear();
    FStamp = {};
    TVantrelFileStream stream(source, famShareDenyNone, fomOpenRead, IsShared() ? famShareDenyNone : famShareDenyWrite,
                              fomOpenRead);
    try {
      LoadFromStream(stream, sourceFormat);
    } catch (const EOutOfMemory&) {
      throw;
    } catch (const std::exception&) {
      NoteDamagedFile(source);
      throw;
    }
  };
  if (TVantrelFileSystem::Exists(name)) {
    load(name, format);
    AfterOpenFile();
    return;
  }
  const auto fallback = GetFallbackFileName();
  if (!TVantrelFileSystem::Exists(fallback)) return;
  load(fallback, TVantrelDataStorageFormat::dsfXml);
  FFileName = name;
  AfterOpenFile();
}

void TVantrelDataStorage::OpenHeld(const std::string& name, TVantrelDataStorageFormat format,
                                   TVantrelFileAccessMode access, TVantrelFileOpenMode mode, bool readOnlyFallback) {
  if (!TVantrelFileSystem::Exists(name)) return;
  FFileStream.reset();
  BeforeOpenFile();
  FFileName = name;
  FFileStream = readOnlyFallback
                    ? std::make_unique<TVantrelFileStream>(name, famShareDenyNone, fomOpenRead, access, mode)
                    : std::make_unique<TVantrelFileStream>(name, access, mode);
  BeginReading(*FFileStream);
  bool isWhole = true;
  try {
    LoadFromStream(*FFileStream, format);
  } catch (const EOutOfMemory&) {
    FFileStream.reset();
    throw;
  } catch (const std::exception&) {
    isWhole = false;
    NoteDamagedFile(name);
  }
  EndReading(*FFileStream);
  if (!isWhole) FFileStream.reset();
  AfterOpenFile();
}

void TVantrelDataStorage::OpenFile(const std::string& name, TVantrelDataStorageFormat format) {
  OpenHeld(name, format, famShareDenyWrite, fomOpenReadWrite, true);
}

void TVantrelDataStorage::OpenFileReadOnly(const std::string& name, TVantrelDataStorageFormat format) {
  OpenHeld(name, format, famShareDenyNone, fomOpenRead, false);
}

void TVantrelDataStorage::OpenFileExclusive(const std::string& name, TVantrelDataStorageFormat format) {
  OpenHeld(name, format, famShareExclusive, fomOpenReadWrite, false);
}

std::vector<std::uint8_t> TVantrelDataStorage::WholeDocument(TVantrelDataStorageFormat format) {
  TVantrelMemoryStream stream;
  SaveToStream(stream, format);
  return std::move(stream.Bytes());
}

void TVantrelDataStorage::BeginReading(const TVantrelFileStream& file) {
  FDamagedFile.clear();
  FStamp = TVantrelFileStamp(file.Handle());
}

bool TVantrelDataStorage::IsOn(const std::unique_ptr<TVantrelFileStream>& held, const std::string& name) {
  return held != nullptr && System::MayBeSameFile(held->Handle().FileName(), name);
}

void TVantrelDataStorage::WriteFile(std::unique_ptr<TVantrelFileStream>& held, const std::string& name,
                                    const std::vector<std::uint8_t>& bytes, TVantrelFileAccessMode access) {
  TVantrelFileSystem::CreateDirectory(System::FolderOf(name));
  KeepOriginal(name);
  // A file that is written in its own place keeps its own rights.
  const bool keepsItsOwn = FStamp.IsOf(name) && TVantrelFileSystem::Exists(name);
  const auto most = keepsItsOwn ? System::TFileRights() : FStamp.Rights();
  const auto save = [&](std::unique_ptr<TVantrelFileHandle>* own) {
    return TVantrelSafeSave::Write(name, bytes, access, own, most);
  };
  if (IsOn(held, name))
    held->Exchange([&](std::unique_ptr<TVantrelFileHandle>& handle) { return save(&handle); });
  else
    held = std::make_unique<TVantrelFileStream>(save(nullptr));
  if (name == FFileName) FStamp = TVantrelFileStamp(held->Handle(), bytes);
}

void TVantrelDataStorage::SaveToFile(const std::string& name, TVantrelDataStorageFormat format) {
  if (name.empty()) return;
  BeforeStoreFile();
  if (!IsFileOpen()) FFileName = name;
  const auto bytes = WholeDocument(format);
  std::unique_ptr<TVantrelFileStream> written;
  WriteFile(written, std::string(FFileName), bytes, IsShared() ? famShareDenyNone : famShareExclusive);
  written.reset();
  FStamp = {};
  FModified = false;
  FObserver.StorageSaveAs.Call(this);
  AfterStoreFile();
}

void TVantrelDataStorage::StoreFile(TVantrelDataStorageFormat format) {
  if (!IsFileOpen()) return;
  BeforeStoreFile();
  if (FFileStream->Handle().OpenMode() == fomOpenRead) throw EVantrelFileHandleError(TVantrelErrorCode::AccessDenied);
  const auto bytes = WholeDocument(format);
  WriteFile(FFileStream, std::string(FFileStream->Handle().FileName()), bytes, FFileStream->Handle().AccessMode());
  FModified = false;
  AfterStoreFile();
}

void TVantrelDataStorage::StoreFile(const std::string& name, TVantrelDataStorageFormat format) {
  if (name.empty()) return;
  const std::string target = name;
  const std::string former = FFileName;
  BeforeStoreFile();
  FFileName = target;
  try {
    WriteFile(FFileStream, target, WholeDocument(format), famShareDenyWrite);
  } catch (...) {
    FFileName = former;
    throw;
  }
  FModified = false;
  AfterStoreFile();
}

bool TVantrelDataStorage::TryLoadFromFile(const std::string& name, TVantrelDataStorageFormat format) {
  return Succeeds([&] { LoadFromFile(name, format); });
}

bool TVantrelDataStorage::TrySaveToFile(const std::string& name, TVantrelDataStorageFormat format) {
  return Succeeds([&] { SaveToFile(name, format); });
}

bool TVantrelDataStorage::KeepsOriginal() const {
  return IsFileChanged() || (!FDamagedFile.empty() && System::MayBeSameFile(FDamagedFile, FFileName));
}

void TVantrelDataStorage::KeepOriginal(const std::string& name) {
  if (FStamp.IsOf(name) && FStamp.IsOutdated()) {
    FStamp = TVantrelSafeSave::CopyBeside(name, System::OtherVersion);
    FDamagedFile.clear();
  } else if (!FDamagedFile.empty() && System::MayBeSameFile(FDamagedFile, name)) {
    KeepBytesBeside(name);
    FDamagedFile.clear();
  }
}

void TVantrelDataStorage::ReportFileError(const EVantrelException& exception) const {
  std::string text = exception.Message();
  if (const auto* system = dynamic_cast<const EVantrelWin32Error*>(&exception)) {
    switch (static_cast<TVantrelErrorCode>(system->ErrorCode())) {
      case TVantrelErrorCode::FileNotFound:
        text = FormatText(StoredTexts::FileNotFound, FFileName);
        break;
      case TVantrelErrorCode::PathNotFound:
        text = FormatText(StoredTexts::PathNotFound, FFileName);
        break;
      case TVantrelErrorCode::AccessDenied:
        text = FormatText(StoredTexts::AccessDenied, FFileName);
        break;
      default:
        break;
    }
  }
  MsgBoxError(text, TVantrelMsgBoxParent::mbpActiveWindow);
}
