#include "fTextDialog.h"

#include <algorithm>
#include <map>
#include <sstream>
#include <string_view>
#include <utility>
#include <vector>

#include "DialogTexts.h"
#include "VantrelI18n.h"
#include "VantrelMsgBox.h"
#include "VantrelText.h"
#include "fBaseView.h"
#include "fSpellCheck.h"
#include "uSpelling.h"

namespace {

using enum TTextDialogItem;
constexpr const char* lineEnd = "\r\n";

/// What the two dialogs do differently.
struct TTextDialogKind {
  TTextDialogDescription Description;
  TVantrelMemTable& Catalog;
  std::vector<TGridColumn> Columns;  ///< the last takes the room that is left
  bool FitsColumns = false;          ///< the others are as wide as their content
  bool HasFoot = false;
  bool AlwaysChecks = false;  ///< the command is there even if spelling is not checked at all
};

TTextDialogKind RemarkDialog(TLookupTables& lookups) {
  const auto text = [](const char* id) { return ResourceText(id); };
  const TEditorDescription number{
      .Kind = TEditorKind::Spin, .ValueKind = TValueKind::Integer, .NullText = "0", .DeleteClears = true};
  return {.Description = {.Title = text(DialogTexts::RemarkTitle),
                          .TextGroup = text(DialogTexts::RemarkGroup),
                          .Fields = {{PositionEdit, text(DialogTexts::Position), number},
                                     {AttributeEdit, text(DialogTexts::Attribute), TEditorDescription{.MaxLength = 8}}},
                          .TextLabel = text(DialogTexts::RemarkText),
                          .CatalogGroup = text(DialogTexts::RemarkCatalog)},
          .Catalog = lookups.CertificateComments,
          .Columns = {{.Id = "Token", .Caption = text(DialogTexts::Token), .Field = "Token"},
                      {.Id = "Position",
                       .Caption = text(DialogTexts::Position),
                       .Editor = {.ValueKind = TValueKind::Integer},
                       .Field = "Position"},
                      {.Id = "Attribute", .Caption = text(DialogTexts::Attribute), .Field = "Attribute"},
                      {.Id = "Description", .Caption = text(DialogTexts::Description), .Field = "Description"}},
          .FitsColumns = true,
          .HasFoot = true,
          .AlwaysChecks = true};
}

TTextDialogKind AssessmentDialog(TLookupTables& lookups) {
  const auto text = [](const char* id) { return ResourceText(id); };
  return {.Description = {.Title = text(DialogTexts::AssessmentTitle),
                          .TextGroup = text(DialogTexts::AssessmentGroup),
                          .Fields = {{SubjectText, text(DialogTexts::AssessmentSubject)}},
                          .TextLabel = text(DialogTexts::AssessmentText),
                          .CatalogGroup = text(DialogTexts::AssessmentCatalog),
                          .SideBySide = true},
          .Catalog = lookups.Zeugnisbeurteilungen,
          .Columns = {
              {.Id = "Token", .Caption = text(DialogTexts::Token), .Width = 80, .Field = "Token"},
              {.Id = "Description", .Caption = text(DialogTexts::Description), .Width = 200, .Field = "Description"}}};
}

/// The lines of a text, whatever ends them.
std::vector<std::string> LinesOf(std::string_view text) {
  constexpr std::string_view ends[] = {"\r\n", "\r", "\n", "\u2029"};
  std::vector<std::string> lines(1);
  while (!text.empty()) {
    const auto end = std::ranges::find_if(ends, [text](auto sign) { return text.starts_with(sign); });
    if (end == std::end(ends)) {
      lines.back() += text.front();
      text.remove_prefix(1);
    } else {
      lines.emplace_back();
      text.remove_prefix(end->size());
    }
  }
  return lines;
}

std::string Joined(const std::vector<std::string>& lines) {
  std::string text = lines.front();
  for (std::size_t i = 1; i < lines.size(); ++i) text += lineEnd + lines[i];
  return text;
}

std::string TextCount(const std::string& text) {
  if (text.empty()) return FormatText(DialogTexts::TextCount, 0, 0);
  const auto lines = LinesOf(text);
  std::ptrdiff_t characters = 0;
  for (const auto& line : lines)
    characters += std::ranges::count_if(line, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; });
  return FormatText(DialogTexts::TextCount, characters, lines.size());
}

/// As RunForUser; false where the question raises.
bool AnswerForUser(const std::function<bool()>& question) {
  bool answer = false;
  RunForUser([&] { answer = question(); });
  return answer;
}

/// One of the dialogs, from its making to its end.
class TTextDialog {
 public:
  /// `about` is what the user reads in the quiet line.
  TTextDialog(const TTextDialogFrame& frame, TTextDialogKind kind, const std::string& about);
  TTextDialog(const TTextDialog&) = delete;
  TTextDialog& operator=(const TTextDialog&) = delete;

  void Show(TTextDialogItem item, const TVariant& value);
  bool Execute();
  /// What the user made of an item; nothing where he left it as it was shown.
  std::optional<TVariant> Changed(TTextDialogItem item);
  bool IsChanged();
  std::string EnteredText() { return FUi->Text().Value().AsTextOrEmpty(); }

 private:
  void AddCommands(const TTextDialogFrame& frame, TTextDialogKind& kind);
  TVantrelCommand* AddCommand(const char* caption, const char* icon, const char* shortcut,
                              const std::function<void()>& handler);
  void BuildCatalog(const TTextDialogKind& kind);
  std::vector<int> SelectedRows() const;
  /// The texts of these rows of the catalogue are appended.
  void Add(const std::vector<int>& rows);
  void TakeFocused();
  bool Search(const std::string& words, int step);
  bool HasWords(int record, const std::vector<std::string>& words) const;
  void Close(bool ok);
  bool MayClose(bool ok);

  TVantrelSpellChecker FChecker;
  TVantrelCommands FCommands;
  std::unique_ptr<TTextDialogUi> FUi;
  std::map<TTextDialogItem, TVariant> FShown;
  bool FCloses = false;
};

TTextDialog::TTextDialog(const TTextDialogFrame& frame, TTextDialogKind kind, const std::string& about)
    : FUi(frame.CreateUi()) {
  ConfigureSpellChecker(FChecker, frame.Options);
  KnowNamesOf(*CurrentProject, FChecker);
  AddCommands(frame, kind);
  FUi->SetDescription(kind.Description);
  BuildCatalog(kind);
  FUi->OnSearch = [this](const std::string& words, int step) {
    return AnswerForUser([&] { return Search(words, step); });
  };
  FUi->OnSearchTaken = [this] { RunForUser([this] { Add({FUi->Catalog().FocusedRecord()}); }); };
  FUi->Form().OnCloseQuery = [this](bool ok) { return AnswerForUser([&] { return MayClose(ok); }); };
  FUi->Item(StudentText).SetValue(about);
  FUi->Text().OnChange = [this] { FUi->Item(CountText).SetValue(TextCount(EnteredText())); };
  if (FChecker.CanCheck() && FChecker.CheckAsYouType) FUi->Text().MarkMistakes(FChecker);
}

void TTextDialog::AddCommands(const TTextDialogFrame& frame, TTextDialogKind& kind) {
  const auto saves = [this] { Close(true); };
  const auto closes = [this] { Close(false); };
  auto* check = AddCommand(DialogTexts::SpellCheck, "tools-check-spelling", "F7", [this, frame] {
    TSpellCheck(FChecker, FUi->Text(), frame.WaitCursor).Run(frame.CreateCorrectionUi);
  });
  check->SetEnabled(frame.Options.RechtschreibungAktiv || kind.AlwaysChecks);
  kind.Description.Bar = {AddCommand(DialogTexts::SaveAndClose, "document-save", "Ctrl+Return", saves),
                          AddCommand(DialogTexts::Close, "dialog-close", "", closes),
                          AddCommand(DialogTexts::Add, "list-add", "", [this] { Add(SelectedRows()); }), check};
  if (kind.HasFoot)
    kind.Description.Foot = {AddCommand(DialogTexts::OK, "", "", saves),
                             AddCommand(DialogTexts::Cancel, "", "", closes)};
}

TVantrelCommand* TTextDialog::AddCommand(const char* caption, const char* icon, const char* shortcut,
                                         const std::function<void()>& handler) {
  return &FCommands.Add({.Caption = ResourceText(caption), .Icon = icon, .Shortcut = shortcut, .OnExecute = [handler] {
                           RunForUser(handler);
                         }});
}

void TTextDialog::BuildCatalog(const TTextDialogKind& kind) {
  auto& catalog = FUi->Catalog();
  catalog.SetOptions({.MultiSelect = true, .RowsFollowContent = true});
  catalog.SetName(kind.Description.CatalogGroup);
  for (std::size_t i = 0; i + 1 < kind.Columns.size(); ++i) catalog.AddColumn(kind.Columns[i]);
  FUi->OnShow = [&catalog, last = kind.Columns.back(), fits = kind.FitsColumns]() mutable {
    if (fits) catalog.BestFitAll();
    last.TakesRest = true;
    catalog.AddColumn(last);
  };
  catalog.BindTable(&kind.Catalog);
  // The user has chosen none.
  catalog.GotoFirst();
  catalog.ClearSelection();
  catalog.OnDoubleClick = [this](int) { RunForUser([this] { TakeFocused(); }); };
}

void TTextDialog::Show(TTextDialogItem item, const TVariant& value) {
  FShown[item] = value;
  FUi->Item(item).SetValue(value);
}

bool TTextDialog::Execute() {
  FUi->Text().OnChange();
  FUi->Text().GotoEnd();
  FUi->Text().SetFocus();
  return FUi->Form().ShowModal();
}

std::optional<TVariant> TTextDialog::Changed(TTextDialogItem item) {
  const auto shown = FShown.find(item);
  if (shown == FShown.end()) return std::nullopt;
  const auto value = FUi->Item(item).Value();
  return value.AsTextOrEmpty() == shown->second.AsTextOrEmpty() ? std::nullopt : std::optional(value);
}

bool TTextDialog::IsChanged() {
  return std::ranges::any_of(FShown, [this](const auto& shown) { return Changed(shown.first).has_value(); });
}

std::vector<int> TTextDialog::SelectedRows() const {
  std::vector<int> rows;
  for (int i = 0; i < FUi->Catalog().SelectedCount(); ++i) rows.push_back(FUi->Catalog().SelectedRecord(i));
  return rows;
}

void TTextDialog::Add(const std::vector<int>& rows) {
  if (rows.empty()) return;
  const auto& catalog = FUi->Catalog();
  bool isEmpty = EnteredText().empty();
  std::string added;
  for (const int row : rows) {
    const auto text = catalog.FieldValue(row, "Description").AsTextOrEmpty();
    added += isEmpty ? text : lineEnd + text;
    isEmpty = isEmpty && text.empty();
  }
  FUi->InOneStep([&] {
    FUi->Text().Append(added);
    for (const auto& [item, field] : {std::pair{PositionEdit, "Position"}, std::pair{AttributeEdit, "Attribute"}})
      if (FShown.contains(item)) FUi->Item(item).SetValue(catalog.FieldValue(rows.back(), field));
  });
}

/// A row that the keyboard has reached is taken without having been selected.
void TTextDialog::TakeFocused() {
  auto& catalog = FUi->Catalog();
  if (catalog.SelectedCount() == 0 && catalog.FocusedRecord() >= 0) catalog.SelectRecords({catalog.FocusedRecord()});
  Add(SelectedRows());
}

bool TTextDialog::Search(const std::string& text, int step) {
  std::vector<std::string> words;
  for (std::istringstream stream(LowerCase(text)); stream >> words.emplace_back();) {
  }
  words.pop_back();
  if (words.empty()) return true;
  auto& catalog = FUi->Catalog();
  const auto rows = catalog.ShownRows();
  const auto count = static_cast<int>(rows.size());
  const auto focused = std::ranges::find(rows, catalog.FocusedRecord(), &TGridShownRow::Record);
  const int from = focused == rows.end() ? 0 : static_cast<int>(focused - rows.begin()) + step;
  for (int i = 0; i < count; ++i) {
    const int at = ((from + (step < 0 ? -i : i)) % count + count) % count;
    const int record = rows[static_cast<std::size_t>(at)].Record;
    if (!HasWords(record, words)) continue;
    // What was put together by hand stays so.
    const auto selected = SelectedRows();
    catalog.FocusRecord(record);
    catalog.SelectRecords(selected.size() > 1 ? selected : std::vector{record});
    return true;
  }
  return false;
}

bool TTextDialog::HasWords(int record, const std::vector<std::string>& words) const {
  std::string row;
  for (const auto& column : FUi->Catalog().Columns())
    row += FUi->Catalog().FieldValue(record, column.Field).AsTextOrEmpty() + ' ';
  row = LowerCase(row);
  return std::ranges::all_of(words, [&](const auto& word) { return row.find(word) != std::string::npos; });
}

void TTextDialog::Close(bool ok) {
  FCloses = true;
  FUi->Form().Close(ok);
}

/// A way out that may be a slip costs no text.
bool TTextDialog::MayClose(bool ok) {
  if (ok || FCloses || !IsChanged()) return true;
  return MsgBoxAsk(ResourceText(DialogTexts::Confirm), ResourceText(DialogTexts::DiscardQuestion)) ==
         TVantrelMsgBoxResult::mbrYes;
}

}  // namespace

bool EditCertificateCommentValues(const TTextDialogFrame& frame, int& position, std::string& attribute,
                                  std::string& description, const std::string& student) {
  TTextDialog dialog(frame, RemarkDialog(frame.Lookups), student);
  // Below 0 it reads like 0 and stays what it is until the user enters one.
  dialog.Show(PositionEdit, position < 0 ? TVariant::Null() : TVariant(position));
  dialog.Show(AttributeEdit, attribute);
  dialog.Show(Text, description);
  if (!dialog.Execute()) return false;
  if (const auto value = dialog.Changed(PositionEdit)) position = value->IsEmpty() ? 0 : value->AsInteger();
  if (const auto value = dialog.Changed(AttributeEdit)) attribute = value->AsTextOrEmpty();
  if (const auto value = dialog.Changed(Text)) description = Joined(LinesOf(value->AsTextOrEmpty()));
  return true;
}

bool EditZeugnisbeurteilung(const TTextDialogFrame& frame, const std::string& subject, std::string& text,
                            const std::string& student) {
  TTextDialog dialog(frame, AssessmentDialog(frame.Lookups), Join(student, subject, ", "));
  auto lines = LinesOf(text);
  if (lines.size() > 1 && lines.back().empty()) lines.pop_back();
  dialog.Show(SubjectText, subject);
  dialog.Show(Text, Joined(lines));
  if (!dialog.Execute()) return false;
  text = dialog.EnteredText();
  if (!text.empty()) text = Joined(LinesOf(text)) + lineEnd;
  return true;
}
