#include "uColumns.h"

#include "VantrelText.h"
#include "uFields.h"

constexpr auto TColumn::FieldTable() {
  using namespace Fields;
  return std::tuple(String("Fieldname", &TColumn::Fieldname), String("Displayname", &TColumn::Displayname),
                    String("Customname", &TColumn::FCustomname), Byte("Customization", &TColumn::Customization),
                    Boolean("Editable", &TColumn::Editable), Boolean("Visible", &TColumn::Visible),
                    Boolean("GridColumn", &TColumn::GridColumn));
}

template class TVantrelRecordOf<TColumn>;

void TColumn::DoClear() {
  const bool gridColumn = GridColumn;
  TVantrelRecordOf::DoClear();
  GridColumn = gridColumn;
}

TColumn* TColumns::Find(std::string_view fieldname) const {
  for (int i = 0; i < Count(); ++i)
    if (SameText(GetItem(i)->Fieldname, fieldname)) return GetItem(i);
  return nullptr;
}

bool TColumns::IsEditable(std::string_view fieldname) const {
  const auto* column = Find(fieldname);
  return column != nullptr && column->Editable;
}

bool TColumns::IsVisible(std::string_view fieldname) const {
  const auto* column = Find(fieldname);
  return column != nullptr && column->Visible;
}

TVantrelPtr<TColumns> TColumns::ItemsBy(bool gridColumn) const {
  auto items = CreateVantrel<TColumns>(false);
  for (int i = 0; i < Count(); ++i)
    if (GetItem(i)->GridColumn == gridColumn) items->Add(GetItem(i));
  return items;
}

TColumn* TColumns::AddColumn(std::string_view fieldname, std::string_view displayname, bool editable, bool visible,
                             bool gridColumn, std::uint8_t customization) {
  auto* column = AddNew();
  column->Fieldname = fieldname;
  column->Displayname = displayname;
  column->Editable = editable;
  column->Visible = visible;
  column->GridColumn = gridColumn;
  column->Customization = customization;
  return column;
}

void TColumns::AssignFromData(TVantrelMemTable& dataSet) {
  if (!dataSet.Active() || dataSet.RecordCount() == 0) return;
  for (dataSet.First(); !dataSet.Eof(); dataSet.Next()) {
    const auto text = [&](std::string_view field) { return dataSet.FieldByName(field).Value().AsTextOrEmpty(); };
    const auto value = [&](std::string_view field) {
      return text(field).empty() ? TVariant(false) : dataSet.FieldByName(field).Value();
    };
    AddColumn(text("Fieldname"), text("Customname"), value("Editable").AsBoolean(), value("Visible").AsBoolean(),
              value("GridColumn").AsBoolean(), static_cast<std::uint8_t>(value("Customization").AsInteger()));
  }
}

void TColumns::Populate(TVantrelMemTable& memData) const {
  memData.Reopen();
  for (int i = 0; i < Count(); ++i) {
    const auto* column = GetItem(i);
    memData.AppendRow({{"Fieldname", column->Fieldname},
                       {"Displayname", column->Displayname},
                       {"Customname", column->Displayname},
                       {"Visible", column->Visible},
                       {"Editable", column->Editable},
                       {"GridColumn", column->GridColumn},
                       {"Customization", std::int32_t{column->Customization}}});
  }
}
