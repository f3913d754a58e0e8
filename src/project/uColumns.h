#pragma once

#include "VantrelDataList.h"
#include "VantrelMemTable.h"
#include "uFields.h"

/// Bits of TColumn::Customization.
enum TColumnCustomizationType : std::uint8_t { ccVisibility = 0, ccEditability = 1 };

class TColumn;
extern template class TVantrelRecordOf<TColumn>;

/// What the central system says of one data field: caption, visibility, editability.
class TColumn : public TVantrelRecordOf<TColumn> {
 public:
  static constexpr std::string_view ClassName = "TColumn";
  using TVantrelRecordOf::TVantrelRecordOf;

  std::string Fieldname;
  std::string Displayname;
  /// Set of TColumnCustomizationType as one byte; only carried.
  std::uint8_t Customization = 0;
  bool Editable = false;
  bool Visible = false;
  /// A column of an achievement grid; otherwise a field of the certificate data page.
  bool GridColumn = false;

  /// The caption given by the school, or else the standard one.
  const std::string& Customname() const { return FCustomname.empty() ? Displayname : FCustomname; }
  void SetCustomname(std::string value) { FCustomname = std::move(value); }

  void DoClear() override;

 private:
  friend TVantrelRecordOf<TColumn>;
  static constexpr auto FieldTable();

  std::string FCustomname;
};

/// The data fields that the file tells of. One that it does not tell is neither seen nor changed.
class TColumns : public TVantrelDataListOf<TColumn> {
 public:
  using TVantrelDataListOf::Find;
  using TVantrelDataListOf::TVantrelDataListOf;

  /// The first column of that field name without regard to case, or null.
  TColumn* Find(std::string_view fieldname) const;
  /// False also for a field that has no column.
  bool IsEditable(std::string_view fieldname) const;
  bool IsVisible(std::string_view fieldname) const;
  /// New lists that do not own their items.
  TVantrelPtr<TColumns> GridItems() const { return ItemsBy(true); }
  TVantrelPtr<TColumns> NonGridItems() const { return ItemsBy(false); }
  TColumn* AddColumn(std::string_view fieldname, std::string_view displayname, bool editable, bool visible,
                     bool gridColumn, std::uint8_t customization);
  /// Appends a column per row of an open table; the row's "Customname" becomes the Displayname.
  void AssignFromData(TVantrelMemTable& dataSet);
  /// Closes and opens the table and appends a row per column; "Customname" receives the Displayname.
  void Populate(TVantrelMemTable& memData) const;

 private:
  TVantrelPtr<TColumns> ItemsBy(bool gridColumn) const;
};
