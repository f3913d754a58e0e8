#pragma once

#include <QTextLayout>

class QFontMetrics;
class QPainter;

/// A text as a cell shows it that has room for several lines: broken between words, within a word that is longer than a
/// line, and where the text itself breaks. Behind the last line that there is room for stands "…" if more follows.
class TCellText {
 public:
  /// `width` and `room`, the height, are in pixels. One line is shown however low the room is.
  TCellText(const QString& text, const QFont& font, int width, int room, Qt::Alignment alignment = Qt::AlignLeft);

  /// In pixels.
  int Height() const { return FHeight; }
  bool IsCut() const { return FIsCut; }
  /// In the middle of the area's height.
  void Draw(QPainter& painter, const QRect& area) const;

 private:
  void LayOut(int width, int room);
  void CutBehindLastLine(int width, int room);

  QTextLayout FLayout;
  int FHeight = 0;
  bool FIsCut = false;
};

/// The text stands in one line of that width in pixels.
bool FitsInLine(const QString& text, const QFontMetrics& metrics, int width);

/// The text with a blank for each break.
QString InOneLine(const QString& text);
