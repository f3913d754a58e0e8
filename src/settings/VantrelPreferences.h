#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "VantrelClasses.h"
#include "VantrelDateTime.h"
#include "VantrelGraphics.h"
#include "VantrelGuid.h"
#include "VantrelPreferenceFile.h"

/// A tree of keys that hold named, typed values. Operations on values work on the current key, at first the root; names
/// compare without regard to case. A read gives the default where there is no such value; a write makes the value.
class TVantrelAbstractPreferences {
 public:
  virtual ~TVantrelAbstractPreferences() = default;

  /// Brings what was written to the disk.
  virtual void FlushBuffer() {}
  /// The root becomes the current key.
  virtual void CloseKey() = 0;
  /// Makes all missing keys of the path; true if the key exists afterwards. The current key stays.
  virtual bool CreateKey(std::string_view path) = 0;
  /// Removes the key with all below it. A current key that goes with it falls back to the root.
  virtual bool DeleteKey(std::string_view path) = 0;
  virtual bool DeleteValue(std::string_view name) = 0;
  /// Makes the key current. False, with nothing changed, if it is missing and not to be made.
  virtual bool OpenKey(std::string_view path, bool canCreate) = 0;
  virtual bool HasSubKeys() = 0;
  virtual bool KeyExists(std::string_view path) = 0;
  virtual bool ValueExists(std::string_view name) = 0;
  virtual void GetKeyNames(std::vector<std::string>& list) = 0;
  virtual void GetValueNames(std::vector<std::string>& list) = 0;
  /// Fills the buffer from its beginning; gives the number of bytes, 0 if there is no such value.
  virtual std::size_t ReadBinary(std::string_view name, std::span<std::uint8_t> buffer) = 0;
  virtual bool ReadBoolean(std::string_view name, bool defaultValue) = 0;
  virtual char16_t ReadChar(std::string_view name, char16_t defaultValue) = 0;
  virtual double ReadFloat(std::string_view name, double defaultValue) = 0;
  virtual TCurrency ReadCurrency(std::string_view name, TCurrency defaultValue) = 0;
  virtual std::int32_t ReadInteger(std::string_view name, std::int32_t defaultValue) = 0;
  virtual TDateTime ReadDateTime(std::string_view name, TDateTime defaultValue) = 0;
  virtual std::string ReadString(std::string_view name, std::string_view defaultValue) = 0;
  virtual TGuid ReadGuid(std::string_view name, const TGuid& defaultValue) = 0;
  virtual void WriteBinary(std::string_view name, std::span<const std::uint8_t> bytes) = 0;
  virtual void WriteBoolean(std::string_view name, bool value) = 0;
  virtual void WriteChar(std::string_view name, char16_t value) = 0;
  virtual void WriteFloat(std::string_view name, double value) = 0;
  virtual void WriteCurrency(std::string_view name, TCurrency value) = 0;
  virtual void WriteInteger(std::string_view name, std::int32_t value) = 0;
  virtual void WriteDateTime(std::string_view name, TDateTime value) = 0;
  virtual void WriteString(std::string_view name, std::string_view value) = 0;
  virtual void WriteGuid(std::string_view name, const TGuid& value) = 0;

  TVantrelColor ReadColor(std::string_view name, TVantrelColor defaultValue) { return ReadInteger(name, defaultValue); }
  void WriteColor(std::string_view name, TVantrelColor value) { WriteInteger(name, value); }
  /// A missing value, or one that is no font, leaves the font as it is.
  void ReadFont(std::string_view name, TVantrelFont& font);
  void WriteFont(std::string_view name, const TVantrelFont& font);
};

/// The keys of a preference file seen from a current key. The separators delimit the names of a path; a path that
/// begins with one starts at the root, as an empty one does, any other at the current key.
class TVantrelPreferenceKeys {
 public:
  using TEncode = std::string (*)(std::string_view name);

  TVantrelPreferenceKeys(std::shared_ptr<TVantrelPreferenceFile> file, std::string_view separators, TEncode encode)
      : FFile(std::move(file)), FSeparators(separators), FEncode(encode) {}

  TVantrelPreferenceFile& File() const { return *FFile; }
  const TPreferencePath& Path() const { return FPath; }
  /// The path as last opened.
  const std::string& CurrentKey() const { return FCurrentKey; }

  // As in TVantrelAbstractPreferences.
  void CloseKey();
  bool CreateKey(std::string_view path) { return FFile->CreateKey(Resolve(path)); }
  bool DeleteKey(std::string_view path);
  bool DeleteValue(std::string_view name) { return FFile->DeleteValue(FPath, name); }
  bool OpenKey(std::string_view path, bool canCreate);
  bool KeyExists(std::string_view path) const { return FFile->KeyExists(Resolve(path)); }
  bool ValueExists(std::string_view name) const { return FFile->Read(FPath, name).has_value(); }
  std::vector<std::string> KeyNames() const;
  std::vector<std::string> ValueNames() const { return FFile->ValueNames(FPath); }

 private:
  TPreferencePath Resolve(std::string_view path) const;

  std::shared_ptr<TVantrelPreferenceFile> FFile;
  std::string_view FSeparators;
  TEncode FEncode;
  std::string FCurrentKey;
  TPreferencePath FPath;
};

/// A preference store in an XML file, whose name ends in ".pref". Backslash and slash separate the names of a path
/// alike. A malformed number or GUID raises EConvertError on reading, a malformed date EVantrelDateTimeError.
class TVantrelXMLPreferences final : public TVantrelAbstractPreferences {
 public:
  /// As TVantrelPreferenceFile.
  TVantrelXMLPreferences(std::string fileName, bool ignoreExisting);

  const std::string& FileName() const { return FKeys.File().FileName(); }
  const std::string& CurrentKey() const { return FKeys.CurrentKey(); }
  bool Modified() const { return FKeys.File().Modified(); }
  const std::string& Damage() const { return FKeys.File().Damage(); }

  void FlushBuffer() override { FKeys.File().Flush(); }
  void CloseKey() override { FKeys.CloseKey(); }
  bool CreateKey(std::string_view path) override { return FKeys.CreateKey(path); }
  bool DeleteKey(std::string_view path) override { return FKeys.DeleteKey(path); }
  bool DeleteValue(std::string_view name) override { return FKeys.DeleteValue(name); }
  bool OpenKey(std::string_view path, bool canCreate) override { return FKeys.OpenKey(path, canCreate); }
  /// A value counts here as well as a key.
  bool HasSubKeys() override;
  bool KeyExists(std::string_view path) override { return FKeys.KeyExists(path); }
  bool ValueExists(std::string_view name) override { return FKeys.ValueExists(name); }
  void GetKeyNames(std::vector<std::string>& list) override { list = FKeys.KeyNames(); }
  void GetValueNames(std::vector<std::string>& list) override { list = FKeys.ValueNames(); }

  std::size_t ReadBinary(std::string_view name, std::span<std::uint8_t> buffer) override;
  bool ReadBoolean(std::string_view name, bool defaultValue) override;
  char16_t ReadChar(std::string_view name, char16_t defaultValue) override;
  double ReadFloat(std::string_view name, double defaultValue) override;
  TCurrency ReadCurrency(std::string_view name, TCurrency defaultValue) override;
  std::int32_t ReadInteger(std::string_view name, std::int32_t defaultValue) override;
  TDateTime ReadDateTime(std::string_view name, TDateTime defaultValue) override;
  std::string ReadString(std::string_view name, std::string_view defaultValue) override;
  TGuid ReadGuid(std::string_view name, const TGuid& defaultValue) override;
  void WriteBinary(std::string_view name, std::span<const std::uint8_t> bytes) override;
  void WriteBoolean(std::string_view name, bool value) override;
  void WriteChar(std::string_view name, char16_t value) override;
  void WriteFloat(std::string_view name, double value) override;
  void WriteCurrency(std::string_view name, TCurrency value) override;
  void WriteInteger(std::string_view name, std::int32_t value) override;
  void WriteDateTime(std::string_view name, TDateTime value) override;
  void WriteString(std::string_view name, std::string_view value) override;
  void WriteGuid(std::string_view name, const TGuid& value) override;

 private:
  /// Empty where the value or its text is missing.
  std::string Text(std::string_view name) const;
  template <class T>
  T Read(std::string_view name, const T& defaultValue, T (*parse)(std::string_view)) const;

  TVantrelPreferenceKeys FKeys;
};
