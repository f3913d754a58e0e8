#include "fSpellCheck.h"

#include <algorithm>
#include <vector>

#include "DialogTexts.h"
#include "VantrelI18n.h"
#include "VantrelMsgBox.h"
#include "VantrelText.h"
#include "fBaseView.h"

namespace {
using TUnits = std::u16string_view;
constexpr std::size_t mostContext = 60;

/// The end of a text on one line, in UTF-8.
std::string Before(TUnits text) {
  const auto line = text.find_last_of(u'\n');
  if (line != TUnits::npos) text.remove_prefix(line + 1);
  if (text.size() <= mostContext) return Utf16ToUtf8(text);
  const auto blank = text.find(u' ', text.size() - mostContext);
  return "… " + Utf16ToUtf8(text.substr(blank == TUnits::npos ? text.size() : blank + 1));
}

std::string Behind(TUnits text) {
  text = text.substr(0, text.find(u'\n'));
  if (text.size() <= mostContext) return Utf16ToUtf8(text);
  const auto blank = text.rfind(u' ', mostContext);
  return Utf16ToUtf8(text.substr(0, blank == TUnits::npos ? 0 : blank)) + " …";
}

std::size_t EndOf(const TSpellWord& word) {
  return word.Start + word.Length;
}
}  // namespace

TSpellCheck::TSpellCheck(TVantrelSpellChecker& checker, TTextUi& text, TVantrelWaitCursor& waitCursor)
    : FChecker(checker), FText(text), FWaitCursor(waitCursor) {
  const auto add = [this](const char* caption, void (TSpellCheck::*operation)()) {
    FCommands.Add({.Caption = ResourceText(caption),
                   .OnExecute = [this, operation] { RunForUser([&] { (this->*operation)(); }); }});
  };
  add(DialogTexts::Change, &TSpellCheck::Change);
  add(DialogTexts::ChangeAll, &TSpellCheck::ChangeAll);
  add(DialogTexts::Ignore, &TSpellCheck::Ignore);
  add(DialogTexts::IgnoreAll, &TSpellCheck::IgnoreAll);
  add(DialogTexts::AddWord, &TSpellCheck::AddWord);
  FCommands.Add({.Caption = ResourceText(DialogTexts::Close), .OnExecute = [this] { FUi->Form().Close(false); }});
}

void TSpellCheck::Run(const std::function<std::unique_ptr<TCorrectionUi>()>& createUi) {
  if (!FChecker.CanCheck())
    return MsgBoxInfo(ResourceText(DialogTexts::Spelling), ResourceText(DialogTexts::NoDictionary));
  FFrom = FOrigin = FText.Cursor();
  FFromBeginning = false;
  if (const auto first = NextMistake()) {
    FMistake = *first;
    // The word that the cursor stands in comes first and not once more in the end.
    if (!FFromBeginning) FOrigin = std::min(FOrigin, FMistake.Start);
    const auto ui = createUi();
    FUi = ui.get();
    std::vector<TVantrelCommand*> commands;
    for (const auto& command : FCommands.All()) commands.push_back(command.get());
    FUi->SetCommands(commands);
    ShowMistake();
    const bool complete = FUi->Form().ShowModal();
    FUi = nullptr;
    // A word that stays selected would go with the next key.
    FText.Select(complete ? FOrigin : EndOf(FMistake), 0);
    if (!complete) return;
  }
  MsgBoxInfo(ResourceText(DialogTexts::Spelling), ResourceText(DialogTexts::CheckComplete));
}

std::optional<TSpellWord> TSpellCheck::NextMistake() {
  const auto mistakes = FChecker.Mistakes(FText.Units());
  const auto behind = [&] {
    const auto next = std::ranges::find_if(mistakes, [this](const auto& word) { return EndOf(word) > FFrom; });
    return next == mistakes.end() ? std::nullopt : std::optional(*next);
  };
  auto next = behind();
  if (!next && !FFromBeginning) {
    FFromBeginning = true;
    FFrom = 0;
    next = behind();
  }
  if (next && FFromBeginning && next->Start >= FOrigin) next.reset();
  return next;
}

void TSpellCheck::ShowMistake() {
  const auto units = FText.Units();
  const TUnits text = units;
  const auto word = Utf16ToUtf8(text.substr(FMistake.Start, FMistake.Length));
  FText.Select(FMistake.Start, FMistake.Length);
  FUi->ShowMistake(Before(text.substr(0, FMistake.Start)), word, Behind(text.substr(EndOf(FMistake))));
  const TVantrelWaitScope wait(FWaitCursor);
  const auto suggestions = FChecker.Suggest(FMistake.Form);
  FUi->SetSuggestions(suggestions);
  // Suggestions lack the signs that the word is written with.
  const bool isPlain = word == FMistake.Form && !suggestions.empty();
  FUi->Replacement().SetValue(isPlain ? suggestions.front() : word);
}

void TSpellCheck::GoOn(std::size_t from) {
  FFrom = from;
  const auto next = NextMistake();
  if (!next) return FUi->Form().Close(true);
  FMistake = *next;
  ShowMistake();
}

void TSpellCheck::Replace(const std::vector<TSpellWord>& words) {
  const auto replacement = FUi->Replacement().Value().AsTextOrEmpty();
  const auto length = Utf16Length(replacement);
  FText.Replace(words, replacement);
  // What stood behind a word has moved.
  const auto moved = [&](std::size_t place) {
    auto now = place;
    for (const auto& word : words)
      if (word.Start < place) now = now + length - word.Length;
    return now;
  };
  const auto next = moved(EndOf(FMistake));
  FOrigin = moved(FOrigin);
  GoOn(next);
}

void TSpellCheck::Change() {
  Replace({FMistake});
}

void TSpellCheck::ChangeAll() {
  const auto units = FText.Units();
  const auto textOf = [&](const auto& word) { return TUnits(units).substr(word.Start, word.Length); };
  auto same = FChecker.Mistakes(units);
  std::erase_if(same, [&](const auto& word) { return textOf(word) != textOf(FMistake); });
  Replace(same);
}

void TSpellCheck::IgnoreAll() {
  FChecker.IgnoreAll(FMistake.Form);
  FText.RefreshMarks();
  Ignore();
}

void TSpellCheck::AddWord() {
  try {
    FChecker.AddToUserDictionary(FMistake.Form);
  } catch (const std::exception& error) {
    MsgBoxWarning(ResourceText(DialogTexts::Spelling),
                  FormatText(DialogTexts::WordNotSaved, FMistake.Form, error.what()));
  }
  FText.RefreshMarks();
  Ignore();
}
