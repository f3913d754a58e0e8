#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

/// The names by which the programs of the family find each other's settings and data.
namespace ProductNames {
/// Who makes the family: the folder or key that all others lie in.
inline constexpr std::string_view Vendor = "Orvenda Labs";
/// The central product, and this program as it stands beside it.
inline constexpr std::string_view Central = "Tessaron 10";
inline constexpr std::string_view Own = "Tessaron 10 - MyTessaron";

/// The names with a separator between them: a backslash for keys of settings, a slash for folders.
inline std::string Path(std::initializer_list<std::string_view> names, char separator) {
  std::string path;
  for (const std::string_view name : names) {
    if (!path.empty()) path += separator;
    path += name;
  }
  return path;
}
}  // namespace ProductNames
