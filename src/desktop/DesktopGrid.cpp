#include "DesktopGrid.h"

#include <QApplication>
#include <QBoxLayout>
#include <QLabel>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "DesktopTexts.h"
#include "FilterLine.h"
#include "GridHeaders.h"
#include "QtText.h"

TDesktopGrid::TDesktopGrid(QWidget* parent)
    : QWidget(parent),
      FModel(*this),
      FView(new TGridView(FModel, *this)),
      FSelection(*FView),
      FInfo(new QLabel),
      FFilterLine(new TFilterLine([this] { LiftFilter(); })) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(FView);
  layout->addWidget(FInfo);
  layout->addWidget(FFilterLine);
  FInfo->setMargin(3);
  FInfo->setTextFormat(Qt::PlainText);
  FInfo->hide();
  setFocusProxy(FView);
  FView->OnSearch = [this] { ShowInfo(); };
  FView->OnRowsChange = [this] { Rebuild(); };
  FSelection.OnChange = [this] {
    if (OnSelectionChanged) OnSelectionChanged();
  };
  FView->OnCurrent = [this](const QModelIndex& current) { Current(current); };
  FView->OnMenu = [this](const QPoint& place) { ShowMenu(place); };
  FView->OnLiftFilter = [this] { return LiftFilter(); };
  auto* header = &FView->Header();
  connect(header, &QHeaderView::sectionClicked, this,
          [this](int ordinal) { ClickHeader(ordinal, (QApplication::keyboardModifiers() & Qt::ShiftModifier) != 0); });
  header->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(header, &QHeaderView::customContextMenuRequested, this, [this, header](const QPoint& place) {
    FocusColumn(header->SectionAt(place.x()));
    ShowMenu(QPoint(place.x(), 0));
  });
}

TDesktopGrid::~TDesktopGrid() {
  if (FModel.Data().Table() != nullptr) FModel.Data().Table()->RemoveListener(this);
  FView->OnCurrent = nullptr;
  FSelection.OnChange = nullptr;
  FView->selectionModel()->disconnect(FView);
  // The view goes before the model that it shows.
  delete FView;
}

void TDesktopGrid::Release() {
  BeginUpdate();
  BindTable(nullptr);
  ClearColumns();
  // One of them may be running: they go with the widget.
  connect(this, &QObject::destroyed,
          [focus = std::exchange(OnFocusChanged, nullptr), rows = std::exchange(OnRowsChanged, nullptr),
           editing = std::exchange(OnEditing, nullptr), edit = std::exchange(OnEditChanged, nullptr),
           started = std::exchange(OnEditStarted, nullptr), reverted = std::exchange(OnEditReverted, nullptr),
           ended = std::exchange(OnEditEnded, nullptr),
           key = std::exchange(OnKeyDown, nullptr), click = std::exchange(OnDoubleClick, nullptr),
           column = std::exchange(OnColumnChanged, nullptr), first = std::exchange(OnFirstKey, nullptr),
           selection = std::exchange(OnSelectionChanged, nullptr), header = std::exchange(OnHeaderClick, nullptr),
           sort = std::exchange(OnSortChanged, nullptr), text = std::exchange(OnDisplayText, nullptr)] {});
}

void TDesktopGrid::SetOptions(const TGridOptions& options) {
  FModel.Options() = options;
  FView->ApplyOptions();
  Rebuild();
}

void TDesktopGrid::SetName(const std::string& name) {
  FView->setAccessibleName(FromUtf8(name));
  setAccessibleName(FromUtf8(name));
}

void TDesktopGrid::BindSource(TVantrelGridSource* source) {
  BeginUpdate();
  if (FModel.Data().Table() != nullptr) FModel.Data().Table()->RemoveListener(this);
  FModel.Data().BindSource(source);
  FSelection.Forget();
  FKeepsFocus = false;
  FFocusedId = 0;
  EndUpdate();
}

void TDesktopGrid::BindTable(TVantrelMemTable* table) {
  BeginUpdate();
  if (FModel.Data().Table() != nullptr) FModel.Data().Table()->RemoveListener(this);
  FModel.Data().BindTable(table);
  FSelection.Forget();
  if (table != nullptr) table->AddListener(this);
  FKeepsFocus = false;
  FFocusedId = 0;
  EndUpdate();
}

void TDesktopGrid::DataChanged() {
  Rebuild();
}

void TDesktopGrid::RecordMoved() {
  if (FUpdates > 0 || FRestoring) return;
  const int row = FModel.RowNear(FModel.Data().Table()->RecNo() - 1);
  if (row >= 0 && row != FView->currentIndex().row()) FView->GotoCell(row, FFocusedColumn);
  SetFocused(FModel.RecordAt(FView->currentIndex().row()));
}

void TDesktopGrid::BeginUpdate() {
  // The editor goes with the rows; what stands in it is not lost.
  if (FUpdates == 0) FView->PostEditor();
  if (FUpdates++ > 0) return;
  FView->CellEdit().End();
  FOldRow = FView->currentIndex().row();
  FHadKeyboard = FView->IsKeyboardIn();
  FRestoring = true;
  FSelection.Suspend();
  FModel.Suspend();
}

void TDesktopGrid::EndUpdate() {
  if (--FUpdates > 0) return;
  FModel.Resume();
  FView->ApplyColumns();
  RestoreFocus();
  RestoreSelection();
  FKeepsFocus = true;
  FRestoring = false;
  // An editor that was open has gone, and the keyboard with it.
  if (FHadKeyboard) FView->setFocus();
  ShowInfo();
  SetFocused(FModel.RecordAt(FView->currentIndex().row()));
  if (OnRowsChanged) OnRowsChanged();
}

void TDesktopGrid::RestoreFocus() {
  const auto* table = FModel.Data().Table();
  const int wanted = table != nullptr ? table->RecNo() - 1 : FKeepsFocus ? FFocused : -1;
  if (wanted < 0) return;
  const int row = FModel.RowNear(wanted);
  // A record that has gone hands the focus to the one in its place.
  FView->GotoCell(row >= 0 ? row : std::min(FOldRow, FModel.rowCount() - 1), FFocusedColumn);
}

void TDesktopGrid::RestoreSelection() {
  const auto idAt = [this](int row) { return FModel.Data().RecordId(FModel.RecordAt(row)); };
  bool stays = FFocusedId != 0;
  // Another record than the one that has the focus still, though it is shown: the selection follows.
  for (int row = 0; row < FModel.rowCount() && stays; ++row)
    stays = idAt(row) != FFocusedId || row == FView->currentIndex().row();
  FSelection.Resume(stays);
}

void TDesktopGrid::SetFocused(int record) {
  FFocusedId = FModel.Data().RecordId(record);
  const int previous = std::exchange(FFocused, record);
  auto* table = FModel.Data().Table();
  if (table != nullptr && record >= 0 && table->RecNo() != record + 1) table->SetRecNo(record + 1);
  if (record != previous && OnFocusChanged) OnFocusChanged(previous, record);
}

void TDesktopGrid::SetFocusedColumn(int ordinal) {
  if (std::exchange(FFocusedColumn, ordinal) != ordinal && OnColumnChanged) OnColumnChanged(ordinal);
}

void TDesktopGrid::Current(const QModelIndex& current) {
  if (current.isValid()) SetFocusedColumn(current.column());
  if (!FRestoring) SetFocused(FModel.RecordAt(current.row()));
}

int TDesktopGrid::AddColumn(TGridColumn column) {
  BeginUpdate();
  FModel.Data().Columns.push_back(std::move(column));
  EndUpdate();
  return FModel.Data().ColumnCount() - 1;
}

void TDesktopGrid::ClearColumns() {
  BeginUpdate();
  FModel.Data().Columns.clear();
  FModel.Filter.clear();
  EndUpdate();
}

void TDesktopGrid::ShowColumn(int ordinal, bool visible) {
  FModel.Data().Column(ordinal).Visible = visible;
  if (FUpdates > 0) return;
  FView->ApplyColumns();
  if (FView->currentIndex().isValid()) FView->GotoCell(FView->currentIndex().row(), FFocusedColumn);
}

void TDesktopGrid::GiveWidth(int ordinal, int width) {
  FModel.Data().Column(ordinal).Width = width;
  FModel.Data().Column(ordinal).TakesRest = false;
}

void TDesktopGrid::SetColumnWidth(int ordinal, int width) {
  GiveWidth(ordinal, width);
  if (FUpdates == 0) FView->ApplyColumns();
}

void TDesktopGrid::SetColumnSort(int ordinal, TGridSortOrder order, int sortIndex) {
  BeginUpdate();
  auto& column = FModel.Data().Column(ordinal);
  column.SortOrder = order;
  column.SortIndex = order == TGridSortOrder::None ? -1 : std::max(sortIndex, 0);
  EndUpdate();
}

void TDesktopGrid::GroupColumn(int ordinal, int groupIndex) {
  BeginUpdate();
  FModel.Data().Column(ordinal).GroupIndex = groupIndex;
  EndUpdate();
}

void TDesktopGrid::ClickHeader(int ordinal, bool adds) {
  if (!FModel.Options().Sorting) return;
  const bool turns = FModel.Data().Column(ordinal).SortOrder == TGridSortOrder::Ascending;
  SortBy(ordinal, turns ? TGridSortOrder::Descending : TGridSortOrder::Ascending,
         adds && !FModel.Options().SortedByView);
}

void TDesktopGrid::SortBy(int ordinal, TGridSortOrder order, bool adds) {
  auto& columns = FModel.Data().Columns;
  const int places = static_cast<int>(ColumnsInOrder(columns, &TGridColumn::SortIndex).size());
  const int ownPlace = FModel.Data().Column(ordinal).SortIndex;
  BeginUpdate();
  for (int i = 0; i < FModel.Data().ColumnCount() && !adds; ++i) SetColumnSort(i, TGridSortOrder::None, -1);
  SetColumnSort(ordinal, order, !adds ? 0 : ownPlace >= 0 ? ownPlace : places);
  EndUpdate();
  MakeRoomForArrow(ordinal);
  if (OnHeaderClick) OnHeaderClick(ordinal);
  if (OnSortChanged) OnSortChanged();
}

/// A caption that was shown whole is so beside its arrow, too.
void TDesktopGrid::MakeRoomForArrow(int ordinal) {
  const int wanted = FView->horizontalHeader()->sectionSizeHint(ordinal), width = FView->columnWidth(ordinal);
  const auto& column = FModel.Data().Column(ordinal);
  const bool wasWhole = width >= wanted - TGridHeader::ArrowWidth && width < wanted;
  if (wasWhole && column.SortOrder != TGridSortOrder::None && !column.TakesRest)
    SetColumnWidth(ordinal, FView->FromPixels(wanted));
}

std::string TDesktopGrid::DisplayText(int record, int ordinal) const {
  return ToUtf8(FModel.Data().DisplayText(record, ordinal));
}

std::vector<TGridShownRow> TDesktopGrid::ShownRows() const {
  std::vector<TGridShownRow> rows;
  for (const auto& row : FModel.OpenedRows()) rows.push_back({row.Record, row.Level, ToUtf8(row.Text)});
  return rows;
}

std::vector<int> TDesktopGrid::ShownColumns() const {
  std::vector<int> ordinals;
  const auto* header = FView->horizontalHeader();
  for (int visual = 0; visual < header->count(); ++visual)
    if (const int ordinal = header->logicalIndex(visual); FModel.Data().Column(ordinal).Visible)
      ordinals.push_back(ordinal);
  return ordinals;
}

void TDesktopGrid::FocusRecord(int record) {
  if (FModel.OpenGroupsOf(record)) Rebuild();
  const int row = FModel.RowOf(record);
  if (row >= 0 && row != FView->currentIndex().row()) FView->GotoCell(row, FFocusedColumn);
}

void TDesktopGrid::FocusColumn(int ordinal) {
  if (ordinal < 0) return;
  SetFocusedColumn(ordinal);
  if (FView->currentIndex().isValid()) FView->GotoCell(FView->currentIndex().row(), ordinal);
}

void TDesktopGrid::GotoFirst() {
  FView->GotoCell(FView->NextRow(-1, 1), FFocusedColumn);
}

void TDesktopGrid::GotoPrev() {
  FView->MoveRow(-1);
}

void TDesktopGrid::GotoNext() {
  FView->MoveRow(1);
}

void TDesktopGrid::GotoLast() {
  FView->GotoCell(FView->NextRow(FModel.rowCount(), -1), FFocusedColumn);
}

void TDesktopGrid::ShowInfo() {
  const QString search = FView->SearchText();
  FInfo->setText(search.isEmpty() ? search : UserText(DesktopTexts::Search).arg(search));
  FInfo->setVisible(!search.isEmpty());
  QString filter;
  if (const auto active = FModel.ActiveFilter(); !active.empty()) {
    QStringList items;
    for (const auto& item : active) items << item.DisplayText;
    const auto shown = std::ranges::count_if(FModel.OpenedRows(), [](const auto& row) { return row.Record >= 0; });
    // Items of the view are told in whole words.
    filter = UserText(active.front().OfUser ? DesktopTexts::UserFilterLine : DesktopTexts::FilterLine)
                 .arg(items.join(", "), QString::number(shown), QString::number(RecordCount()));
  }
  FFilterLine->Tell(filter, IsFilteredByUser());
}

QWidget& TDesktopGrid::FilterLine() {
  return *FFilterLine;
}
