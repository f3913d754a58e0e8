#pragma once

#include <QDialog>

class QListWidget;
class TVantrelGrid;

/// Shows and hides the columns that the user may choose, each change at once.
class TColumnChooser : public QDialog {
 public:
  TColumnChooser(TVantrelGrid& grid, QWidget* parent);
  QListWidget& List() { return *FList; }

 private:
  QListWidget* FList;
};
