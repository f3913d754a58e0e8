#pragma once

#include <cstdint>
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

/// How a preference file keeps names and values.
struct TPreferenceForm {
  /// The characters that delimit the names of a path.
  std::string_view Separators;
  /// The tag of the key of a name.
  std::string (*EncodeKey)(std::string_view name);
  /// The registry's way: the type stands beside the value, Float, Currency and DateTime are binary data, and what is
  /// not of the type that is asked for, or cannot be converted, counts as missing. Else all but binary values are
  /// texts, an empty one counts as missing, and one that cannot be converted raises.
  bool Typed;
};

/// A preference store in a preference file. A path that begins with a separator starts at the root, as an empty one
/// does, any other at the current key.
class TVantrelFilePreferences : public TVantrelAbstractPreferences {
 public:
  /// The path as last opened.
  const std::string& CurrentKey() const { return FCurrentKey; }
  bool Modified() const { return FFile.Modified(); }
  /// As TVantrelPreferenceFile.
  const std::string& Damage() const { return FFile.Damage(); }

  /// As TVantrelPreferenceFile::Flush.
  void FlushBuffer() override { FFile.Flush(); }
  void CloseKey() override;
  bool CreateKey(std::string_view path) override { return FileToChange().CreateKey(Resolve(path)); }
  bool DeleteKey(std::string_view path) override;
  bool DeleteValue(std::string_view name) override { return FileToChange().DeleteValue(FPath, name); }
  bool OpenKey(std::string_view path, bool canCreate) override;
  bool HasSubKeys() override { return !FFile.KeyTags(FPath).empty(); }
  bool KeyExists(std::string_view path) override { return FFile.KeyExists(Resolve(path)); }
  bool ValueExists(std::string_view name) override { return FFile.Read(FPath, name).has_value(); }
  void GetKeyNames(std::vector<std::string>& list) override;
  void GetValueNames(std::vector<std::string>& list) override { list = FFile.ValueNames(FPath); }
  std::size_t ReadBinary(std::string_view name, std::span<std::uint8_t> buffer) override;
  bool ReadBoolean(std::string_view name, bool defaultValue) override { return ReadInteger(name, defaultValue) != 0; }
  /// A null character for an empty text.
  char16_t ReadChar(std::string_view name, char16_t defaultValue) override;
  double ReadFloat(std::string_view name, double defaultValue) override;
  TCurrency ReadCurrency(std::string_view name, TCurrency defaultValue) override;
  std::int32_t ReadInteger(std::string_view name, std::int32_t defaultValue) override;
  TDateTime ReadDateTime(std::string_view name, TDateTime defaultValue) override;
  std::string ReadString(std::string_view name, std::string_view defaultValue) override;
  TGuid ReadGuid(std::string_view name, const TGuid& defaultValue) override;
  void WriteBinary(std::string_view name, std::span<const std::uint8_t> bytes) override;
  void WriteBoolean(std::string_view name, bool value) override { WriteInteger(name, value); }
  void WriteChar(std::string_view name, char16_t value) override;
  void WriteFloat(std::string_view name, double value) override;
  void WriteCurrency(std::string_view name, TCurrency value) override;
  void WriteInteger(std::string_view name, std::int32_t value) override;
  void WriteDateTime(std::string_view name, TDateTime value) override;
  void WriteString(std::string_view name, std::string_view value) override;
  void WriteGuid(std::string_view name, const TGuid& value) override;

 protected:
  TVantrelFilePreferences(std::string fileName, bool ignoreExisting, TPreferenceForm form)
      : FFile(std::move(fileName), ignoreExisting), FForm(form) {}

  /// The file, for those who change something.
  virtual TVantrelPreferenceFile& FileToChange() { return FFile; }
  bool HasChildren() const { return FFile.HasChildren(FPath); }

 private:
  TPreferencePath Resolve(std::string_view path) const;
  template <class T, class TParse>
  T Read(std::string_view name, std::string_view type, T defaultValue, TParse parse) const;
  template <class T>
  T ReadNumber(std::string_view name, T defaultValue, T (*parse)(std::string_view)) const;
  void Write(std::string_view name, std::string_view type, TPreferenceEntry entry);
  template <class T, class TMakeText>
  void WriteNumber(std::string_view name, T value, TMakeText makeText);

  TVantrelPreferenceFile FFile;
  TPreferenceForm FForm;
  std::string FCurrentKey;
  TPreferencePath FPath;
};

/// A preference store in an XML file, whose name ends in ".pref". Backslash and slash separate the names of a path
/// alike. A malformed number or GUID raises EConvertError on reading, a malformed date EVantrelDateTimeError.
class TVantrelXMLPreferences final : public TVantrelFilePreferences {
 public:
  /// As TVantrelPreferenceFile.
  TVantrelXMLPreferences(std::string fileName, bool ignoreExisting);

  /// Any child counts here, a value as well as a key.
  bool HasSubKeys() override { return HasChildren(); }
};
