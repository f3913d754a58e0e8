#include "DesktopText.h"

#include <QTextBlock>

#include "QtText.h"

namespace {
void Span(QTextCursor& cursor, std::size_t start, std::size_t length) {
  cursor.setPosition(static_cast<int>(start));
  cursor.setPosition(static_cast<int>(start + length), QTextCursor::KeepAnchor);
}

/// A step of its own: Qt joins no change to one at which the text counts as unmodified.
class TTextStep {
 public:
  explicit TTextStep(QTextDocument& document) : FDocument(document) { FDocument.setModified(false); }
  TTextStep(const TTextStep&) = delete;
  TTextStep& operator=(const TTextStep&) = delete;
  ~TTextStep() { FDocument.setModified(false); }

 private:
  QTextDocument& FDocument;
};
}  // namespace

TDesktopText::TDesktopText(TMemoEdit& memo) : FMemo(memo) {
  FMemo.SetOwner(this);
}

void TDesktopText::EditorChanged() {
  if (const auto handler = OnChange) handler();
}

std::u16string TDesktopText::Units() const {
  std::u16string units;
  for (auto block = FMemo.document()->begin(); block.isValid(); block = block.next()) {
    if (block.blockNumber() > 0) units += u'\n';
    units += block.text().toStdU16String();
  }
  return units;
}

void TDesktopText::Select(std::size_t start, std::size_t length) {
  auto cursor = FMemo.textCursor();
  Span(cursor, start, length);
  FMemo.setTextCursor(cursor);
  FMemo.ensureCursorVisible();
}

void TDesktopText::Append(const std::string& text) {
  const TTextStep step(*FMemo.document());
  auto cursor = FMemo.textCursor();
  cursor.movePosition(QTextCursor::End);
  cursor.insertText(FromUtf8(text));
  FMemo.setTextCursor(cursor);
  FMemo.ensureCursorVisible();
}

void TDesktopText::Replace(const std::vector<TSpellWord>& words, const std::string& by) {
  const TTextStep step(*FMemo.document());
  auto cursor = FMemo.textCursor();
  cursor.beginEditBlock();
  for (auto word = words.rbegin(); word != words.rend(); ++word) {
    Span(cursor, word->Start, word->Length);
    cursor.insertText(FromUtf8(by));
  }
  cursor.endEditBlock();
}

void TDesktopText::MarkMistakes(const TVantrelSpellChecker& checker) {
  delete FMarks;
  FMarks = new TSpellMarks(FMemo, checker);
}

void TDesktopText::RefreshMarks() {
  if (FMarks != nullptr) FMarks->rehighlight();
}
