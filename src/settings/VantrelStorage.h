#pragma once

#include "ProductNames.h"
#include "VantrelRegistryPreferences.h"

/// Which store, and whose: that of the machine or that of the user.
enum class TVantrelStorageLocation { cslRegistry, cslXML };
enum class TVantrelStorageType { cstSystem, cstUser };

/// One named store of settings: values of a key and a name below the program's own place in a preference store. While
/// the store is not active, or the key is missing, a read gives the default; writes to a store that is not active are
/// dropped, and one that fails raises EVantrelException. In the registry a read never raises.
class TVantrelStorage : public TVantrelPersistent {
 public:
  bool Active() const { return FStorage != nullptr; }
  void SetActive(bool active);
  void SetLocation(TVantrelStorageLocation location);
  void SetStorageType(TVantrelStorageType type);
  /// The ".pref" file of the location cslXML; empty for the one that goes with StoragePath and StorageType.
  const std::string& CustomXMLFile() const { return FCustomXMLFile; }
  void SetCustomXMLFile(std::string fileName);
  /// The program's path in the store, without separators at its ends.
  const std::string& StoragePath() const { return FStoragePath; }
  void SetStoragePath(std::string_view path);

  /// Why the stored settings could not be read, as the user may read it; empty if they could.
  const std::string& Damage() const { return FDamage; }
  /// Brings what was written to the disk. Gives what the user has to know where that fails, else nothing. Also happens
  /// when the store is closed, where a failure is lost.
  std::string TryFlush();
  /// The key, as reads and writes want it, of a complete path below the store's own place.
  std::string KeyOf(std::string_view completePath) const;

#define VANTREL_STORAGE_VALUE(Type, CppType)                                                           \
  CppType Read##Type(std::string_view key, std::string_view name, CppType defaultValue) {              \
    return Read(key, defaultValue, [&](auto& store) { return store.Read##Type(name, defaultValue); }); \
  }                                                                                                    \
  void Write##Type(std::string_view key, std::string_view name, CppType value) {                       \
    Write(key, [&](auto& store) { store.Write##Type(name, value); });                                  \
  }
  VANTREL_STORAGE_VALUE(Boolean, bool)
  VANTREL_STORAGE_VALUE(Char, char16_t)
  VANTREL_STORAGE_VALUE(Float, double)
  VANTREL_STORAGE_VALUE(Currency, TCurrency)
  VANTREL_STORAGE_VALUE(Integer, std::int32_t)
  VANTREL_STORAGE_VALUE(DateTime, TDateTime)
  VANTREL_STORAGE_VALUE(Guid, TGuid)
  VANTREL_STORAGE_VALUE(Color, TVantrelColor)
#undef VANTREL_STORAGE_VALUE
  std::string ReadString(std::string_view key, std::string_view name, std::string_view defaultValue);
  void WriteString(std::string_view key, std::string_view name, std::string_view value);
  /// As TVantrelAbstractPreferences.
  std::size_t ReadBinary(std::string_view key, std::string_view name, std::span<std::uint8_t> buffer);
  void WriteBinary(std::string_view key, std::string_view name, std::span<const std::uint8_t> bytes);
  void ReadFont(std::string_view key, std::string_view name, TVantrelFont& font);
  void WriteFont(std::string_view key, std::string_view name, const TVantrelFont& font);

  /// Reads or writes a published property of the component, or of an object behind its properties: the parts of the
  /// path are joined by backslashes. A path that leads nowhere is passed over, and so is a stored value that the
  /// property does not take.
  void ReadProperty(std::string_view key, std::string_view name, TVantrelObject& component, std::string_view path);
  void WriteProperty(std::string_view key, std::string_view name, TVantrelObject& component, std::string_view path);

 protected:
  /// Makes the store for the present settings.
  virtual std::unique_ptr<TVantrelAbstractPreferences> OpenStore();

 private:
  void Reopen();
  TVantrelRegistryRoot Root() const;
  /// The file of the store for the present settings.
  std::string FileName() const;
  template <class T, class TAct>
  T Read(std::string_view key, T defaultValue, TAct read) {
    if (!Active() || !FStorage->OpenKey(FStorageKeyPrefix + std::string(key), false)) return defaultValue;
    const TOpenKey open{*FStorage};
    return read(*FStorage);
  }
  template <class TAct>
  void Write(std::string_view key, TAct write) {
    if (!Active() || !FStorage->OpenKey(FStorageKeyPrefix + std::string(key), true)) return;
    const TOpenKey open{*FStorage};
    write(*FStorage);
  }
  struct TOpenKey {
    TVantrelAbstractPreferences& Store;
    ~TOpenKey() { Store.CloseKey(); }
  };

  std::string FCustomXMLFile;
  TVantrelStorageLocation FLocation = TVantrelStorageLocation::cslRegistry;
  std::unique_ptr<TVantrelAbstractPreferences> FStorage;
  std::string FStorageKeyPrefix;
  std::string FStoragePath = ProductNames::Path({ProductNames::Vendor, "MyModule"}, '\\');
  TVantrelStorageType FStorageType = TVantrelStorageType::cstUser;
  std::string FDamage;
};

/// A text without backslashes and slashes at its ends.
std::string TrimSeparators(std::string_view path);
