#pragma once

#include <QHeaderView>

class TGridModel;

/// Column headers: centred, with the arrows of all sorted columns. The frozen leading columns stay while the others
/// scroll, as long as they leave these half the room.
class TGridHeader : public QHeaderView {
 public:
  TGridHeader(const TGridModel& model, QWidget* parent);
  /// What the arrow of a sorted column takes, in pixels.
  static constexpr int ArrowWidth = 16;
  /// Room for the captions: in one line, or in as many as they need where the options say so.
  void FitHeight();
  /// The room in pixels that frozen columns cover; 0 while nothing is scrolled away.
  int FrozenWidth() const;
  /// Whether a column stands still in this moment.
  bool IsFrozen(int section) const;
  /// The column at a place of the viewport, -1 if there is none.
  int SectionAt(int x) const { return logicalIndexAt(x - ShiftAt(x)); }

 protected:
  bool viewportEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override;
  /// Room for the whole caption in one line.
  QSize sectionSizeFromContents(int section) const override;

 private:
  /// The caption as it fits its section.
  QString CaptionOf(int section) const;
  /// What a section holds beside its caption, in pixels.
  int Padding(int section) const;
  /// How far right of its place in the row of columns that is shown which stands at this place of the viewport.
  int ShiftAt(int x) const { return x < FrozenWidth() ? offset() : 0; }

  const TGridModel& FModel;
  int FPressedShift = 0;
};

/// The row indicator: an arrow at the focused row.
class TGridIndicator : public QHeaderView {
 public:
  explicit TGridIndicator(QWidget* parent);

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int section) const override;
  QSize sectionSizeFromContents(int section) const override;
};
