#include "uRecentFiles.h"

#include <fmt/format.h>

#include <algorithm>

#include "VantrelFileSystem.h"
#include "uFileNames.h"

namespace {
constexpr const char* Key = "MRU";
constexpr const char* CountName = "Count";
constexpr const char* FileName = "File{}";
/// What nobody opens in a lifetime: a count beyond it is a damaged one.
constexpr std::int32_t MaxCount = 10000;
}  // namespace

void TRecentFiles::AddRecentFile(const std::string& path) {
  if (path.empty() || !TVantrelFileSystem::Exists(path)) return;
  if (std::ranges::find(FItems, path, &TRecentItem::StoredText) != FItems.end()) return;
  FItems.push_back({ShownFileName(path), path});
}

void TRecentFiles::RemoveRecentFile(const std::string& path) {
  std::erase_if(FItems, [&](const auto& item) { return item.StoredText == path; });
}

void TRecentFiles::Load(TVantrelStorage& storage) {
  const int count = std::min(storage.ReadInteger(Key, CountName, 0), MaxCount);
  for (int i = 0; i < count; ++i) AddRecentFile(storage.ReadString(Key, fmt::format(FileName, i), {}));
}

void TRecentFiles::Save(TVantrelStorage& storage) const {
  storage.WriteInteger(Key, CountName, static_cast<std::int32_t>(FItems.size()));
  for (std::size_t i = 0; i < FItems.size(); ++i)
    storage.WriteString(Key, fmt::format(FileName, i), FItems[i].StoredText);
}
