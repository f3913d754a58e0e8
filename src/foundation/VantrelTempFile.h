#pragma once

#include <optional>
#include <string>
#include <utility>

#include "VantrelFileStreams.h"

/// A temporary file beside a target whose place it shall take, held from its first moment on as the target shall be.
/// Unless it takes that place it goes with this object. Its name (".NAME.mytessaron-PID-N.tmp") says whose it is, so
/// that what a killed program left behind is found. Failures raise EVantrelFileHandleError.
class TVantrelTempFile {
 public:
  /// Nothing where the target's folder forbids a new file (no right, read-only).
  static std::optional<TVantrelTempFile> Create(const std::string& target, TVantrelFileAccessMode access,
                                                unsigned permissions);
  /// Removes the temporary files of this target that nobody holds. Never raises.
  static void RemoveLeftOvers(const std::string& target) noexcept;

  TVantrelTempFile(TVantrelTempFile&& other) noexcept
      : FName(std::exchange(other.FName, {})), FDescriptor(std::exchange(other.FDescriptor, -1)) {}
  TVantrelTempFile& operator=(TVantrelTempFile&&) = delete;
  ~TVantrelTempFile();

  int Descriptor() const { return FDescriptor; }
  /// Renames the file to `target` and gives its descriptor away. False, with nothing done, if `target` was thought to
  /// be missing (`expectMissing`) and is there.
  bool TakePlaceOf(const std::string& target, bool expectMissing, int& descriptor);

 private:
  TVantrelTempFile(std::string name, int descriptor) : FName(std::move(name)), FDescriptor(descriptor) {}

  std::string FName;
  int FDescriptor;
};
