#pragma once

#include <optional>
#include <string>
#include <utility>

#include "VantrelFileStreams.h"

/// A temporary file beside a target whose place it shall take, held from its first moment on as the target shall be.
/// Unless it takes that place or is kept it goes with this object. Its name (".NAME.mytessaron-PID-N.tmp") says whose
/// it is, so that what a killed program left behind is found. Failures raise EVantrelFileHandleError.
class TVantrelTempFile {
 public:
  /// Nothing where the target's folder forbids a new file (no right, read-only).
  static std::optional<TVantrelTempFile> Create(const std::string& target, TVantrelFileAccessMode access,
                                                unsigned permissions);
  /// Removes the temporary files of this target that nobody holds. Never raises.
  static void RemoveLeftOvers(const std::string& target) noexcept;

  TVantrelTempFile(TVantrelTempFile&& other) noexcept
      : FName(std::exchange(other.FName, {})),
        FDescriptor(std::exchange(other.FDescriptor, -1)),
        FIsKept(other.FIsKept) {}
  TVantrelTempFile& operator=(TVantrelTempFile&&) = delete;
  ~TVantrelTempFile();

  enum class TPlace {
    Taken,      ///< the file is the target
    CameToBe,   ///< there is a target that was thought to be missing
    Forbidden,  ///< the folder does not let it have the place
  };

  int Descriptor() const { return FDescriptor; }
  /// Renames the file to `target`, which is `expectedMissing` or not. Nothing is done unless it is Taken.
  TPlace TakePlaceOf(const std::string& target, bool expectedMissing);
  /// Gives the descriptor of a file that has taken its place away.
  int Release() { return std::exchange(FDescriptor, -1); }
  /// Gives the file the free name `name`, at which it stays when this object goes.
  void KeepAs(const std::string& name);
  /// Lets a file that is kept go with this object after all.
  void Drop() { FIsKept = false; }

 private:
  TVantrelTempFile(std::string name, int descriptor) : FName(std::move(name)), FDescriptor(descriptor) {}

  std::string FName;
  int FDescriptor;
  bool FIsKept = false;
};
