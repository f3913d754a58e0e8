#include "VantrelFileStreams.h"

#include "VantrelExceptions.h"

namespace {
using EError = EVantrelFileHandleError;

std::unique_ptr<TVantrelFileHandle> OpenWithFallback(const std::string& fileName, TVantrelFileAccessMode fallbackAccess,
                                                     TVantrelFileOpenMode fallbackMode, TVantrelFileAccessMode access,
                                                     TVantrelFileOpenMode openMode) {
  try {
    return std::make_unique<TVantrelFileHandle>(fileName, access, openMode);
  } catch (const EVantrelFileHandleError&) {
    return std::make_unique<TVantrelFileHandle>(fileName, fallbackAccess, fallbackMode);
  }
}
}  // namespace

TVantrelFileHandle::TVantrelFileHandle(std::string fileName, TVantrelFileAccessMode access,
                                       TVantrelFileOpenMode openMode)
    : FFileName(std::move(fileName)),
      FAccessMode(access),
      FOpenMode(openMode),
      FFile(CheckSystem<EError>(System::TFile::Open(FFileName, access, openMode))) {}

TVantrelFileHandle::TVantrelFileHandle(std::string fileName, TVantrelFileAccessMode access,
                                       TVantrelFileOpenMode openMode, System::TFile file)
    : FFileName(std::move(fileName)), FAccessMode(access), FOpenMode(openMode), FFile(std::move(file)) {}

TVantrelFileStream::TVantrelFileStream(const std::string& fileName, TVantrelFileAccessMode access,
                                       TVantrelFileOpenMode openMode)
    : FHandle(std::make_unique<TVantrelFileHandle>(fileName, access, openMode)) {}

TVantrelFileStream::TVantrelFileStream(const std::string& fileName, TVantrelFileAccessMode fallbackAccess,
                                       TVantrelFileOpenMode fallbackMode, TVantrelFileAccessMode access,
                                       TVantrelFileOpenMode openMode)
    : FHandle(OpenWithFallback(fileName, fallbackAccess, fallbackMode, access, openMode)) {}

TVantrelFileStream::TVantrelFileStream(std::unique_ptr<TVantrelFileHandle> handle) : FHandle(std::move(handle)) {}

std::int64_t TVantrelFileStream::Read(void* target, std::int64_t count) {
  return CheckSystem<EError>(FHandle->File().Read(target, count));
}

std::int64_t TVantrelFileStream::Write(const void* source, std::int64_t count) {
  return CheckSystem<EError>(FHandle->File().Write(source, count));
}

std::int64_t TVantrelFileStream::Position() const {
  return CheckSystem<EError>(FHandle->File().Position());
}

void TVantrelFileStream::SetPosition(std::int64_t position) {
  CheckSystem<EError>(FHandle->File().SetPosition(position));
}

std::int64_t TVantrelFileStream::Size() const {
  return CheckSystem<EError>(FHandle->File().Size());
}

void TVantrelFileStream::SetSize(std::int64_t size) {
  CheckSystem<EError>(FHandle->File().SetSize(size));
  if (Position() > size) SetPosition(size);
}
