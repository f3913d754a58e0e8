#pragma once

#include <memory>
#include <string>

#include "VantrelStreams.h"

enum class TVantrelFileOpenMode { fomCreate, fomOpenRead, fomOpenWrite, fomOpenReadWrite, fomOpenReadWriteOrCreate };
enum class TVantrelFileAccessMode { famShareExclusive, famShareDenyWrite, famShareDenyRead, famShareDenyNone };

/// An open file with the sharing of the system: what one handle denies, no other handle gets, in this process and in
/// others. Kept by advisory locks of the open file description on bytes far behind the end of any file; a file
/// system without locks is used without the hold.
class TVantrelFileHandle {
 public:
  /// fomCreate empties an existing file; the other modes open an existing file only (fomOpenReadWriteOrCreate makes
  /// one that is missing). Raises EVantrelFileHandleError with code 2, 3, 5 or 32.
  TVantrelFileHandle(std::string fileName, TVantrelFileAccessMode access, TVantrelFileOpenMode openMode);
  TVantrelFileHandle(const TVantrelFileHandle&) = delete;
  TVantrelFileHandle& operator=(const TVantrelFileHandle&) = delete;
  ~TVantrelFileHandle();

  int Descriptor() const { return FDescriptor; }
  const std::string& FileName() const { return FFileName; }
  TVantrelFileAccessMode AccessMode() const { return FAccessMode; }
  TVantrelFileOpenMode OpenMode() const { return FOpenMode; }

 private:
  friend class TVantrelSafeSave;
  TVantrelFileHandle(std::string fileName, TVantrelFileAccessMode access, TVantrelFileOpenMode openMode,
                     int descriptor);

  std::string FFileName;
  TVantrelFileAccessMode FAccessMode;
  TVantrelFileOpenMode FOpenMode;
  int FDescriptor = -1;
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
