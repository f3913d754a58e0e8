#pragma once

#include "Posix.h"

struct System::TFileRights::TNative {
  unsigned Mode;
  unsigned Group;
};

/// Who may read and write a file, carried on to what takes its place or is made from it. Nothing here fails: what the
/// system does not let through leaves the new file less open than the old one, never more.
namespace Posix::FileRights {

/// What a file that is made from the content of the file of `descriptor` may be open to at most.
System::TFileRights Of(int descriptor);

/// Gives the new file of descriptor `to`, which nobody but its owner can open yet, owner, group, access list, extended
/// attributes and mode of `from`, as far as `most` lets it. Where the group or the access list cannot be kept, the
/// group gets nothing.
void Copy(int from, int to, const System::TFileRights& most);

/// The mode to create a file with.
unsigned ModeOfNew(const System::TFileRights& most);

/// Takes away from the file of `descriptor` what goes beyond the limit. Its owner can always read and write it.
void Limit(int descriptor, const System::TFileRights& most);

}  // namespace Posix::FileRights
