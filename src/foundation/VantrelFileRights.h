#pragma once

#include "VantrelFileStreams.h"

/// Who may read and write a file, carried on to what takes its place or is made from it. Nothing here raises: what the
/// system does not let through leaves the new file less open than the old one, never more.
class TVantrelFileRights {
 public:
  /// No limit.
  TVantrelFileRights() = default;
  /// What a file that is made from the content of `file` may be open to at most.
  static TVantrelFileRights Of(const TVantrelFileHandle& file);
  /// Gives the new file of descriptor `to`, which nobody but its owner can open yet, owner, group, access list,
  /// extended attributes and mode of `from`, as far as `most` lets it. Where the group or the access list cannot be
  /// kept, the group gets nothing.
  static void Copy(int from, int to, const TVantrelFileRights& most);

  /// The mode to create a file with.
  unsigned ModeOfNew() const;
  /// Takes away from the file of `descriptor` what goes beyond the limit. Its owner can always read and write it.
  void Limit(int descriptor) const;

 private:
  unsigned Within(unsigned mode, unsigned group) const;

  bool FIsLimited = false;
  unsigned FMode = 0777;
  unsigned FGroup = 0;
};
