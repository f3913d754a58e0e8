#include "uListPane.h"

#include <algorithm>
#include <utility>

#include "VantrelI18n.h"
#include "ViewTexts.h"
#include "uCXUtils.h"
#include "uUpdates.h"

using enum TDataMode;

namespace {

using TModeScope = TVantrelScopedValue<TDataMode>;

TValueKind ValueKindOf(const TListField& field) {
  if (field.OnGetText) return TValueKind::Text;
  if (field.Type == TVantrelFieldType::ftInteger || field.Type == TVantrelFieldType::ftSmallInt)
    return TValueKind::Integer;
  return field.Type == TVantrelFieldType::ftDateTime ? TValueKind::Date : TValueKind::Text;
}

}  // namespace

TListPane::TListPane(TGridPaneUi& ui, TListPaneSettings settings) : FUi(ui) {
  auto& grid = FUi.Grid();
  grid.SetOptions(settings.Options);
  grid.SetName(settings.Label);
  for (const auto& field : settings.Fields) AddField(settings, field);
  FTable.Open();
  grid.BindTable(&FTable);
  const auto focused = std::ranges::find(grid.Columns(), settings.FocusedField, &TGridColumn::Field);
  if (focused != grid.Columns().end()) grid.FocusColumn(static_cast<int>(focused - grid.Columns().begin()));

  grid.OnFocusChanged = [this](int, int) { Tell(TListChange::Record); };
  grid.OnRowsChanged = [this] { Tell(TListChange::Rows); };
  grid.OnHeaderClick = [this](int ordinal) { RememberSortProps(ordinal); };
  grid.OnSortChanged = [this] { SortByData(); };
}

void TListPane::AddField(const TListPaneSettings& settings, const TListField& field) {
  FTable.AddField(field.Name, field.Type, field.Size).OnGetText = field.OnGetText;
  TGridColumn column;
  column.Id = "col_" + settings.Name + "_" + field.Name;
  column.Caption = field.Caption;
  column.Editor.ValueKind = ValueKindOf(field);
  column.Width = field.Width;
  column.Visible = column.InChooser = field.Shown;
  column.TakesRest = field.TakesRest;
  column.Field = field.Name;
  FUi.Grid().AddColumn(std::move(column));
}

void TListPane::Tell(TListChange change) {
  if (FMode == dmBrowse && OnChange) OnChange(change);
}

void TListPane::Fill(const std::function<void(TVantrelMemTable&)>& populate) {
  const TModeScope filling(FMode, dmFill, dmBrowse);
  {
    const TTableUpdate update(FTable);
    populate(FTable);
  }
  UpdateCount();
  TCXUtils::GotoFirst(FUi.Grid());
}

void TListPane::UpdateCount() {
  FUi.Status().SetValue(FormatText(ViewTexts::Count, FTable.RecordCount()));
}

void TListPane::SetValues(std::string_view field, const std::function<TVariant(const TVariant&)>& value) {
  const int id = FTable.FieldByName("ID").Index(), index = FTable.FieldByName(field).Index();
  const TModeScope updating(FMode, dmUpdate, FMode);
  const TTableUpdate update(FTable);
  const int current = FTable.RecNo();
  for (int record = 0; record < FTable.RecordCount(); ++record) {
    const auto wanted = value(FTable.ValueAt(record, id));
    if (wanted == FTable.ValueAt(record, index)) continue;
    FTable.SetRecNo(record + 1);
    FTable.Edit();
    FTable.FieldByName(field).SetValue(wanted);
    FTable.Post();
  }
  if (FTable.RecNo() != current) FTable.SetRecNo(current);
}

bool TListPane::FocusId(const TVariant& id) {
  const int field = FTable.FieldByName("ID").Index();
  for (int record = 0; record < FTable.RecordCount(); ++record)
    if (FTable.ValueAt(record, field) == id) return TCXUtils::FocusRecord(FUi.Grid(), record);
  return false;
}

void TListPane::RestoreLayout(std::string_view layout) {
  {
    auto& grid = FUi.Grid();
    const TModeScope filling(FMode, dmFill, dmBrowse);
    if (!layout.empty()) grid.RestoreLayout(layout);
    const auto& columns = grid.Columns();
    const auto sorted = std::ranges::find(columns, 0, &TGridColumn::SortIndex);
    if (sorted != columns.end()) {
      RememberSortProps(static_cast<int>(sorted - columns.begin()));
      SortByData();
      TCXUtils::GotoFirst(grid);
    }
  }
  Tell(TListChange::Record);
}

void TListPane::RememberSortProps(int ordinal) {
  const auto& column = FUi.Grid().Columns()[static_cast<std::size_t>(ordinal)];
  FSort.Values(column.Field, ordinal, column.SortIndex, static_cast<TSortOrder>(column.SortOrder), true);
}

void TListPane::SortByData() {
  if (FSort.Name.empty()) return;
  const TTableUpdate update(FTable);
  FTable.Sort(FSort.Name, FSort.SortOrder == TSortOrder::soDescending);
}
