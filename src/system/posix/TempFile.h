#pragma once

#include <optional>
#include <string>
#include <utility>

#include "Posix.h"

namespace Posix {

/// A temporary file beside a target whose place it shall take, held from its first moment on as the target shall be.
/// Unless it takes that place or is kept it goes with this object. Its name (".NAME.mytessaron-PID-N.tmp") says whose
/// it is, so that what a killed program left behind is found. Failures are thrown.
class TTempFile {
 public:
  /// Nothing where the target's folder forbids a new file (no right, read-only).
  static std::optional<TTempFile> Create(const std::string& target, TVantrelFileAccessMode access,
                                         unsigned permissions);
  /// Removes the temporary files of this target that nobody holds. Never raises.
  static void RemoveLeftOvers(const std::string& target) noexcept;

  TTempFile(TTempFile&& other) noexcept
      : FName(std::exchange(other.FName, {})), FFile(std::move(other.FFile)), FIsKept(other.FIsKept) {}
  TTempFile& operator=(TTempFile&&) = delete;
  ~TTempFile();

  enum class TPlace {
    Taken,      ///< the file is the target
    CameToBe,   ///< there is a target that was thought to be missing
    Forbidden,  ///< the folder does not let it have the place
  };

  int Descriptor() const { return FFile.Descriptor; }
  /// Renames the file to `target`, which is `expectedMissing` or not. Nothing is done unless it is Taken.
  TPlace TakePlaceOf(const std::string& target, bool expectedMissing);
  /// Gives a file that has taken its place away.
  System::TFile Release() { return System::TFile(std::move(FFile)); }
  /// The file stays when this object goes, under a free name beside the target; where the folder forbids that name, it
  /// keeps its own.
  void KeepBeside(const std::string& target, const std::string& ending);
  /// Lets a file that is kept go with this object after all.
  void Drop() { FIsKept = false; }

 private:
  TTempFile(std::string name, int descriptor) : FName(std::move(name)), FFile(descriptor) {}

  std::string FName;
  System::TFile::TNative FFile;
  bool FIsKept = false;
};

}  // namespace Posix
