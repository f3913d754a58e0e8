#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "VantrelFileStreams.h"

/// The only way in which the program writes a file that somebody may want back: a temporary file in the target's
/// folder, already locked as the target shall be, flushed to disk, takes the target's place by rename, with the old
/// permissions. A symbolic link's target is replaced, not the link. A full disk, a crash or a kill leaves the old or
/// the new file, complete. Only where the folder forbids a temporary file are the bytes written in place (never
/// after a full disk). What a killed save left behind is removed by the next one.
class TVantrelSafeSave {
 public:
  TVantrelSafeSave() = delete;

  /// Replaces the content of `fileName` and returns the handle on the new file, open for read and write with the
  /// sharing `access`. A foreign hold on the target that does not go with `access` raises EVantrelFileHandleError
  /// with code 32. `own`, if given, is the caller's own handle on the same file: it is not a foreign hold; it is
  /// closed once the new file is in place and left open, holding the old file, when the save fails.
  static std::unique_ptr<TVantrelFileHandle> Write(const std::string& fileName, std::span<const std::uint8_t> bytes,
                                                   TVantrelFileAccessMode access,
                                                   std::unique_ptr<TVantrelFileHandle>* own = nullptr);

 private:
  /// By a temporary file. Null where the file must be written in place, or has come into being meanwhile.
  static std::unique_ptr<TVantrelFileHandle> Replace(const std::string& target, std::span<const std::uint8_t> bytes,
                                                     TVantrelFileAccessMode access, const TVantrelFileHandle* old);
  /// In place, with the hold passing from `own` to the new handle once the bytes are written.
  static std::unique_ptr<TVantrelFileHandle> OverwriteOwn(const std::string& target,
                                                          std::span<const std::uint8_t> bytes,
                                                          TVantrelFileAccessMode access, const TVantrelFileHandle& own);
  static std::unique_ptr<TVantrelFileHandle> HandleOn(const std::string& target, TVantrelFileAccessMode access,
                                                      int descriptor);
};
