#include "DesktopTextDialog.h"

#include <QBoxLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <utility>

#include "CommandBar.h"
#include "DesktopGrid.h"
#include "DesktopLook.h"
#include "DesktopTexts.h"
#include "FieldEdit.h"

namespace {
constexpr QSize smallest(800, 600), largest(1024, 768);
constexpr int titleHeight = 40;  // what the window manager needs above a window
constexpr int fieldWidth = 110;

/// A field of one line.
class TDesktopFieldItem final : public TVantrelFormItem {
 public:
  TDesktopFieldItem(TFieldEdit& field, TDialogUndo& undo) : FField(field), FUndo(undo) {
    FField.OnChange = [this] {
      FUndo.Add(FField, FField.ValueBefore());
      if (const auto handler = OnChange) handler();
    };
  }
  TDesktopFieldItem(const TDesktopFieldItem&) = delete;
  TDesktopFieldItem& operator=(const TDesktopFieldItem&) = delete;
  ~TDesktopFieldItem() override { FField.Release(); }

  TVariant Value() const override { return FField.Value(); }
  void SetValue(const TVariant& value) override {
    const auto before = FField.Value();
    FField.SetValue(value);
    if (FUndo.IsJoining()) FUndo.Add(FField, before);
  }
  void SetEnabled(bool enabled) override { Widget().setEnabled(enabled); }
  void SetVisible(bool visible) override { Widget().setVisible(visible); }
  void SetFocus() override { Widget().setFocus(); }

 private:
  QWidget& Widget() { return FField.Editor().Widget(); }

  TFieldEdit& FField;
  TDialogUndo& FUndo;
};

QLabel* MakeLabel(const std::string& text, QWidget* buddy) {
  auto* label = new QLabel(FromUtf8(text));
  label->setTextFormat(Qt::PlainText);
  label->setBuddy(buddy);
  return label;
}
}  // namespace

TDesktopTextDialog::TDesktopTextDialog()
    : FActions(*this),
      FUndo(*this),
      FMemo(new TMemoEdit({.Kind = TEditorKind::Memo}, this)),
      FText(*FMemo),
      FCatalog(new TDesktopGrid(this)),
      FSearch(new QLineEdit(this)),
      FNotFound(new QLabel(UserText(DesktopTexts::NotFound), this)) {
  FSearch->setClearButtonEnabled(true);
  FSearch->setPlaceholderText(UserText(DesktopTexts::SearchCatalog));
  FSearch->setAccessibleName(FSearch->placeholderText());
  FSearch->installEventFilter(this);
  FNotFound->hide();
  connect(FSearch, &QLineEdit::textChanged, this, [this] { Search(0); });
  auto* find = new QShortcut(QKeySequence::Find, this);
  connect(find, &QShortcut::activated, this, [this] {
    FSearch->setFocus(Qt::ShortcutFocusReason);
    FSearch->selectAll();
  });
}

TDesktopTextDialog::~TDesktopTextDialog() {
  FSearch->disconnect(this);
  FCatalog->Release();
}

TVantrelFormItem& TDesktopTextDialog::Item(TTextDialogItem item) {
  return item == TTextDialogItem::Text ? FText : *FItems.at(item);
}

TVantrelGrid& TDesktopTextDialog::Catalog() {
  return *FCatalog;
}

void TDesktopTextDialog::SetDescription(const TTextDialogDescription& description) {
  setWindowTitle(FromUtf8(description.Title));
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(6);
  layout->addWidget(new TCommandBar(description.Bar, FActions));
  // One below the other they would show nothing on a low screen.
  const bool isLow = screen()->availableSize().height() < smallest.height();
  auto* groups = new QSplitter(description.SideBySide || isLow ? Qt::Horizontal : Qt::Vertical);
  groups->setChildrenCollapsible(false);
  groups->addWidget(MakeTextGroup(description));
  groups->addWidget(MakeCatalogGroup(description));
  layout->addWidget(groups, 1);
  layout->addLayout(MakeNoteLine());
  if (!description.Foot.empty()) layout->addLayout(MakeFoot(description));
  FUndo.Follow(*FMemo->document());
  Place();
}

QWidget* TDesktopTextDialog::MakeTextGroup(const TTextDialogDescription& description) {
  auto* group = new QGroupBox(FromUtf8(description.TextGroup));
  auto* layout = new QVBoxLayout(group);
  auto* row = new QHBoxLayout;
  for (const auto& field : description.Fields) AddField(*row, field);
  row->addStretch();
  layout->addLayout(row);
  layout->addWidget(MakeLabel(description.TextLabel, FMemo));
  layout->addWidget(FMemo, 1);
  FMemo->setAccessibleName(FromUtf8(description.TextLabel));
  return group;
}

void TDesktopTextDialog::AddField(QBoxLayout& row, const TTextDialogField& field) {
  auto& item = FItems[field.Item];
  if (!field.Editor) {
    auto* text = new QLabel;
    item = std::make_unique<TDesktopLabelItem>(*text);
    row.addWidget(MakeLabel(field.Label, nullptr));
    row.addWidget(text);
    return;
  }
  auto* edit = new TFieldEdit(*field.Editor, this);
  auto& editor = edit->Editor().Widget();
  item = std::make_unique<TDesktopFieldItem>(*edit, FUndo);
  editor.setAccessibleName(FromUtf8(field.Label));
  editor.setFixedWidth(static_cast<int>(fieldWidth * FontScale(editor)));
  row.addWidget(MakeLabel(field.Label, &editor));
  row.addWidget(&editor);
  row.addSpacing(12);
}

QWidget* TDesktopTextDialog::MakeCatalogGroup(const TTextDialogDescription& description) {
  auto* group = new QGroupBox(FromUtf8(description.CatalogGroup));
  auto* layout = new QVBoxLayout(group);
  auto* search = new QHBoxLayout;
  search->addWidget(FSearch, 1);
  search->addWidget(FNotFound);
  layout->addLayout(search);
  layout->addWidget(FCatalog, 1);
  return group;
}

QBoxLayout* TDesktopTextDialog::MakeNoteLine() {
  auto* student = new TElidedLabel;
  auto* count = new QLabel;
  FItems[TTextDialogItem::StudentText] = std::make_unique<TDesktopLabelItem>(*student);
  FItems[TTextDialogItem::CountText] = std::make_unique<TDesktopLabelItem>(*count);
  auto* line = new QHBoxLayout;
  line->addWidget(student, 1);
  line->addWidget(count);
  return line;
}

QBoxLayout* TDesktopTextDialog::MakeFoot(const TTextDialogDescription& description) {
  auto* foot = new QHBoxLayout;
  foot->addStretch();
  for (auto* command : description.Foot) {
    auto* button = MakePushButton(*FActions.ActionOf(*command));
    button->setDefault(command == description.Foot.front());
    foot->addWidget(button);
  }
  return foot;
}

void TDesktopTextDialog::Place() {
  const QRect room = screen()->availableGeometry();
  const QSize most = room.size() - QSize(0, titleHeight);
  setMinimumSize(smallest.boundedTo(most));
  setMaximumSize(largest);
  resize(largest.boundedTo(most));
  move(room.center() - rect().center());
}

void TDesktopTextDialog::showEvent(QShowEvent* event) {
  TDesktopModalForm::showEvent(event);
  if (const auto handler = std::exchange(OnShow, nullptr)) handler();
}

void TDesktopTextDialog::Search(int step) {
  const bool found = !OnSearch || OnSearch(ToUtf8(FSearch->text()), step);
  FNotFound->setVisible(!found);
}

bool TDesktopTextDialog::TakeSearchKey(int key) {
  switch (key) {
    case Qt::Key_Down:
      Search(1);
      return true;
    case Qt::Key_Up:
      Search(-1);
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (OnSearchTaken && !FSearch->text().trimmed().isEmpty() && FNotFound->isHidden()) OnSearchTaken();
      return true;
    case Qt::Key_Escape: {
      const bool wasEmpty = FSearch->text().isEmpty();
      FSearch->clear();
      return !wasEmpty;
    }
    default:
      return false;
  }
}

bool TDesktopTextDialog::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && TakeSearchKey(static_cast<QKeyEvent*>(event)->key())) return true;
  return TDesktopModalForm::eventFilter(watched, event);
}
