#include "VantrelLogSettings.h"

#include "VantrelPreferences.h"

namespace {
class TLogPreferences final : public TVantrelLogPreferences {
 public:
  explicit TLogPreferences(const std::string& fileName) : FStore(fileName, false) {}

  bool OpenKey(std::string_view path) override { return FStore.OpenKey(path, false); }
  int ReadInteger(std::string_view name) override { return FStore.ReadInteger(name, 0); }
  bool ReadBoolean(std::string_view name) override { return FStore.ReadBoolean(name, false); }
  std::string ReadString(std::string_view name) override { return FStore.ReadString(name, {}); }
  std::vector<std::string> GetValueNames() override {
    std::vector<std::string> names;
    FStore.GetValueNames(names);
    return names;
  }

 private:
  TVantrelXMLPreferences FStore;
};
}  // namespace

void ConfigureLogs(TVantrelLogManager& manager, const std::string& fileName) {
  TLogPreferences preferences(fileName);
  manager.SelfConfiguration(preferences);
}
