#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "SystemError.h"

/// What becomes of the file at its opening, and what can be done with it: see System::TFile::Open.
enum class TVantrelFileOpenMode { fomCreate, fomOpenRead, fomOpenWrite, fomOpenReadWrite, fomOpenReadWriteOrCreate };
/// What is denied to others as long as a file is open: all, writing, reading, nothing.
enum class TVantrelFileAccessMode { famShareExclusive, famShareDenyWrite, famShareDenyRead, famShareDenyNone };

namespace System {

/// What the system tells of a file without its bytes; only good for comparing. One that is not known equals none.
class TFileState {
 public:
  bool operator==(const TFileState& other) const { return FIsKnown && other.FIsKnown && FMarks == other.FMarks; }

 private:
  friend class TFile;
  bool FIsKnown = false;
  /// Which file, its size, and when it was changed.
  std::array<std::uint64_t, 5> FMarks{};
};

/// What a file made from another one's content may be open to at most.
class TFileRights {
 public:
  struct TNative;

  /// No limit.
  TFileRights() = default;
  explicit TFileRights(TNative native);

  /// Null without a limit.
  const TNative* Native() const { return FNative.get(); }

 private:
  std::shared_ptr<const TNative> FNative;
};

/// An open file with the sharing of the system: what one handle denies, no other handle gets, in this process and in
/// others. A file system without locks is used without the hold.
class TFile {
 public:
  /// Of this system.
  struct TNative;

  /// fomCreate empties an existing file; the other modes open an existing file only (fomOpenReadWriteOrCreate makes
  /// one that is missing). Fails with code 2, 3, 5 or 32.
  static TResult<TFile> Open(const std::string& name, TVantrelFileAccessMode access, TVantrelFileOpenMode mode);
  /// For reading, whoever holds the file, and without a hold of its own.
  static TResult<TFile> OpenUnheld(const std::string& name);

  explicit TFile(TNative native);
  TFile(TFile&& other) noexcept;
  TFile& operator=(TFile&& other) noexcept;
  ~TFile();

  /// Fewer than `count` bytes only at the end of the file.
  TResult<std::int64_t> Read(void* target, std::int64_t count);
  TResult<std::int64_t> Write(const void* source, std::int64_t count);
  /// Leaves the position alone.
  TResult<std::int64_t> ReadAt(std::int64_t position, void* target, std::int64_t count) const;
  TResult<std::int64_t> Position() const;
  TCode SetPosition(std::int64_t position);
  TResult<std::int64_t> Size() const;
  TCode SetSize(std::int64_t size);
  /// What was written stands on the disk.
  TCode Flush();

  TFileState State() const;
  TFileRights Rights() const;
  TNative& Native() const { return *FNative; }

 private:
  std::unique_ptr<TNative> FNative;
};

/// Replaces the content of the file `name`, or makes it, and gives the new file, open for read and write with the
/// sharing `access`: a temporary file in the target's folder, already locked as the target shall be, flushed to disk,
/// takes its place by rename, with the old rights. A link's target is replaced, not the link; a link that somebody else
/// laid in a sticky folder that all may write to is followed nowhere on the way. Only where the folder forbids a
/// temporary file or its rename are the bytes written in place (never after a full disk); a temporary file that could
/// be made lies beside the target with UnfinishedSave until they are flushed, and stays there if they never are. Other
/// temporary files that a killed program left behind are removed.
///   own: the caller's own handle on the same file, or null. It is no foreign hold; with success the hold has passed to
///     the new file, and the caller has to let the handle go.
///   most: limits the rights of the new file.
TResult<TFile> Replace(const std::string& name, std::span<const std::uint8_t> bytes, TVantrelFileAccessMode access,
                       const TFile* own, const TFileRights& most);

/// What is added to the name of a file for that of another version of it.
inline constexpr const char* OtherVersion = ".andere";
/// Likewise for the one that is complete while the bytes of the file itself are not.
inline constexpr const char* UnfinishedSave = ".gespeichert";

}  // namespace System
