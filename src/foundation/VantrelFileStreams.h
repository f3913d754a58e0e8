#pragma once

#include <memory>
#include <string>

#include "SystemFile.h"
#include "VantrelStreams.h"

/// An open file with the sharing of the system: what one handle denies, no other handle gets, in this process and in
/// others. A file system without locks is used without the hold.
class TVantrelFileHandle {
 public:
  /// fomCreate empties an existing file; the other modes open an existing file only (fomOpenReadWriteOrCreate makes
  /// one that is missing). Raises EVantrelFileHandleError with code 2, 3, 5 or 32.
  TVantrelFileHandle(std::string fileName, TVantrelFileAccessMode access, TVantrelFileOpenMode openMode);
  /// `file` as it is, opened by `fileName` in that way.
  TVantrelFileHandle(std::string fileName, TVantrelFileAccessMode access, TVantrelFileOpenMode openMode,
                     System::TFile file);
  TVantrelFileHandle(const TVantrelFileHandle&) = delete;
  TVantrelFileHandle& operator=(const TVantrelFileHandle&) = delete;

  /// What the system has opened.
  System::TFile& File() { return FFile; }
  const System::TFile& File() const { return FFile; }
  const std::string& FileName() const { return FFileName; }
  TVantrelFileAccessMode AccessMode() const { return FAccessMode; }
  TVantrelFileOpenMode OpenMode() const { return FOpenMode; }

 private:
  std::string FFileName;
  TVantrelFileAccessMode FAccessMode;
  TVantrelFileOpenMode FOpenMode;
  System::TFile FFile;
};

/// A stream over a file handle. Failed system calls raise EVantrelFileHandleError.
class TVantrelFileStream final : public TVantrelStream {
 public:
  TVantrelFileStream(const std::string& fileName, TVantrelFileAccessMode access, TVantrelFileOpenMode openMode);
  /// Tries `access` and `openMode`, and on EVantrelFileHandleError the fallback pair once.
  TVantrelFileStream(const std::string& fileName, TVantrelFileAccessMode fallbackAccess,
                     TVantrelFileOpenMode fallbackMode, TVantrelFileAccessMode access, TVantrelFileOpenMode openMode);
  explicit TVantrelFileStream(std::unique_ptr<TVantrelFileHandle> handle);

  std::int64_t Read(void* target, std::int64_t count) override;
  std::int64_t Write(const void* source, std::int64_t count) override;
  std::int64_t Position() const override;
  void SetPosition(std::int64_t position) override;
  std::int64_t Size() const override;
  void SetSize(std::int64_t size) override;

  const TVantrelFileHandle& Handle() const { return *FHandle; }
  /// Lets `replace` take the handle (by reference) and give the one that the stream goes on with, at position 0.
  template <class TReplace>
  void Exchange(TReplace replace) {
    FHandle = replace(FHandle);
  }

 private:
  std::unique_ptr<TVantrelFileHandle> FHandle;
};
