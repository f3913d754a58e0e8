#pragma once

#include <memory>

#include "VantrelCommands.h"
#include "VantrelDialogs.h"
#include "VantrelSpelling.h"
#include "fSpellingUi.h"
#include "fTextDialogUi.h"

/// A full check of one text, mistake by mistake: from the cursor on to the end, then from the beginning.
class TSpellCheck {
 public:
  /// All of it outlives the check.
  TSpellCheck(TVantrelSpellChecker& checker, TTextUi& text, TVantrelWaitCursor& waitCursor);
  TSpellCheck(const TSpellCheck&) = delete;
  TSpellCheck& operator=(const TSpellCheck&) = delete;

  /// Runs until all is checked or the user ends it in the window. A box says that it is complete, or that there is no
  /// dictionary to check with.
  void Run(const std::function<std::unique_ptr<TCorrectionUi>()>& createUi);

 private:
  std::optional<TSpellWord> NextMistake();
  void ShowMistake();
  /// Goes on behind that place; the window ends where there is no further mistake.
  void GoOn(std::size_t from);
  void Replace(const std::vector<TSpellWord>& words);
  void Change();
  void ChangeAll();
  void Ignore() { GoOn(FMistake.Start + FMistake.Length); }
  void IgnoreAll();
  void AddWord();

  TVantrelSpellChecker& FChecker;
  TTextUi& FText;
  TVantrelWaitCursor& FWaitCursor;
  TVantrelCommands FCommands;
  TCorrectionUi* FUi = nullptr;
  TSpellWord FMistake;
  std::size_t FFrom = 0;    ///< where to look for the next one
  std::size_t FOrigin = 0;  ///< where the check began
  bool FFromBeginning = false;
};
