#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "VantrelFileRights.h"
#include "VantrelFileStamp.h"
#include "VantrelFileStreams.h"
#include "VantrelTempFile.h"

/// The only way in which the program writes a file that somebody may want back: a temporary file in the target's
/// folder, already locked as the target shall be, flushed to disk, takes the target's place by rename, with the old
/// rights. A symbolic link's target is replaced, not the link; a link that somebody else laid in a sticky folder that
/// all may write to is followed nowhere on the way. A full disk, a crash or a kill leaves the old or the new file,
/// complete. Only where the folder forbids a temporary file or its rename are the bytes written in place (never after a
/// full disk); a temporary file that could be made lies beside the target as "NAME.andere" until they are flushed, and
/// stays there if they never are. Other temporary files that a killed save left behind are removed by the next one.
class TVantrelSafeSave {
 public:
  TVantrelSafeSave() = delete;

  /// Replaces the content of `fileName` and returns the handle on the new file, open for read and write with the
  /// sharing `access`. A foreign hold on the target that does not go with `access` raises EVantrelFileHandleError
  /// with code 32. `own`, if given, is the caller's own handle on the same file: it is not a foreign hold; it is
  /// closed once the new file is in place and left open, holding the old file, when the save fails. `most` limits the
  /// rights of the new file.
  static std::unique_ptr<TVantrelFileHandle> Write(const std::string& fileName, std::span<const std::uint8_t> bytes,
                                                   TVantrelFileAccessMode access,
                                                   std::unique_ptr<TVantrelFileHandle>* own = nullptr,
                                                   const TVantrelFileRights& most = {});

  /// Copies a file, whoever holds it, to its name with `ending` beside it, or with `ending` and 2, 3 and so on where
  /// there is such a copy. The copy is no more readable than the file. Returns the stamp of what was copied.
  static TVantrelFileStamp CopyBeside(const std::string& fileName, const std::string& ending);

 private:
  /// In place, with the hold passing from `own` to the new handle once the bytes are written.
  static std::unique_ptr<TVantrelFileHandle> OverwriteOwn(const std::string& target,
                                                          std::span<const std::uint8_t> bytes,
                                                          TVantrelFileAccessMode access, const TVantrelFileHandle& own,
                                                          std::optional<TVantrelTempFile>& spare);
  static std::unique_ptr<TVantrelFileHandle> HandleOn(const std::string& target, TVantrelFileAccessMode access,
                                                      int descriptor);
};
