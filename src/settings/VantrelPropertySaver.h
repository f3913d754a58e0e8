#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "VantrelClasses.h"

/// A property that outlives the run: its path below the component, and where it is stored below the form's own key.
struct TVantrelPropertyLink {
  std::string Path;
  std::string StoredKey;
  std::string StoredName;
};

/// The links of one component.
class TVantrelPropertyLinks : public std::vector<TVantrelPropertyLink> {
 public:
  using std::vector<TVantrelPropertyLink>::vector;
  /// Without regard to case; null if there is none.
  const TVantrelPropertyLink* FindProperty(std::string_view path) const;
};

/// The stored properties of one component, which outlives the form's use of them.
struct TVantrelComponentLink {
  TVantrelObject* Component = nullptr;
  TVantrelPropertyLinks Properties;
};

/// The components of a form that have stored properties.
using TVantrelComponentLinks = std::vector<TVantrelComponentLink>;
