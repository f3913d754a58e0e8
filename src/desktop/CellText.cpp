#include "CellText.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace {
constexpr QChar ellipsis(0x2026);

bool IsBreak(QChar c) {
  return c == '\n' || c == '\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

QString WithBreaks(QString text, QChar sign) {
  text.replace("\r\n", "\n");
  std::replace_if(text.begin(), text.end(), IsBreak, sign);
  return text;
}
}  // namespace

TCellText::TCellText(const QString& text, const QFont& font, int width, int room, Qt::Alignment alignment)
    : FLayout(WithBreaks(text, QChar::LineSeparator), font) {
  QTextOption option(alignment & Qt::AlignHorizontal_Mask);
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  FLayout.setTextOption(option);
  LayOut(width, room);
  const auto last = FLayout.lineAt(FLayout.lineCount() - 1);
  FIsCut = last.textStart() + last.textLength() < FLayout.text().size();
  if (FIsCut) CutBehindLastLine(width, room);
}

void TCellText::LayOut(int width, int room) {
  qreal height = 0;
  FLayout.beginLayout();
  for (auto line = FLayout.createLine(); line.isValid(); line = FLayout.createLine()) {
    line.setLineWidth(width);
    line.setPosition({0, height});
    height += line.height();
    if (height + line.height() > room) break;
  }
  FLayout.endLayout();
  FHeight = static_cast<int>(std::ceil(height));
}

void TCellText::CutBehindLastLine(int width, int room) {
  const auto last = FLayout.lineAt(FLayout.lineCount() - 1);
  QString shown = InOneLine(FLayout.text().mid(last.textStart(), last.textLength()));
  while (shown.endsWith(' ')) shown.chop(1);
  // An advance is rounded: only what is narrower by a pixel surely stands in one line.
  const QFontMetrics metrics(FLayout.font());
  shown = metrics.elidedText(shown + ellipsis, Qt::ElideRight, width - 1);
  FLayout.setText(FLayout.text().left(last.textStart()) + shown);
  LayOut(width, room);
}

void TCellText::Draw(QPainter& painter, const QRect& area) const {
  FLayout.draw(&painter, area.topLeft() + QPoint(0, (area.height() - FHeight) / 2));
}

bool FitsInLine(const QString& text, const QFontMetrics& metrics, int width) {
  return std::ranges::none_of(text, IsBreak) && metrics.horizontalAdvance(text) < width;
}

QString InOneLine(const QString& text) {
  return WithBreaks(text, ' ');
}
