#include "VantrelLogConfiguration.h"

std::vector<std::string> TVantrelXMLLogPreferences::GetValueNames() {
  std::vector<std::string> names;
  FStore.GetValueNames(names);
  return names;
}
