#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "VantrelXmlDocument.h"

/// The way to a key: the tags from the root down, compared without regard to case.
using TPreferencePath = std::vector<std::string>;

/// A value as it stands in a preference file.
struct TPreferenceEntry {
  std::optional<std::string> Value = {};  ///< attribute "Value"
  std::string Content = {};               ///< text of the element: binary values in Base64
  std::string Type = {};                  ///< attribute "Type": what kind of value the registry keeps; else empty
};

/// A tree of keys and values in an XML file: root element "Preferences", a key is an element, a value an element
/// "Entry" with a "Name". Changes show at once and reach the file with Flush, which takes up what other programs have
/// written in the meantime: only the keys and values that were changed here are changed there.
class TVantrelPreferenceFile {
 public:
  /// A missing file is an empty tree, and so is one that is not to be read, because it is unreadable or damaged (see
  /// Damage) or by `ignoreExisting`. With an empty name the tree lasts as long as the object.
  TVantrelPreferenceFile(std::string fileName, bool ignoreExisting);
  TVantrelPreferenceFile(const TVantrelPreferenceFile&) = delete;
  TVantrelPreferenceFile& operator=(const TVantrelPreferenceFile&) = delete;
  /// Flushes; what that raises is lost.
  ~TVantrelPreferenceFile();

  /// There are changes that the file lacks.
  bool Modified() const { return !FChanges.empty(); }
  /// Why an existing file could not be read at the beginning, as the user may read it; empty if it could.
  const std::string& Damage() const { return FDamage; }

  /// The questions answer for a missing key as for an empty one.
  bool KeyExists(const TPreferencePath& key) const;
  /// Any node below it: keys, values, or what else stands in the file.
  bool HasChildren(const TPreferencePath& key) const;
  std::vector<std::string> KeyTags(const TPreferencePath& key) const;
  std::vector<std::string> ValueNames(const TPreferencePath& key) const;
  std::optional<TPreferenceEntry> Read(const TPreferencePath& key, std::string_view name) const;

  /// False for a key too deep below the root to be read again.
  bool CreateKey(const TPreferencePath& key);
  /// With all below it. False for the root and for a missing key.
  bool DeleteKey(const TPreferencePath& key);
  void Write(const TPreferencePath& key, std::string_view name, const TPreferenceEntry& entry);
  /// False if there is no such value.
  bool DeleteValue(const TPreferencePath& key, std::string_view name);

  /// Writes the changes; the bytes of a damaged file are kept beside it. Raises EVantrelFileHandleError if the file
  /// cannot be read or written; the changes are kept then.
  void Flush();

 private:
  using TChange = std::function<void(TXmlElement root)>;
  void Change(TChange change);
  TXmlDocument ReadAnew() const;

  std::string FFileName;
  bool FIgnoreExisting;
  std::string FDamage;
  TXmlDocument FDocument;
  std::vector<TChange> FChanges;
};

/// A key name as a tag: the letters, digits and signs of an XML name stand for themselves, every other UTF-16 unit and
/// an underscore that would look like one of these as "_xHHHH_".
std::string EncodeKeyTag(std::string_view name);
std::string DecodeKeyTag(std::string_view tag);
