#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "VantrelFileStamp.h"
#include "VantrelFileStreams.h"

/// The only way in which the program writes a file that somebody may want back (see System::Replace): a full disk, a
/// crash or a kill leaves the old or the new file, complete.
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
                                                   const System::TFileRights& most = {});

  /// Copies a file, whoever holds it, to its name with `ending` beside it, or with `ending` and 2, 3 and so on where
  /// there is such a copy. The copy is no more readable than the file. Returns the stamp of what was copied.
  static TVantrelFileStamp CopyBeside(const std::string& fileName, const std::string& ending);
};
