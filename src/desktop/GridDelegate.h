#pragma once

#include <QStyledItemDelegate>

#include "CellText.h"

class TGridModel;
class TGridView;

/// Paints the cells and makes their editors. Keys of an open editor go to the view first.
class TGridDelegate : public QStyledItemDelegate {
 public:
  explicit TGridDelegate(TGridView& view);

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
  void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const override;

  /// The part of a cell's inside that its text takes. Rows are measured by it too.
  static QRect TextArea(const QRect& cell);
  /// The text as that part shows it in a row that follows its content.
  static TCellText InArea(const QString& text, const QFont& font, const QRect& area, Qt::Alignment alignment);
  /// What a row is higher than its text, in pixels.
  static constexpr int LinePadding = 8;

  /// Commits unless `revert`, and closes.
  void Finish(QWidget* editor, bool revert);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  TGridModel& Model() const;

  TGridView& FView;
};
