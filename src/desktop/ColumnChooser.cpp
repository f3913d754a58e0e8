#include "ColumnChooser.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QListWidget>

#include "DesktopTexts.h"
#include "QtText.h"
#include "VantrelGrid.h"

TColumnChooser::TColumnChooser(TVantrelGrid& grid, QWidget* parent) : QDialog(parent), FList(new QListWidget) {
  setWindowTitle(UserText(DesktopTexts::ColumnChooser));
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(FList);
  FList->setAccessibleName(windowTitle());
  for (std::size_t i = 0; i < grid.Columns().size(); ++i) {
    const auto& column = grid.Columns()[i];
    if (!column.InChooser) continue;
    auto* item = new QListWidgetItem(FromUtf8(column.Caption), FList);
    item->setCheckState(column.Visible ? Qt::Checked : Qt::Unchecked);
    item->setData(Qt::UserRole, static_cast<int>(i));
  }
  FList->setCurrentRow(0);
  connect(FList, &QListWidget::itemChanged, this, [&grid](const QListWidgetItem* item) {
    grid.ShowColumn(item->data(Qt::UserRole).toInt(), item->checkState() == Qt::Checked);
  });
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  layout->addWidget(buttons);
  resize(300, 400);
}
