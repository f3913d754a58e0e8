#include "uProgramInfo.h"

#include <fmt/format.h>

std::string TProgramInfo::VersionText() const {
  return fmt::format("{}.{}.{}.{}", Major, Minor, Release, Build);
}

const TProgramInfo& ProgramInfo() {
  static const TProgramInfo info{MYTESSARON_VERSION_MAJOR, MYTESSARON_VERSION_MINOR, MYTESSARON_VERSION_RELEASE, 0,
                                 MYTESSARON_COPYRIGHT,     MYTESSARON_MANUAL};
  return info;
}
