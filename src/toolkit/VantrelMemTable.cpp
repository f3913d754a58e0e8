#include "VantrelMemTable.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "ToolkitTexts.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "VantrelText.h"
#include "VantrelUtf16.h"

namespace {

/// Null, or what cannot be put in an order.
bool HasNoOrder(const TVariant& value) {
  return value.IsEmpty() || (value.Kind() != TVariantKind::Text && std::isnan(value.AsFloat()));
}

/// Whether `a` stands before `b`: null first, texts without regard to case, all else as numbers.
bool Before(const TVariant& a, const TVariant& b) {
  if (HasNoOrder(a) || HasNoOrder(b)) return HasNoOrder(a) && !HasNoOrder(b);
  if (a.Kind() == TVariantKind::Text) return CompareText(a.AsText(), b.AsText()) < 0;
  return a.AsFloat() < b.AsFloat();
}

/// As much of the text as fits into `units` UTF-16 units.
std::string Cut(std::string text, int units) {
  if (units <= 0 || text.size() <= static_cast<std::size_t>(units)) return text;
  const auto wide = Utf8ToUtf16(text);
  if (wide.size() <= static_cast<std::size_t>(units)) return text;
  return Utf16ToUtf8(wide.substr(0, WholeUnits(wide, static_cast<std::size_t>(units))));
}

bool IsNumber(TVantrelFieldType type) {
  return type >= TVantrelFieldType::ftInteger && type <= TVantrelFieldType::ftDateTime;
}

bool IsNumber(TVariantKind kind) {
  return kind >= TVariantKind::Integer && kind <= TVariantKind::DateTime;
}

auto HoldsValue(int field, const TVariant& value) {
  return [field, &value](const auto& row) { return (*row)[static_cast<std::size_t>(field)] == value; };
}

}  // namespace

TVantrelField::TVantrelField(TVantrelMemTable& table, int index, std::string_view name, TVantrelFieldType type,
                             int size, std::string_view displayLabel)
    : FTable(table),
      FIndex(index),
      FName(name),
      FType(type),
      FSize(size),
      FDisplayLabel(displayLabel.empty() ? name : displayLabel) {}

TVariant TVantrelField::Value() const {
  if (FTable.InEdit()) return FTable.FBuffer[static_cast<std::size_t>(FIndex)];
  return FTable.ValueAt(FTable.FCursor, FIndex);
}

void TVantrelField::SetValue(const TVariant& value) {
  if (!FTable.InEdit()) throw EVantrelException(ResourceText(ToolkitTexts::TableNotInEdit));
  FTable.FBuffer[static_cast<std::size_t>(FIndex)] = Convert(value);
  FTable.FModified = true;
}

std::string TVantrelField::DisplayTextOf(const TVariant& value) const {
  return OnGetText ? OnGetText(value) : value.AsTextOrEmpty();
}

TVariant TVantrelField::Convert(const TVariant& value) const {
  if (value.IsEmpty()) return TVariant::Null();
  switch (FType) {
    case TVantrelFieldType::ftInteger:
    case TVantrelFieldType::ftSmallInt:
      return value.AsInteger();
    case TVantrelFieldType::ftFloat:
      return value.AsFloat();
    case TVantrelFieldType::ftDateTime:
      return TVariant::DateTime(value.AsFloat());
    case TVantrelFieldType::ftBoolean:
      return value.AsBoolean();
    case TVantrelFieldType::ftText:
    case TVantrelFieldType::ftMemo:
    case TVantrelFieldType::ftGuid:
      break;
  }
  return Cut(value.AsText(), FSize);
}

TVantrelField& TVantrelMemTable::AddField(std::string_view name, TVantrelFieldType type, int size,
                                          std::string_view label) {
  if (Active()) throw EVantrelException(ResourceText(ToolkitTexts::TableOpen));
  const int index = static_cast<int>(FFields.size());
  return *FFields.emplace_back(std::make_unique<TVantrelField>(*this, index, name, type, size, label));
}

void TVantrelMemTable::ClearFields() {
  if (Active()) throw EVantrelException(ResourceText(ToolkitTexts::TableOpen));
  FFields.clear();
  FSortField = -1;
  FOnFilterRecord = nullptr;
}

TVantrelField* TVantrelMemTable::FindField(std::string_view name) const {
  const auto found =
      std::ranges::find(FFields, name, [](const auto& field) { return std::string_view(field->Name()); });
  return found == FFields.end() ? nullptr : found->get();
}

TVantrelField& TVantrelMemTable::FieldByName(std::string_view name) const {
  TVantrelField* field = FindField(name);
  if (field == nullptr) throw EVantrelException(FormatText(ToolkitTexts::FieldNotFound, name));
  return *field;
}

void TVantrelMemTable::Open() {
  if (Active()) return;
  FState = TVantrelTableState::tsBrowse;
  Notify(&TVantrelTableListener::DataChanged);
}

void TVantrelMemTable::Reopen() {
  Close();
  Open();
}

void TVantrelMemTable::Close() {
  if (!Active()) return;
  FState = TVantrelTableState::tsInactive;
  FModified = false;
  FView.clear();
  FRows.clear();
  FIndexes.clear();
  FCursor = -1;
  FBof = FEof = true;
  Notify(&TVantrelTableListener::DataChanged);
}

void TVantrelMemTable::RequireActive() const {
  if (!Active()) throw EVantrelException(ResourceText(ToolkitTexts::TableClosed));
}

void TVantrelMemTable::LeaveEdit() {
  RequireActive();
  if (!InEdit()) return;
  if (FModified)
    Post();
  else
    Cancel();
}

void TVantrelMemTable::Append() {
  LeaveEdit();
  FBuffer.assign(FFields.size(), TVariant::Null());
  FState = TVantrelTableState::tsInsert;
}

void TVantrelMemTable::AppendRow(std::initializer_list<std::pair<std::string_view, TVariant>> values) {
  Append();
  for (const auto& [field, value] : values) FieldByName(field).SetValue(value);
  Post();
}

void TVantrelMemTable::Edit() {
  RequireActive();
  if (InEdit()) return;
  if (FCursor < 0) throw EVantrelException(ResourceText(ToolkitTexts::TableNoRecord));
  FBuffer = *CurrentRow();
  FState = TVantrelTableState::tsEdit;
}

void TVantrelMemTable::Post() {
  if (!InEdit()) throw EVantrelException(ResourceText(ToolkitTexts::TableNotInEdit));
  const bool isNew = FState == TVantrelTableState::tsInsert;
  FState = TVantrelTableState::tsBrowse;
  FModified = false;
  if (isNew)
    PostNew();
  else
    PostChange();
  Notify(&TVantrelTableListener::DataChanged);
}

void TVantrelMemTable::PostNew() {
  const auto sorted = [this](const TRow& value, const std::unique_ptr<TRecord>& row) {
    const auto field = static_cast<std::size_t>(FSortField);
    return Before(value[field], (*row)[field]);
  };
  auto place = FSortField < 0 ? FRows.end() : std::upper_bound(FRows.begin(), FRows.end(), FBuffer, sorted);
  const bool atEnd = place == FRows.end();
  TRecord* row = FRows.insert(place, std::make_unique<TRecord>(std::move(FBuffer), ++FLastId))->get();
  if (!atEnd || FFiltered) {
    FIndexes.clear();
    RebuildView(row);
    return;
  }
  for (auto& [field, index] : FIndexes) AddToIndex(index, field, FRows.size() - 1);
  FView.push_back(row);
  FCursor = RecordCount() - 1;
  FBof = FEof = false;
}

void TVantrelMemTable::PostChange() {
  TRecord* row = CurrentRow();
  std::erase_if(FIndexes, [&](const auto& entry) {
    const auto field = static_cast<std::size_t>(entry.first);
    return !((*row)[field] == FBuffer[field]);
  });
  static_cast<TRow&>(*row) = std::move(FBuffer);
  if (FSortField >= 0) SortRows(FSortField, false);
  if (FSortField >= 0 || FFiltered) RebuildView(row);
}

void TVantrelMemTable::Cancel() {
  RequireActive();
  if (!InEdit()) return;
  FState = TVantrelTableState::tsBrowse;
  FModified = false;
  Notify(&TVantrelTableListener::DataChanged);
}

void TVantrelMemTable::Delete() {
  RequireActive();
  if (FState == TVantrelTableState::tsInsert) return Cancel();
  if (FCursor < 0) throw EVantrelException(ResourceText(ToolkitTexts::TableNoRecord));
  FState = TVantrelTableState::tsBrowse;
  FModified = false;
  const auto place = FView.begin() + FCursor;
  FRows.erase(std::ranges::find(FRows, *place, [](const auto& row) { return row.get(); }));
  FView.erase(place);
  FIndexes.clear();
  FCursor = std::min(FCursor, RecordCount() - 1);
  FBof = FEof = FView.empty();
  Notify(&TVantrelTableListener::DataChanged);
}

/// A target before the first or behind the last record stops there and shows in Bof and Eof.
void TVantrelMemTable::MoveTo(int cursor) {
  LeaveEdit();
  const int last = RecordCount() - 1, previous = FCursor;
  FBof = cursor < 0 || FView.empty();
  FEof = cursor > last || FView.empty();
  FCursor = std::clamp(cursor, std::min(0, last), last);
  if (FCursor != previous) Notify(&TVantrelTableListener::RecordMoved);
}

void TVantrelMemTable::First() {
  MoveTo(-1);
}

void TVantrelMemTable::Next() {
  LeaveEdit();
  MoveTo(FCursor + 1);
}

void TVantrelMemTable::SetRecNo(int recNo) {
  LeaveEdit();
  if (recNo >= 1 && recNo <= RecordCount()) MoveTo(recNo - 1);
}

bool TVantrelMemTable::Locate(std::string_view field, const TVariant& value) {
  LeaveEdit();
  const int index = FieldByName(field).Index();
  // Without a filter the view has the places of the rows.
  const std::size_t place =
      FFiltered ? static_cast<std::size_t>(std::ranges::find_if(FView, HoldsValue(index, value)) - FView.begin())
                : PlaceOf(index, value);
  if (place >= FView.size()) return false;
  MoveTo(static_cast<int>(place));
  return true;
}

TVariant TVantrelMemTable::Lookup(std::string_view keyField, const TVariant& value,
                                  std::string_view resultField) const {
  const std::size_t place = PlaceOf(FieldByName(keyField).Index(), value);
  const auto result = static_cast<std::size_t>(FieldByName(resultField).Index());
  return place < FRows.size() ? (*FRows[place])[result] : TVariant::Null();
}

/// Place in FRows of the first record whose field equals the value, or the number of records.
std::size_t TVantrelMemTable::PlaceOf(int field, const TVariant& value) const {
  if (!IsNumber(FFields[static_cast<std::size_t>(field)]->Type()) || !IsNumber(value.Kind()))
    return static_cast<std::size_t>(std::ranges::find_if(FRows, HoldsValue(field, value)) - FRows.begin());
  auto [entry, isNew] = FIndexes.try_emplace(field);
  TIndex& index = entry->second;
  if (isNew)
    for (std::size_t i = 0; i < FRows.size(); ++i) AddToIndex(index, field, i);
  const auto found = index.find(value.AsFloat());
  return found == index.end() ? FRows.size() : found->second;
}

void TVantrelMemTable::AddToIndex(TIndex& index, int field, std::size_t place) const {
  const TVariant& key = (*FRows[place])[static_cast<std::size_t>(field)];
  if (!key.IsNull()) index.emplace(key.AsFloat(), place);
}

TVariant TVantrelMemTable::ValueAt(int record, int field) const {
  if (record < 0 || record >= RecordCount() || field < 0 || field >= static_cast<int>(FFields.size()))
    return TVariant::Null();
  return (*FView[static_cast<std::size_t>(record)])[static_cast<std::size_t>(field)];
}

std::uint64_t TVantrelMemTable::RecordId(int record) const {
  return record < 0 || record >= RecordCount() ? 0 : FView[static_cast<std::size_t>(record)]->Id;
}

int TVantrelMemTable::RecordOf(std::uint64_t id) const {
  const auto place = std::ranges::find(FView, id, &TRecord::Id);
  return place == FView.end() ? -1 : static_cast<int>(place - FView.begin());
}

void TVantrelMemTable::Sort(std::string_view field, bool descending) {
  LeaveEdit();
  SortRows(FieldByName(field).Index(), descending);
  RebuildView(CurrentRow());
  Notify(&TVantrelTableListener::DataChanged);
}

void TVantrelMemTable::SortRows(int field, bool descending) {
  const auto place = static_cast<std::size_t>(field);
  std::ranges::stable_sort(FRows, [place, descending](const auto& a, const auto& b) {
    return descending ? Before((*b)[place], (*a)[place]) : Before((*a)[place], (*b)[place]);
  });
  FIndexes.clear();
}

void TVantrelMemTable::SetKeptSortedBy(std::string_view field) {
  FSortField = field.empty() ? -1 : FieldByName(field).Index();
  if (FSortField >= 0 && Active()) Sort(field);
}

void TVantrelMemTable::SetFiltered(bool filtered) {
  if (filtered == FFiltered) return;
  if (Active()) LeaveEdit();
  FFiltered = filtered;
  if (!Active()) return;
  RebuildView(CurrentRow());
  Notify(&TVantrelTableListener::DataChanged);
}

/// Fills the view anew, with `current` as the current record if it is there, else the first one.
void TVantrelMemTable::RebuildView(const TRow* current) {
  std::vector<TRecord*> view;
  view.reserve(FRows.size());
  for (const auto& row : FRows)
    if (Passes(*row)) view.push_back(row.get());
  FView = std::move(view);
  const auto place = std::find(FView.begin(), FView.end(), current);
  FCursor = place != FView.end() ? static_cast<int>(place - FView.begin()) : std::min(0, RecordCount() - 1);
  FBof = FEof = FView.empty();
}

void TVantrelMemTable::EnableControls() {
  if (FControlsDisabled == 0 || --FControlsDisabled > 0 || !std::exchange(FChangePending, false)) return;
  Notify(&TVantrelTableListener::DataChanged);
}

void TVantrelMemTable::Notify(TNotification notification) {
  if (FControlsDisabled > 0) {
    FChangePending = true;
    return;
  }
  for (TVantrelTableListener* listener : std::vector(FListeners))
    if (std::ranges::find(FListeners, listener) != FListeners.end()) (listener->*notification)();
}
