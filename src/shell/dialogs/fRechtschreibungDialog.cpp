#include "fRechtschreibungDialog.h"

#include "DialogTexts.h"
#include "VantrelI18n.h"

namespace {

/// The first one enables the others.
constexpr struct {
  const char* Caption;
  bool TMyTessaronOptions::*Option;
} Boxes[] = {{DialogTexts::Active, &TMyTessaronOptions::RechtschreibungAktiv},
             {DialogTexts::AsYouType, &TMyTessaronOptions::RechtschreibungEingabe},
             {DialogTexts::UpperCaseWords, &TMyTessaronOptions::RechtschreibungGross},
             {DialogTexts::MixedCaseWords, &TMyTessaronOptions::RechtschreibungMischfaelle},
             {DialogTexts::WordsWithNumbers, &TMyTessaronOptions::RechtschreibungZahl},
             {DialogTexts::RepeatedWords, &TMyTessaronOptions::RechtschreibungWiederholt},
             {DialogTexts::EMails, &TMyTessaronOptions::RechtschreibungEmail},
             {DialogTexts::WebAddresses, &TMyTessaronOptions::RechtschreibungURL}};

}  // namespace

bool EditRechtschreibung(TTickDialogUi& ui, TMyTessaronOptions& options) {
  std::vector<std::string> captions;
  for (const auto& box : Boxes) captions.push_back(ResourceText(box.Caption));
  ui.SetTexts(ResourceText(DialogTexts::Spelling), ResourceText(DialogTexts::SpellingExplanation), captions);
  for (std::size_t i = 0; i < std::size(Boxes); ++i) ui.Box(i).SetValue(options.*Boxes[i].Option);
  const auto enable = [&ui] {
    for (std::size_t i = 1; i < std::size(Boxes); ++i) ui.Box(i).SetEnabled(ui.Box(0).Value().AsBoolean());
  };
  ui.Box(0).OnChange = enable;
  enable();
  if (!ui.Form().ShowModal()) return false;
  for (std::size_t i = 0; i < std::size(Boxes); ++i) options.*Boxes[i].Option = ui.Box(i).Value().AsBoolean();
  return true;
}
