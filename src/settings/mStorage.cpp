#include "mStorage.h"

#include <fmt/format.h>

#include "VantrelText.h"

using enum TStorageDataType;

namespace {

constexpr int MyTessaronKind = 4;
constexpr const char* Caption = "Caption";

template <class... TParts>
std::string Path(std::string_view first, const TParts&... rest) {
  std::string path(first);
  ((path = Join(path, rest, "\\")), ...);
  return path;
}

std::string ColumnKey(std::string_view key, const TStoredGridView& gridView, const TStoredGridView::TColumn& column) {
  return Path(key, fmt::format("{}.{}", key, gridView.Name), column.Name);
}

}  // namespace

std::string GetStoragePath(const TVantrelStorage& storage, std::string_view key, std::string_view subdir, int version) {
  return Path("Software", storage.StoragePath(), subdir,
              version < 1 ? std::string(key) : fmt::format("{}.{}", key, version));
}

TStorageModule::TStorageModule(int applicationKind) {
  if (applicationKind == MyTessaronKind) FStorage.SetStoragePath(Path(ProductNames::Vendor, ProductNames::Own));
  FStorage.SetActive(true);
  StorageModule = this;
}

TStorageModule::~TStorageModule() {
  StorageModule = nullptr;
}

void TStorageModule::StoreColumns(std::string_view key, const TStoredGridView& gridView) {
  for (const auto& column : gridView.Columns)
    FStorage.WriteString(ColumnKey(key, gridView, column), Caption, column.Caption);
}

void TStorageModule::RestoreColumns(std::string_view key, const TCustomLayout& layout, TStoredGridView& gridView) {
  for (auto& column : gridView.Columns)
    column.Caption = FStorage.ReadString(ColumnKey(key, gridView, column), Caption, layout.DefaultCaption(column.Tag));
}

void TStorageModule::StoreValue(std::string_view key, std::string_view name, const TVariant& value,
                                TStorageDataType dataType) {
  if (dataType == dstInt) FStorage.WriteInteger(key, name, value.AsInteger());
}

TVariant TStorageModule::RestoreValue(std::string_view key, std::string_view name, TStorageDataType dataType) {
  return dataType == dstInt ? TVariant(FStorage.ReadInteger(key, name, 0)) : TVariant();
}

void TStorageModule::StoreList(std::string_view key, std::string_view listName, std::string_view columnName,
                               std::string_view fieldName, const TVariant& value, TStorageDataType dataType) {
  const auto place = Path(key, listName, fieldName);
  switch (dataType) {
    case dstInt:
      return FStorage.WriteInteger(place, columnName, value.AsInteger());
    case dstString:
      return FStorage.WriteString(place, columnName, value.AsText());
    case dstBoolean:
      return FStorage.WriteBoolean(place, columnName, value.AsBoolean());
  }
}

TVariant TStorageModule::RestoreList(std::string_view key, std::string_view listName, std::string_view columnName,
                                     std::string_view fieldName, const TVariant& defaultValue,
                                     TStorageDataType dataType) {
  const auto place = Path(key, listName, fieldName);
  switch (dataType) {
    case dstInt:
      return FStorage.ReadInteger(place, columnName, defaultValue.AsInteger());
    case dstString:
      return FStorage.ReadString(place, columnName, defaultValue.AsText());
    case dstBoolean:
      return FStorage.ReadBoolean(place, columnName, defaultValue.AsBoolean());
  }
  return {};
}
