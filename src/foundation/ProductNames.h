#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

/// The names of the programs of the family, by which they find each other's settings and data.
namespace ProductNames {
/// Who makes the family: the folder or key that all others lie in.
inline constexpr std::string_view Vendor = "Orvenda Labs";
/// The central product, and this program as it stands beside it.
inline constexpr std::string_view Central = "Tessaron 10";
inline constexpr std::string_view Own = "Tessaron 10 - MyTessaron";

/// As the user reads the names: those of the products in titles, and that of this program within a sentence.
inline constexpr const char* CentralTitle = "TESSARON";
inline constexpr const char* OwnTitle = "MyTESSARON";
inline constexpr const char* OwnName = "MyTessaron";

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
