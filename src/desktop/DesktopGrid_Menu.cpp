// The menu of the grid: what can be done with the column and the value of the focused cell.
#include <QMenu>

#include "ColumnChooser.h"
#include "DesktopGrid.h"
#include "DesktopTexts.h"
#include "QtText.h"

void TDesktopGrid::AddSortActions(QMenu& menu, int ordinal) {
  const auto add = [&](const char* text, TGridSortOrder order) {
    return menu.addAction(UserText(text), this, [this, ordinal, order] { SortBy(ordinal, order, false); });
  };
  add(DesktopTexts::SortAscending, TGridSortOrder::Ascending);
  add(DesktopTexts::SortDescending, TGridSortOrder::Descending);
  if (!FModel.Options().SortedByView)
    add(DesktopTexts::SortOff, TGridSortOrder::None)
        ->setEnabled(!ColumnsInOrder(Columns(), &TGridColumn::SortIndex).empty());
  menu.addSeparator();
}

void TDesktopGrid::AddFilterActions(QMenu& menu, int ordinal) {
  if (FFocused >= 0) {
    const QString text = FModel.Data().DisplayText(FFocused, ordinal);
    const QString shown = text.isEmpty() ? UserText(DesktopTexts::EmptyValue) : text;
    menu.addAction(
        UserText(DesktopTexts::FilterByCell).arg(shown.left(40).replace('&', "&&")), this, [this, ordinal, shown] {
          const QString caption = FromUtf8(FModel.Data().Column(ordinal).Caption);
          FilterByUser(ordinal, Value(FFocused, ordinal), UserText(DesktopTexts::FilterItem).arg(caption, shown));
        });
  }
  menu.addAction(UserText(DesktopTexts::FilterOff), this, [this] { LiftFilter(); })->setEnabled(IsFilteredByUser());
  menu.addSeparator();
}

void TDesktopGrid::AddColumnActions(QMenu& menu, int ordinal) {
  if (FModel.Options().Grouping) {
    const int groups = static_cast<int>(ColumnsInOrder(Columns(), &TGridColumn::GroupIndex).size());
    const auto& column = FModel.Data().Column(ordinal);
    menu.addAction(UserText(DesktopTexts::GroupBy), this, [this, ordinal, groups] { GroupColumn(ordinal, groups); })
        ->setEnabled(column.GroupIndex < 0);
    menu.addAction(UserText(DesktopTexts::Ungroup), this,
                   [this] {
                     BeginUpdate();
                     for (int i = 0; i < FModel.Data().ColumnCount(); ++i) GroupColumn(i, -1);
                     EndUpdate();
                   })
        ->setEnabled(groups > 0);
    menu.addSeparator();
  }
  if (FModel.Options().Chooser) {
    menu.addAction(UserText(DesktopTexts::HideColumn), this, [this, ordinal] { ShowColumn(ordinal, false); })
        ->setEnabled(FModel.Data().Column(ordinal).InChooser);
    menu.addAction(UserText(DesktopTexts::ChooseColumns), this, [this] { TColumnChooser(*this, this).exec(); });
  }
  menu.addAction(UserText(DesktopTexts::BestFit), this, [this, ordinal] { BestFit(ordinal); });
  menu.addAction(UserText(DesktopTexts::BestFitAll), this, [this] {
    BeginBestFit();
    BestFitAll();
    EndBestFit();
  });
}

void TDesktopGrid::ShowMenu(const QPoint& place) {
  const int ordinal = FView->VisibleColumn(FFocusedColumn);
  if (ordinal < 0) return;
  QMenu menu;
  if (FModel.Options().Sorting) AddSortActions(menu, ordinal);
  if (FModel.Options().Filtering) AddFilterActions(menu, ordinal);
  AddColumnActions(menu, ordinal);
  menu.exec(FView->viewport()->mapToGlobal(place));
}
