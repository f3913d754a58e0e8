#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "VantrelClasses.h"
#include "VantrelVariant.h"

class TVantrelMemTable;

enum class TVantrelFieldType { ftText, ftMemo, ftInteger, ftSmallInt, ftFloat, ftDateTime, ftBoolean, ftGuid };
enum class TVantrelTableState { tsInactive, tsBrowse, tsEdit, tsInsert };

/// A named field of a table. Its value is that of the table's current record, or of the record being edited.
class TVantrelField {
 public:
  /// Made by TVantrelMemTable::AddField.
  TVantrelField(TVantrelMemTable& table, int index, std::string_view name, TVantrelFieldType type, int size,
                std::string_view displayLabel);

  const std::string& Name() const { return FName; }
  const std::string& DisplayLabel() const { return FDisplayLabel; }
  TVantrelFieldType Type() const { return FType; }
  /// Place in the table, from 0.
  int Index() const { return FIndex; }

  /// Null where the table has no current record.
  TVariant Value() const;
  /// Stores the value as the field's type; a text that is too long is cut. Raises EConvertError for what does not
  /// convert, EVantrelException where the table is not being edited.
  void SetValue(const TVariant& value);
  bool IsNull() const { return Value().IsNull(); }
  /// What the user reads for a value: OnGetText if it is set, else the value as text.
  std::string DisplayTextOf(const TVariant& value) const;

  std::function<std::string(const TVariant& value)> OnGetText;

 private:
  TVariant Convert(const TVariant& value) const;

  TVantrelMemTable& FTable;
  int FIndex;
  std::string FName;
  TVantrelFieldType FType;
  int FSize;
  std::string FDisplayLabel;
};

/// Is told what happens to a table.
class TVantrelTableListener {
 public:
  virtual ~TVantrelTableListener() = default;
  /// Another record is the current one.
  virtual void RecordMoved() = 0;
  /// Records were posted, deleted, sorted or filtered, or the table was opened or closed. The current record may be
  /// another.
  virtual void DataChanged() = 0;
};

/// A table in memory with named fields and a current record. Records hold TVariants; an empty value is null.
/// Operations on a closed table and unknown field names raise EVantrelException. Moving away from a record that is
/// being edited posts it if it was changed, else drops the edit.
class TVantrelMemTable : public TVantrelObject {
 public:
  using TRow = std::vector<TVariant>;
  /// Judges a record; its values go by the field's Index.
  using TFilterRecord = std::function<bool(const TRow& row)>;

  /// Adds a field to a closed table. Names are told apart by case. No label means the name.
  TVantrelField& AddField(std::string_view name, TVantrelFieldType type, int size = 0, std::string_view label = {});
  /// Takes all fields out of a closed table, the sort and the filter callback with them.
  void ClearFields();
  const std::vector<std::unique_ptr<TVantrelField>>& Fields() const { return FFields; }
  TVantrelField* FindField(std::string_view name) const;
  TVantrelField& FieldByName(std::string_view name) const;

  /// Both leave the table empty.
  void Open();
  void Close();
  /// Closes and opens the table.
  void Reopen();
  bool Active() const { return FState != TVantrelTableState::tsInactive; }
  bool CanModify() const { return Active(); }
  TVantrelTableState State() const { return FState; }
  bool InEdit() const { return FState == TVantrelTableState::tsEdit || FState == TVantrelTableState::tsInsert; }
  /// The record being edited was changed.
  bool Modified() const { return FModified; }

  /// Starts a new record, which Post puts at the end or where the kept sort wants it.
  void Append();
  /// Appends and posts a record with these values, each by the name of its field.
  void AppendRow(std::initializer_list<std::pair<std::string_view, TVariant>> values);
  /// Starts a change of the current record.
  void Edit();
  void Post();
  void Cancel();
  /// Deletes the current record, or drops the new one. The next record becomes the current one.
  void Delete();

  void First();
  void Next();
  /// True after First, and in an empty table.
  bool Bof() const { return FBof; }
  /// True after Next at the last record, and in an empty table.
  bool Eof() const { return FEof; }
  /// Records that pass the filter.
  int RecordCount() const { return static_cast<int>(FView.size()); }
  /// Place of the current record from 1 on; 0 if there is none.
  int RecNo() const { return FCursor + 1; }
  /// A number outside 1 to RecordCount is nothing.
  void SetRecNo(int recNo);

  /// Moves to the first record whose field equals the value; stays and answers false if there is none.
  bool Locate(std::string_view field, const TVariant& value);
  /// The result field of the first record whose key field equals the value, whether it passes the filter or not; null
  /// if there is none.
  TVariant Lookup(std::string_view keyField, const TVariant& value, std::string_view resultField) const;
  /// A posted value by record (from 0, among those that pass the filter) and field index; null outside.
  TVariant ValueAt(int record, int field) const;

  /// A number that stays with the record as long as it is in the table, and is never given to another one; 0 outside.
  std::uint64_t RecordId(int record) const;
  /// The place of the record of that number from 0 on, among those that pass the filter; -1 if it is not there.
  int RecordOf(std::uint64_t id) const;

  /// Sorts the records once, equal ones staying in order, texts without regard to case, null first.
  void Sort(std::string_view field, bool descending = false);
  /// Keeps the records in ascending order of a field; an empty name ends that.
  void SetKeptSortedBy(std::string_view field);
  /// The callback is asked when Filtered goes on and at every Post while it is.
  void SetOnFilterRecord(TFilterRecord onFilterRecord) { FOnFilterRecord = std::move(onFilterRecord); }
  bool Filtered() const { return FFiltered; }
  void SetFiltered(bool filtered);

  /// Listeners are not owned. One that is removed is not called any more.
  void AddListener(TVantrelTableListener* listener) { FListeners.push_back(listener); }
  void RemoveListener(TVantrelTableListener* listener) { std::erase(FListeners, listener); }
  /// A bracket that can be nested: listeners hear nothing within, and DataChanged at its end if anything happened.
  void DisableControls() { ++FControlsDisabled; }
  void EnableControls();

 private:
  friend class TVantrelField;
  using TIndex = std::unordered_map<double, std::size_t>;
  struct TRecord : TRow {
    TRecord(TRow&& values, std::uint64_t id) : TRow(std::move(values)), Id(id) {}
    const std::uint64_t Id;
  };
  using TNotification = void (TVantrelTableListener::*)();

  void RequireActive() const;
  void LeaveEdit();
  void MoveTo(int cursor);
  void SortRows(int field, bool descending);
  void RebuildView(const TRow* current);
  bool Passes(const TRow& row) const { return !FFiltered || !FOnFilterRecord || FOnFilterRecord(row); }
  void PostNew();
  void PostChange();
  TRecord* CurrentRow() const { return FCursor < 0 ? nullptr : FView[static_cast<std::size_t>(FCursor)]; }
  std::size_t PlaceOf(int field, const TVariant& value) const;
  void AddToIndex(TIndex& index, int field, std::size_t place) const;
  void Notify(TNotification notification);

  std::vector<std::unique_ptr<TVantrelField>> FFields;
  /// All records in their order, and those of them that pass the filter.
  std::vector<std::unique_ptr<TRecord>> FRows;
  std::vector<TRecord*> FView;
  std::uint64_t FLastId = 0;
  /// First place in FRows by value, per number field that was looked for.
  mutable std::unordered_map<int, TIndex> FIndexes;
  TRow FBuffer;
  int FCursor = -1;
  bool FBof = true;
  bool FEof = true;
  TVantrelTableState FState = TVantrelTableState::tsInactive;
  bool FModified = false;
  int FSortField = -1;
  TFilterRecord FOnFilterRecord;
  bool FFiltered = false;
  std::vector<TVantrelTableListener*> FListeners;
  int FControlsDisabled = 0;
  bool FChangePending = false;
};
