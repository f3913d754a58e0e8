#pragma once

#include <string>
#include <vector>

#include "VantrelClasses.h"

/// Lines of text as a published property may hold them.
class TVantrelStringList : public TVantrelPersistent {
 public:
  std::vector<std::string> Lines;
};
