#pragma once

#include "VantrelStorage.h"
#include "VantrelVariant.h"

/// How a value of the storage module is stored.
enum class TStorageDataType { dstInt, dstString, dstBoolean };

/// A grid as far as its captions are stored.
struct TStoredGridView {
  struct TColumn {
    std::string Name;
    int Tag = 0;
    std::string Caption;
  };
  std::string Name;
  std::vector<TColumn> Columns;
};

/// What the columns of a grid are called unless the user has renamed them.
class TCustomLayout {
 public:
  virtual ~TCustomLayout() = default;
  virtual std::string DefaultCaption(int tag) const = 0;
};

/// The complete path, from the root of the registry on, of a form's own place in the store: "Software", the store's
/// path, `subdir` and `key`, with the version behind it from 1 on.
std::string GetStoragePath(const TVantrelStorage& storage, std::string_view key, std::string_view subdir, int version);

/// Owns the one store of the program's settings. The application kind chooses its path: 4 is this program.
class TStorageModule : public TVantrelObject {
 public:
  explicit TStorageModule(int applicationKind);
  ~TStorageModule() override;

  TVantrelStorage& Storage() { return FStorage; }

  std::string GetStoragePath(std::string_view key, std::string_view subdir, int version) const {
    return ::GetStoragePath(FStorage, key, subdir, version);
  }
  /// The captions of the columns.
  void StoreColumns(std::string_view key, const TStoredGridView& gridView);
  void RestoreColumns(std::string_view key, const TCustomLayout& layout, TStoredGridView& gridView);
  /// Of the data types only dstInt is served: the others store nothing and give an unassigned value.
  void StoreValue(std::string_view key, std::string_view name, const TVariant& value, TStorageDataType dataType);
  TVariant RestoreValue(std::string_view key, std::string_view name, TStorageDataType dataType);
  void StoreList(std::string_view key, std::string_view listName, std::string_view columnName,
                 std::string_view fieldName, const TVariant& value, TStorageDataType dataType);
  TVariant RestoreList(std::string_view key, std::string_view listName, std::string_view columnName,
                       std::string_view fieldName, const TVariant& defaultValue, TStorageDataType dataType);

 private:
  TVantrelStorage FStorage;
};

/// The storage module while there is one.
inline TStorageModule* StorageModule = nullptr;
