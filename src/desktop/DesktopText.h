#pragma once

#include <QPointer>

#include "MemoEdit.h"
#include "SpellMarks.h"
#include "fTextDialogUi.h"

/// A text of any number of lines in a memo, which belongs to its window.
class TDesktopText final : public TTextUi, private TEditorOwner {
 public:
  explicit TDesktopText(TMemoEdit& memo);
  TDesktopText(const TDesktopText&) = delete;
  TDesktopText& operator=(const TDesktopText&) = delete;
  ~TDesktopText() override { FMemo.SetOwner(nullptr); }

  TVariant Value() const override { return FMemo.Value(); }
  void SetValue(const TVariant& value) override { FMemo.SetValue(value); }
  void SetEnabled(bool enabled) override { FMemo.setEnabled(enabled); }
  void SetVisible(bool visible) override { FMemo.setVisible(visible); }
  void SetFocus() override { FMemo.setFocus(); }

  std::u16string Units() const override;
  std::size_t Cursor() const override { return static_cast<std::size_t>(FMemo.textCursor().position()); }
  void GotoEnd() override { FMemo.moveCursor(QTextCursor::End); }
  void Select(std::size_t start, std::size_t length) override;
  void Append(const std::string& text) override;
  void Replace(const std::vector<TSpellWord>& words, const std::string& by) override;
  void MarkMistakes(const TVantrelSpellChecker& checker) override;
  void RefreshMarks() override;

 private:
  void EditorChanged() override;

  TMemoEdit& FMemo;
  QPointer<TSpellMarks> FMarks;
};
