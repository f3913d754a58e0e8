#pragma once

#include <string>

#include "Posix.h"

/// The sharing of file handles, as advisory locks of the open file description. Whoever opens a file says what the
/// handle does and what it denies to others; each of the four is a byte far behind the end of any file, locked
/// shared, since a descriptor for reading can take no other lock. A handle takes its own bytes first and then looks
/// at those of the opposite meaning: of two that come at the same time both may see each other, never neither.
namespace Posix::FileLocks {

/// What a handle does with the file.
struct TUse {
  bool Reads = false;
  bool Writes = false;
};

enum class THold { Held, Refused, NoLocks };

/// What a handle of this open mode does.
TUse UseOf(TVantrelFileOpenMode openMode);

/// Takes the hold for `use` with the sharing `access`. Refused, with nothing held, where another handle denies the
/// use or already does what `access` denies; NoLocks where file system or descriptor cannot lock.
THold Take(int descriptor, TUse use, TVantrelFileAccessMode access);

/// As Take, and tries a few times more before it is refused, since a handle that is refused itself holds its bytes
/// for a moment.
THold TakePatiently(int descriptor, TUse use, TVantrelFileAccessMode access);

/// True where another handle denies `use` or does what `access` denies.
bool ConflictsWithOthers(int descriptor, TUse use, TVantrelFileAccessMode access);

/// Gives up whatever hold the descriptor has.
void Release(int descriptor);

/// Gives `to` the hold for `use` with the sharing `access` and takes its own from `from`, another descriptor of the
/// same file, with no moment in which neither holds it.
void PassOn(int from, int to, TUse use, TVantrelFileAccessMode access);

/// False where `name` no longer leads to the file of `descriptor`.
bool IsSameFile(int descriptor, const std::string& name);

}  // namespace Posix::FileLocks
