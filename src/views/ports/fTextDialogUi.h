#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "VantrelCommands.h"
#include "VantrelDialogs.h"
#include "VantrelGrid.h"
#include "VantrelSpelling.h"

/// A text of any number of lines that is edited and checked. Its places are UTF-16 units; the end of a line is one.
class TTextUi : public TVantrelFormItem {
 public:
  virtual std::u16string Units() const = 0;
  virtual std::size_t Cursor() const = 0;
  /// The cursor stands behind the last character.
  virtual void GotoEnd() = 0;
  /// Selects that part and brings it into sight.
  virtual void Select(std::size_t start, std::size_t length) = 0;
  /// These change the text as the user does, in one step that he can take back; what he types before and behind it is
  /// no part of it.
  virtual void Append(const std::string& text) = 0;
  virtual void Replace(const std::vector<TSpellWord>& words, const std::string& by) = 0;
  /// Marks what the checker, which outlives the text, calls a mistake, from now on and as the text changes.
  virtual void MarkMistakes(const TVantrelSpellChecker& checker) = 0;
  /// The checker knows other words.
  virtual void RefreshMarks() = 0;
};

enum class TTextDialogItem { SubjectText, PositionEdit, AttributeEdit, Text, StudentText, CountText };

/// A field above the text; without an editor it is only read.
struct TTextDialogField {
  TTextDialogItem Item;
  std::string Label;
  std::optional<TEditorDescription> Editor = {};
};

/// How a text dialog looks. What it consists of is the same for all of them.
struct TTextDialogDescription {
  std::string Title;
  std::string TextGroup;
  std::vector<TTextDialogField> Fields;
  std::string TextLabel;
  std::string CatalogGroup;
  bool SideBySide = false;  ///< the catalogue stands right of the text, else below it
  std::vector<TVantrelCommand*> Bar = {};
  std::vector<TVantrelCommand*> Foot = {};  ///< the first is the default button
};

/// The window of a text dialog: a bar of commands; a group with fields and the text, one with a line for searching and
/// the catalogue; a quiet line with two texts; a foot with buttons. 800 to 1024 by 600 to 768 pixels, on the centre of
/// the screen. It begins in the text.
class TTextDialogUi {
 public:
  virtual ~TTextDialogUi() = default;

  /// The window has its size and is about to be seen.
  std::function<void()> OnShow;
  /// Looks for words in the catalogue: from the focused row on, behind it (`step` 1) or before it (-1). False where no
  /// row has them.
  std::function<bool(const std::string& words, int step)> OnSearch;
  /// What the search has found is wanted.
  std::function<void()> OnSearchTaken;

  /// Once, before all else. The commands outlive the window.
  virtual void SetDescription(const TTextDialogDescription& description) = 0;
  virtual TVantrelModalForm& Form() = 0;
  virtual TVantrelFormItem& Item(TTextDialogItem item) = 0;
  virtual TTextUi& Text() = 0;
  virtual TVantrelGrid& Catalog() = 0;
  /// What the change appends and sets is one step, which the user takes back as he takes back what he has typed: the
  /// last step first, wherever in the window the keyboard is. What is set otherwise is no step.
  virtual void InOneStep(const std::function<void()>& change) = 0;
};
