#pragma once

#include "VantrelLogs.h"
#include "VantrelPreferences.h"

/// The log manager's configuration in a preference file. A malformed number raises EConvertError.
class TVantrelXMLLogPreferences final : public TVantrelLogPreferences {
 public:
  explicit TVantrelXMLLogPreferences(std::string fileName) : FStore(std::move(fileName), false) {}

  bool OpenKey(std::string_view path) override { return FStore.OpenKey(path, false); }
  int ReadInteger(std::string_view name) override { return FStore.ReadInteger(name, 0); }
  bool ReadBoolean(std::string_view name) override { return FStore.ReadBoolean(name, false); }
  std::string ReadString(std::string_view name) override { return FStore.ReadString(name, {}); }
  std::vector<std::string> GetValueNames() override;

 private:
  TVantrelXMLPreferences FStore;
};
