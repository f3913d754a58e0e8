#include "LookupEdit.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QSizeGrip>
#include <QTreeWidget>
#include <QWheelEvent>
#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

#include "DesktopLook.h"
#include "DesktopTexts.h"
#include "QtText.h"
#include "VantrelMemTable.h"

namespace {
constexpr int noTarget = std::numeric_limits<int>::min();

/// The value of a text that is a number without a sign.
std::optional<double> ValueOf(const QString& text) {
  static const QRegularExpression number("^\\d+([.,]\\d+)?$");
  if (!number.match(text).hasMatch()) return std::nullopt;
  return QString(text).replace(',', '.').toDouble();
}

/// To a screen reader it is a list to choose from, not a line that cannot be edited.
class TLookupAccess : public QAccessibleWidget {
 public:
  explicit TLookupAccess(TLookupEdit& edit) : QAccessibleWidget(&edit, QAccessible::ComboBox), FEdit(edit) {}
  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? FEdit.text() : QAccessibleWidget::text(kind);
  }
  QAccessible::State state() const override {
    auto state = QAccessibleWidget::state();
    state.editable = state.hasPopup = state.expandable = true;
    state.expanded = FEdit.IsListOpen();
    state.collapsed = !state.expanded;
    return state;
  }

 private:
  TLookupEdit& FEdit;
};

QAccessibleInterface* MakeAccess(const QString&, QObject* object) {
  auto* edit = dynamic_cast<TLookupEdit*>(object);
  return edit == nullptr ? nullptr : new TLookupAccess(*edit);
}
}  // namespace

TLookupEdit::TLookupEdit(const TEditorDescription& description, QWidget* parent)
    : QLineEdit(parent),
      TValueEditor(*this, description),
      FEntries(ReadEntries()),
      FList(new QTreeWidget(this)),
      FGrip(new QSizeGrip(FList)) {
  [[maybe_unused]] static const bool once = (QAccessible::installFactory(MakeAccess), true);
  // What is typed picks an entry: keys go through keyPressEvent.
  setReadOnly(true);
  setPlaceholderText(FromUtf8(description.NullText));
  auto* open = addAction(ThemeIcon("arrow-down"), QLineEdit::TrailingPosition);
  open->setToolTip(UserText(DesktopTexts::OpenList));
  connect(open, &QAction::triggered, this, [this] {
    if (!CloseList()) OpenList();
  });
  MakeList();
  FillList();
  connect(FList, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
    const bool changes = MarkByUser(FList->indexOfTopLevelItem(item), {});
    CloseList();
    if (changes) Tell();
    Accepted();
  });
}

std::vector<TLookupEdit::TEntry> TLookupEdit::ReadEntries() const {
  std::vector<TEntry> entries;
  if (Description().Kind == TEditorKind::List) {
    for (const auto& item : Description().Items) entries.push_back({item.Value, FromUtf8(item.Text), {}});
    return entries;
  }
  const auto& lookup = Description().Lookup;
  const auto* table = lookup.Table;
  if (table == nullptr || !table->Active()) return entries;
  const auto fieldOf = [table](const std::string& name) {
    const auto* field = table->FindField(name);
    return field == nullptr ? -1 : field->Index();
  };
  const int key = fieldOf(lookup.KeyField);
  const int shown = fieldOf(lookup.ShownField);
  const int description = fieldOf(lookup.DescriptionField);
  for (int record = 0; record < table->RecordCount(); ++record) {
    entries.push_back({table->ValueAt(record, key), FromUtf8(table->ValueAt(record, shown).AsTextOrEmpty()),
                       FromUtf8(table->ValueAt(record, description).AsTextOrEmpty())});
  }
  return entries;
}

void TLookupEdit::Reload() {
  FEntries = ReadEntries();
  FillList();
  if (FTyped.isEmpty()) Mark(EntryOf(Value()), {}, text());
}

void TLookupEdit::Begin(bool) {
  OpenList();
}

void TLookupEdit::PlaceInCell(const QRect& cell) {
  setFrame(false);
  setGeometry(cell);
}

QPoint TLookupEdit::StepsOf(const QKeyEvent& key) const {
  return {key.key() == Qt::Key_Left ? -1 : key.key() == Qt::Key_Right ? 1 : 0, 0};
}

TVariant TLookupEdit::Entered() const {
  return FMarked < 0 ? TVariant::Null() : FEntries[static_cast<std::size_t>(FMarked)].Key;
}

int TLookupEdit::EntryOf(const TVariant& value) const {
  const auto at = std::ranges::find(FEntries, value, &TEntry::Key);
  return at == FEntries.end() ? -1 : static_cast<int>(at - FEntries.begin());
}

void TLookupEdit::Show(const TVariant& value, const QString& shown) {
  const int entry = EntryOf(value);
  Mark(entry, {}, entry < 0 ? shown : FEntries[static_cast<std::size_t>(entry)].Shown);
  if (!hasFocus()) deselect();
}

int TLookupEdit::Find(const QString& typed) const {
  const auto value = ValueOf(typed);
  const auto rank = [&](const QString& shown) {
    if (shown == typed) return 4;
    if (shown.compare(typed, Qt::CaseInsensitive) == 0) return 3;
    if (value && ValueOf(shown) == value) return 2;
    return shown.startsWith(typed, Qt::CaseInsensitive) ? 1 : 0;
  };
  int best = -1, bestRank = 0;
  for (std::size_t i = 0; i < FEntries.size(); ++i) {
    const int its = rank(FEntries[i].Shown);
    if (its <= bestRank) continue;
    best = static_cast<int>(i);
    bestRank = its;
  }
  return best;
}

void TLookupEdit::Mark(int entry, const QString& typed, const QString& text) {
  FMarked = entry;
  FTyped = typed;
  setText(text);
  SelectRest();
  QAccessibleValueChangeEvent told(this, text);
  QAccessible::updateAccessibility(&told);
  auto* item = FList->topLevelItem(entry);
  FList->clearSelection();
  FList->setCurrentItem(item);
  if (item != nullptr) FList->scrollToItem(item);
}

void TLookupEdit::SelectRest() {
  const auto length = static_cast<int>(text().size());
  const bool starts = text().startsWith(FTyped, Qt::CaseInsensitive);
  setSelection(length, (starts ? static_cast<int>(FTyped.size()) : 0) - length);
}

bool TLookupEdit::MarkByUser(int entry, const QString& typed) {
  const bool changes = entry != FMarked || !IsComplete();
  Mark(entry, typed, FEntries[static_cast<std::size_t>(entry)].Shown);
  if (changes) SetChanged();
  return changes;
}

bool TLookupEdit::Type(const QString& typed) {
  OpenList();
  if (FTyped.isEmpty()) FBefore = {FMarked, text(), IsChanged()};
  if (const int entry = Find(typed); entry >= 0) return MarkByUser(entry, typed);
  Mark(-1, typed, typed);
  SetChanged();
  RefuseText();
  return true;
}

bool TLookupEdit::Shorten() {
  if (FTyped.size() > 1) return Type(FTyped.chopped(1));
  if (!IsComplete()) return TakeBack();
  const bool changes = !Value().IsEmpty();
  Mark(-1, {}, {});
  if (changes) SetChanged();
  return changes;
}

bool TLookupEdit::TakeBack() {
  // The one letter named nothing: what it would have replaced stands there again.
  if (FBefore.IsChanged)
    Mark(FBefore.Entry, {}, FBefore.Text);
  else
    Restore();
  return true;
}

int TLookupEdit::TargetOf(const QKeyEvent& key) const {
  const int last = static_cast<int>(FEntries.size()) - 1;
  if (key.key() == Qt::Key_Up) return FMarked - 1;
  if (key.key() == Qt::Key_Down) return FMarked + 1;
  if (!IsListOpen() || key.modifiers() != Qt::NoModifier) return noTarget;
  switch (key.key()) {
    case Qt::Key_PageUp:
      return FMarked - ShownRows + 1;
    case Qt::Key_PageDown:
      return FMarked + ShownRows - 1;
    case Qt::Key_Home:
      return 0;
    case Qt::Key_End:
      return last;
    default:
      return noTarget;
  }
}

void TLookupEdit::keyPressEvent(QKeyEvent* event) {
  const bool isAlt = (event->modifiers() & Qt::AltModifier) != 0;
  const bool upOrDown = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
  const bool turnsList = event->key() == Qt::Key_F4 || (upOrDown && isAlt);
  const int last = static_cast<int>(FEntries.size()) - 1;
  const int target = TargetOf(*event);
  bool changes = false;
  if (turnsList) {
    if (!CloseList()) OpenList();
  } else if (target != noTarget) {
    if (last >= 0) changes = MarkByUser(std::clamp(target, 0, last), {});
  } else if (event->matches(QKeySequence::Undo)) {
    changes = !IsComplete() && TakeBack();
  } else if (event->key() == Qt::Key_Backspace) {
    changes = Shorten();
  } else if (!event->text().isEmpty() && event->text().front().isPrint()) {
    changes = Type(FTyped + event->text());
  } else {
    return QLineEdit::keyPressEvent(event);
  }
  if (changes) Tell();
}

void TLookupEdit::mouseReleaseEvent(QMouseEvent* event) {
  QLineEdit::mouseReleaseEvent(event);
  if (event->button() == Qt::LeftButton && !IsListOpen()) OpenList();
}

void TLookupEdit::wheelEvent(QWheelEvent* event) {
  event->setAccepted(IsListOpen());
}

void TLookupEdit::focusOutEvent(QFocusEvent* event) {
  CloseList();
  QLineEdit::focusOutEvent(event);
}

void TLookupEdit::hideEvent(QHideEvent* event) {
  CloseList();
  QLineEdit::hideEvent(event);
}
