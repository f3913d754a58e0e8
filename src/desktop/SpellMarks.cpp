#include "SpellMarks.h"

#include <QPlainTextEdit>
#include <utility>

#include "DesktopLook.h"
#include "VantrelSpelling.h"

TSpellMarks::TSpellMarks(QPlainTextEdit& edit, const TVantrelSpellChecker& checker)
    : QSyntaxHighlighter(static_cast<QObject*>(edit.document())), FEdit(edit), FChecker(checker) {
  // Before the base hears of the change.
  connect(edit.document(), &QTextDocument::contentsChange, this,
          [this](int, int removed, int added) { FTypes = removed <= 1 && added <= 1; });
  setDocument(edit.document());
  connect(&edit, &QPlainTextEdit::cursorPositionChanged, this, [this] { CursorMoved(); });
}

bool TSpellMarks::IsBeingTyped(const QTextBlock& block, std::size_t start, std::size_t length) const {
  const auto cursor = FEdit.textCursor();
  const auto place = static_cast<std::size_t>(cursor.positionInBlock());
  return FTypes && cursor.block() == block && place > start && place <= start + length;
}

void TSpellMarks::highlightBlock(const QString& text) {
  QTextCharFormat mistake;
  mistake.setUnderlineStyle(QTextCharFormat::WaveUnderline);
  mistake.setUnderlineColor(WarningColour);
  const auto units =
      std::u16string_view(reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size()));
  for (const auto& word : FChecker.Mistakes(units)) {
    if (IsBeingTyped(currentBlock(), word.Start, word.Length)) {
      FHeld = currentBlock();
      FHeldStart = word.Start;
      FHeldLength = word.Length;
    } else {
      setFormat(static_cast<int>(word.Start), static_cast<int>(word.Length), mistake);
    }
  }
}

void TSpellMarks::CursorMoved() {
  if (!FHeld.isValid() || IsBeingTyped(FHeld, FHeldStart, FHeldLength)) return;
  FTypes = false;
  rehighlightBlock(std::exchange(FHeld, QTextBlock()));
}
