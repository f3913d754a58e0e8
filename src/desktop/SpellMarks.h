#pragma once

#include <QSyntaxHighlighter>
#include <QTextBlock>

class QPlainTextEdit;
class TVantrelSpellChecker;

/// Draws a wavy line under the mistakes of a text, without changing the text. The word that is being typed is not
/// marked until the cursor leaves it.
class TSpellMarks : public QSyntaxHighlighter {
 public:
  /// Belongs to the text's document; the checker outlives it.
  TSpellMarks(QPlainTextEdit& edit, const TVantrelSpellChecker& checker);

 protected:
  void highlightBlock(const QString& text) override;

 private:
  bool IsBeingTyped(const QTextBlock& block, std::size_t start, std::size_t length) const;
  void CursorMoved();

  const QPlainTextEdit& FEdit;
  const TVantrelSpellChecker& FChecker;
  bool FTypes = false;  ///< the last change was one of a single character
  QTextBlock FHeld;     ///< where the word stands that is being typed
  std::size_t FHeldStart = 0, FHeldLength = 0;
};
