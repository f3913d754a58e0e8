#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "VantrelFileStreams.h"

/// What a file was when it was read or written, so that one can see later whether another program has replaced or
/// changed it. Nothing here raises.
class TVantrelFileStamp {
 public:
  /// Of no file.
  TVantrelFileStamp() = default;
  /// Of a file that is about to be read. Until Seal its bytes are unknown, and equal to none.
  explicit TVantrelFileStamp(const TVantrelFileHandle& file);
  /// Of a file that has just been written with those bytes.
  TVantrelFileStamp(const TVantrelFileHandle& file, std::span<const std::uint8_t> bytes);
  /// Takes in the bytes of the file once it has been read. They stay unknown if it was changed meanwhile.
  void Seal(const TVantrelFileHandle& file);

  /// The name leads to where the file was.
  bool IsOf(const std::string& fileName) const;
  /// Where the file was there is another one or other bytes. False where there is nothing.
  bool IsOutdated() const;
  const System::TFileRights& Rights() const { return FRights; }

 private:
  std::string FFileName;
  System::TFileState FState;
  std::string FDigest;
  System::TFileRights FRights;
};
