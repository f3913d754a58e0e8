#pragma once

#include <QHeaderView>

class TGridModel;

/// Column headers: centred, with the arrows of all sorted columns.
class TGridHeader : public QHeaderView {
 public:
  TGridHeader(const TGridModel& model, QWidget* parent);
  /// Room for the captions: in one line, or in as many as they need where the options say so.
  void FitHeight();

 protected:
  void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override;
  /// Room for the whole caption in one line.
  QSize sectionSizeFromContents(int section) const override;

 private:
  /// The caption as it fits its section.
  QString CaptionOf(int section) const;
  /// What a section holds beside its caption, in pixels.
  int Padding(int section) const;

  const TGridModel& FModel;
};

/// The row indicator: an arrow at the focused row.
class TGridIndicator : public QHeaderView {
 public:
  explicit TGridIndicator(QWidget* parent);

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int section) const override;
  QSize sectionSizeFromContents(int section) const override;
};
