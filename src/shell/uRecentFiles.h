#pragma once

#include <string>
#include <vector>

#include "VantrelMainWindow.h"
#include "VantrelStorage.h"

/// The recent documents, in the order of their first opening; no limit, nothing moves.
class TRecentFiles {
 public:
  const std::vector<TRecentItem>& Items() const { return FItems; }

  /// An empty path, a file that is not there and a path that is known already: nothing.
  void AddRecentFile(const std::string& path);
  void RemoveRecentFile(const std::string& path);

  /// Adds what the store holds, each through AddRecentFile.
  void Load(TVantrelStorage& storage);
  /// Surplus values of a longer list before stay behind, unused.
  void Save(TVantrelStorage& storage) const;

 private:
  std::vector<TRecentItem> FItems;
};
