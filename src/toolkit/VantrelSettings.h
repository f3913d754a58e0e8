#pragma once

#include <cstdint>
#include <string>

/// The user's settings as windows and views need them: values under a key, whose parts are joined by backslashes, and a
/// name. Keys are relative to the program's own place in the store.
class TVantrelSettings {
 public:
  virtual ~TVantrelSettings() = default;

  /// The default where there is no such value. Never raises.
  virtual std::string ReadString(const std::string& key, const std::string& name, const std::string& defaultValue) = 0;
  virtual std::int32_t ReadInteger(const std::string& key, const std::string& name, std::int32_t defaultValue) = 0;
  /// A failure to write raises EVantrelException.
  virtual void WriteString(const std::string& key, const std::string& name, const std::string& value) = 0;
  virtual void WriteInteger(const std::string& key, const std::string& name, std::int32_t value) = 0;
};
