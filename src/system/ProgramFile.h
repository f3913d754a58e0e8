#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// The running program's own file, and the data in compiled files.
namespace System {

/// A name that opens the file of this program, also where another has taken its place.
std::string OwnProgramFile();
/// The name under which this program lies; empty if nobody knows.
std::string OwnProgramName();

/// A part of a compiled file that holds data of the program.
struct TSection {
  std::string Name;
  /// In bytes.
  std::uint64_t Offset;
  std::uint64_t Size;
};

/// Reads `size` bytes from `offset` on; false where they are not all there.
using TReadAt = std::function<bool(std::uint64_t offset, void* target, std::uint64_t size)>;

/// In the order of the file, which has `fileSize` bytes; nothing where it is no compiled file of this machine, or a cut
/// or damaged one.
std::optional<std::vector<TSection>> SectionsOf(std::uint64_t fileSize, const TReadAt& readAt);

}  // namespace System
