#include "ValueEditor.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <cmath>

#include "DateEdit.h"
#include "DesktopLook.h"
#include "LookupEdit.h"
#include "MemoEdit.h"
#include "NumberEdit.h"
#include "PlainEdit.h"
#include "QtText.h"
#include "VantrelMemTable.h"
#include "VantrelNumbers.h"

namespace {
/// The warning frame over an editor. It ends with the next key there, unless what stands there is refused.
class TRefusedSign : public QWidget {
 public:
  explicit TRefusedSign(const TValueEditor& editor);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  const TValueEditor& FEditor;
};

TRefusedSign::TRefusedSign(const TValueEditor& editor) : QWidget(&editor.Widget()), FEditor(editor) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setGeometry(parentWidget()->rect());
  parentWidget()->installEventFilter(this);
  raise();
  show();
}

bool TRefusedSign::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::Resize) setGeometry(parentWidget()->rect());
  // Gone at once: the key may be refused as well.
  const bool ends = event->type() == QEvent::KeyPress || event->type() == QEvent::FocusOut;
  if (ends && !FEditor.IsTextRefused()) delete this;
  return false;
}

void TRefusedSign::paintEvent(QPaintEvent*) {
  constexpr int thick = 2;
  QPainter painter(this);
  painter.setPen(QPen(WarningColour, 2 * thick, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter.drawRect(rect());
}
}  // namespace

TValueEditor::TValueEditor(QWidget& widget, TEditorDescription description)
    : FWidget(widget), FDescription(std::move(description)) {}

void TValueEditor::SetValue(const TVariant& value, const QString& shown) {
  FStored = value;
  FShown = shown;
  Restore();
}

void TValueEditor::Restore() {
  FChanged = false;
  Show(FStored, FShown);
  EndRefusal();
}

void TValueEditor::Clear() {
  if (Value().IsEmpty() && IsComplete()) return;
  Show(TVariant::Null(), {});
  Changed();
}

void TValueEditor::Tell() {
  EndRefusal();
  if (FOwner != nullptr) FOwner->EditorChanged();
}

void TValueEditor::Changed() {
  FChanged = true;
  Tell();
}

void TValueEditor::Accepted() {
  if (FOwner != nullptr) FOwner->EditorAccepted();
}

bool TValueEditor::TakeKey(const QKeyEvent& key) {
  const bool isDelete = key.key() == Qt::Key_Delete && (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  if (!isDelete || !FDescription.DeleteClears) return false;
  Clear();
  return true;
}

bool TValueEditor::DecidesOn(QEvent& event) const {
  if (event.type() != QEvent::ShortcutOverride) return false;
  const auto& key = static_cast<const QKeyEvent&>(event);
  const bool isOwnKey = HasLines() && key.key() == Qt::Key_Y && key.modifiers() == Qt::ControlModifier;
  const bool again = isOwnKey || key.matches(QKeySequence::Redo);
  if (!again && !key.matches(QKeySequence::Undo)) return false;
  event.setAccepted(CanTakeBack(again));
  return true;
}

void TValueEditor::Refuse() {
  QApplication::beep();
  if (FSign == nullptr) FSign = new TRefusedSign(*this);
}

void TValueEditor::RefuseText() {
  FRefusesText = true;
  Refuse();
}

void TValueEditor::EndRefusal() {
  if (FRefusesText && !IsTextRefused()) delete FSign;
  FRefusesText = IsTextRefused();
}

bool TValueEditor::HasRefused() const {
  return FSign != nullptr;
}

TValueEditor& MakeEditor(const TEditorDescription& description, QWidget* parent) {
  switch (description.Kind) {
    case TEditorKind::Lookup:
    case TEditorKind::List:
      return *new TLookupEdit(description, parent);
    case TEditorKind::Date:
      return *new TDateEdit(description, parent);
    case TEditorKind::Memo:
      return *new TMemoEdit(description, parent);
    case TEditorKind::Spin:
      return *new TNumberEdit(description, parent);
    case TEditorKind::Plain:
      break;
  }
  if (description.IsNumber()) return *new TNumberEdit(description, parent);
  return *new TPlainEdit(description, parent);
}

std::optional<QString> EditorText(const TEditorDescription& description, const TVariant& value) {
  if (value.IsEmpty())
    return description.NullText.empty() ? std::nullopt : std::optional(FromUtf8(description.NullText));
  const auto& lookup = description.Lookup;
  if (description.Kind == TEditorKind::Lookup && lookup.Table != nullptr) {
    const TVariant shown = lookup.Table->Lookup(lookup.KeyField, value, lookup.ShownField);
    // A value that the table does not know: a token still says something, a number would pass for a grade.
    if (!shown.IsEmpty() || description.ValueKind != TValueKind::Text) return FromUtf8(shown.AsTextOrEmpty());
  }
  if (description.Kind == TEditorKind::List) {
    for (const auto& item : description.Items)
      if (item.Value == value) return FromUtf8(item.Text);
  }
  return std::nullopt;
}

QString NumberText(const TVariant& value, int places) {
  if (places >= 0 && value.Kind() == TVariantKind::Float && std::isfinite(value.AsFloat())) {
    const double scale = std::pow(10, places);
    return NumberText(std::round(value.AsFloat() * scale) / scale);
  }
  return FromUtf8(value.Kind() == TVariantKind::Float ? GermanFloatText(value.AsFloat()) : value.AsTextOrEmpty());
}
