#include "VantrelSafeSave.h"

#include "SystemFolders.h"
#include "VantrelExceptions.h"

using EError = EVantrelFileHandleError;

std::unique_ptr<TVantrelFileHandle> TVantrelSafeSave::Write(const std::string& fileName,
                                                            std::span<const std::uint8_t> bytes,
                                                            TVantrelFileAccessMode access,
                                                            std::unique_ptr<TVantrelFileHandle>* own,
                                                            const System::TFileRights& most) {
  const auto* mine = own != nullptr && *own != nullptr ? &(*own)->File() : nullptr;
  auto saved =
      std::make_unique<TVantrelFileHandle>(fileName, access, TVantrelFileOpenMode::fomOpenReadWrite,
                                           CheckSystem<EError>(System::Replace(fileName, bytes, access, mine, most)));
  if (own != nullptr) own->reset();
  return saved;
}

TVantrelFileStamp TVantrelSafeSave::CopyBeside(const std::string& fileName, const std::string& ending) {
  TVantrelFileStream original(std::make_unique<TVantrelFileHandle>(
      fileName, TVantrelFileAccessMode::famShareDenyNone, TVantrelFileOpenMode::fomOpenRead,
      CheckSystem<EError>(System::TFile::OpenUnheld(fileName))));
  const auto bytes = original.ReadAll();
  const TVantrelFileStamp stamp(original.Handle(), bytes);
  Write(System::FreeNameBeside(fileName, ending), bytes, TVantrelFileAccessMode::famShareDenyWrite, nullptr,
        stamp.Rights());
  return stamp;
}
