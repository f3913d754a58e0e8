// The file operations of a document: which file is opened how, and what becomes of it.

#include <fmt/format.h>

#include <filesystem>

#include "StoredTexts.h"
#include "VantrelDataStorage.h"
#include "VantrelExceptions.h"
#include "VantrelFileSystem.h"
#include "VantrelI18n.h"
#include "VantrelMsgBox.h"
#include "VantrelPaths.h"
#include "VantrelSafeSave.h"

using enum TVantrelFileAccessMode;
using enum TVantrelFileOpenMode;

void KeepBytesBeside(const std::string& name) {
  std::string keep = name + ".beschaedigt";
  for (int number = 2; TVantrelFileSystem::Exists(keep); ++number) keep = fmt::format("{}.beschaedigt{}", name, number);
  TVantrelFileStream original(name, famShareDenyNone, fomOpenRead);
  TVantrelSafeSave::Write(keep, original.ReadAll(), famShareDenyWrite);
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
  try {
    LoadFromStream(*FFileStream, format);
  } catch (const EOutOfMemory&) {
    FFileStream.reset();
    throw;
  } catch (const std::exception&) {
    FFileStream.reset();
    NoteDamagedFile(name);
  }
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

bool TVantrelDataStorage::HoldsFile(const std::string& name) const {
  std::error_code error;
  return IsFileOpen() && std::filesystem::equivalent(FFileStream->Handle().FileName(), name, error);
}

void TVantrelDataStorage::WriteHeldFile(const std::string& name, const std::vector<std::uint8_t>& bytes,
                                        TVantrelFileAccessMode access) {
  FFileStream->Exchange(
      [&](std::unique_ptr<TVantrelFileHandle>& held) { return TVantrelSafeSave::Write(name, bytes, access, &held); });
}

void TVantrelDataStorage::SaveToFile(const std::string& name, TVantrelDataStorageFormat format) {
  if (name.empty()) return;
  BeforeStoreFile();
  if (!IsFileOpen()) FFileName = name;
  const std::string target = FFileName;
  TVantrelFileSystem::CreateDirectory(TVantrelFilePath::GetDirectoryName(target));
  const auto bytes = WholeDocument(format);
  KeepDamagedOriginal(target);
  TVantrelSafeSave::Write(target, bytes, IsShared() ? famShareDenyNone : famShareExclusive);
  FModified = false;
  FObserver.StorageSaveAs.Call(this);
  AfterStoreFile();
}

void TVantrelDataStorage::StoreFile(TVantrelDataStorageFormat format) {
  if (!IsFileOpen()) return;
  BeforeStoreFile();
  if (FFileStream->Handle().OpenMode() == fomOpenRead) throw EVantrelFileHandleError(TVantrelErrorCode::AccessDenied);
  const auto bytes = WholeDocument(format);
  WriteHeldFile(std::string(FFileStream->Handle().FileName()), bytes, FFileStream->Handle().AccessMode());
  FModified = false;
  AfterStoreFile();
}

void TVantrelDataStorage::StoreFile(const std::string& name, TVantrelDataStorageFormat format) {
  if (name.empty()) return;
  const std::string target = name;
  if (!HoldsFile(target)) FFileStream.reset();
  BeforeStoreFile();
  FFileName = target;
  TVantrelFileSystem::CreateDirectory(TVantrelFilePath::GetDirectoryName(target));
  const auto bytes = WholeDocument(format);
  KeepDamagedOriginal(target);
  if (IsFileOpen())
    WriteHeldFile(target, bytes, famShareDenyWrite);
  else
    FFileStream = std::make_unique<TVantrelFileStream>(TVantrelSafeSave::Write(target, bytes, famShareDenyWrite));
  FModified = false;
  AfterStoreFile();
}

bool TVantrelDataStorage::TryLoadFromFile(const std::string& name, TVantrelDataStorageFormat format) {
  try {
    LoadFromFile(name, format);
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

bool TVantrelDataStorage::TrySaveToFile(const std::string& name, TVantrelDataStorageFormat format) {
  try {
    SaveToFile(name, format);
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

void TVantrelDataStorage::KeepDamagedOriginal(const std::string& name) {
  std::error_code error;
  if (FDamagedFile.empty() || !std::filesystem::equivalent(FDamagedFile, name, error)) return;
  KeepBytesBeside(name);
  FDamagedFile.clear();
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
