#pragma once

#include <sys/xattr.h>

#include <algorithm>
#include <cstdint>
#include <string>

inline constexpr const char* AccessList = "system.posix_acl_access";

/// One named user may read, the group may not. False where the file system knows no lists.
inline bool SetAccessList(const std::string& name) {
  const std::uint16_t list[] = {2, 0,      1,      6,  0xFFFF, 0xFFFF, 2,      4,  65534, 0,      4,
                                0, 0xFFFF, 0xFFFF, 16, 4,      0xFFFF, 0xFFFF, 32, 0,     0xFFFF, 0xFFFF};
  return ::setxattr(name.c_str(), AccessList, list, sizeof list, 0) == 0 &&
         ::setxattr(name.c_str(), "user.herkunft", "mail", 4, 0) == 0;
}

inline std::string Attribute(const std::string& name, const char* attribute) {
  std::string value(256, '\0');
  value.resize(
      static_cast<std::size_t>(std::max<ssize_t>(::getxattr(name.c_str(), attribute, value.data(), value.size()), 0)));
  return value;
}
