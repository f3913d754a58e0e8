#pragma once

#include <map>

#include "VantrelSettings.h"

/// Settings that last as long as the program runs.
class TVantrelMemSettings : public TVantrelSettings {
 public:
  std::string ReadString(const std::string& key, const std::string& name, const std::string& defaultValue) override {
    const auto found = FTexts.find({key, name});
    return found == FTexts.end() ? defaultValue : found->second;
  }
  std::int32_t ReadInteger(const std::string& key, const std::string& name, std::int32_t defaultValue) override {
    const auto found = FNumbers.find({key, name});
    return found == FNumbers.end() ? defaultValue : found->second;
  }
  void WriteString(const std::string& key, const std::string& name, const std::string& value) override {
    FTexts[{key, name}] = value;
  }
  void WriteInteger(const std::string& key, const std::string& name, std::int32_t value) override {
    FNumbers[{key, name}] = value;
  }

 private:
  std::map<std::pair<std::string, std::string>, std::string> FTexts;
  std::map<std::pair<std::string, std::string>, std::int32_t> FNumbers;
};
