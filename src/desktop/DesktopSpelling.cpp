#include "DesktopSpelling.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QSignalBlocker>
#include <algorithm>

#include "CommandBar.h"
#include "DesktopLook.h"
#include "DesktopTexts.h"
#include "QtText.h"

namespace {

/// What an item of a form and its widget have in common.
template <class TWidget>
class TDesktopWidgetItem : public TVantrelFormItem {
 public:
  explicit TDesktopWidgetItem(TWidget& widget) : FWidget(widget) {}
  void SetEnabled(bool enabled) override { FWidget.setEnabled(enabled); }
  void SetVisible(bool visible) override { FWidget.setVisible(visible); }
  void SetFocus() override { FWidget.setFocus(); }

 protected:
  void Tell() const {
    if (const auto handler = OnChange) handler();
  }

  TWidget& FWidget;
};

class TDesktopLineItem final : public TDesktopWidgetItem<QLineEdit> {
 public:
  explicit TDesktopLineItem(QLineEdit& line) : TDesktopWidgetItem(line) {
    QObject::connect(&line, &QLineEdit::textEdited, &line, [this] { Tell(); });
  }
  TVariant Value() const override { return ToUtf8(FWidget.text()); }
  void SetValue(const TVariant& value) override {
    FWidget.setText(FromUtf8(value.AsTextOrEmpty()));
    FWidget.selectAll();
  }
};

class TDesktopTickItem final : public TDesktopWidgetItem<QCheckBox> {
 public:
  explicit TDesktopTickItem(QCheckBox& box) : TDesktopWidgetItem(box) {
    QObject::connect(&box, &QCheckBox::toggled, &box, [this] { Tell(); });
  }
  TVariant Value() const override { return FWidget.isChecked(); }
  void SetValue(const TVariant& value) override {
    const QSignalBlocker silent(FWidget);
    FWidget.setChecked(value.AsBoolean());
  }
};

}  // namespace

TDesktopCorrection::TDesktopCorrection()
    : FActions(*this),
      FMistake(new QLabel),
      FLine(new QLineEdit),
      FSuggestions(new QListWidget),
      FReplacement(std::make_unique<TDesktopLineItem>(*FLine)) {
  setWindowTitle(UserText(DesktopTexts::CorrectionTitle));
  FMistake->setTextFormat(Qt::RichText);
  FMistake->setWordWrap(true);
  FMistake->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  connect(FSuggestions, &QListWidget::currentTextChanged, this, [this](const QString& word) { Take(word); });
  connect(FSuggestions, &QListWidget::itemClicked, this, [this](auto* item) { Take(item->text()); });
}

TDesktopCorrection::~TDesktopCorrection() {
  FSuggestions->disconnect(this);
}

void TDesktopCorrection::Take(const QString& word) {
  if (!word.isEmpty()) FReplacement->SetValue(ToUtf8(word));
}

void TDesktopCorrection::SetCommands(const std::vector<TVantrelCommand*>& commands) {
  auto* layout = new QGridLayout(this);
  const auto add = [&](const char* caption, QWidget& widget) {
    auto* label = new QLabel(UserText(caption));
    label->setBuddy(&widget);
    widget.setAccessibleName(label->text().remove('&').remove(':'));
    layout->addWidget(label, layout->rowCount(), 0);
    layout->addWidget(&widget, layout->rowCount(), 0);
  };
  add(DesktopTexts::NotInDictionary, *FMistake);
  add(DesktopTexts::ReplaceBy, *FLine);
  add(DesktopTexts::Suggestions, *FSuggestions);
  layout->setColumnStretch(0, 1);
  layout->setRowStretch(layout->rowCount() - 1, 1);
  FMistake->setMinimumHeight(3 * fontMetrics().lineSpacing());
  auto* buttons = new QVBoxLayout;
  for (auto* command : commands) {
    auto* button = MakePushButton(*FActions.ActionOf(*command));
    button->setDefault(command == commands.front());
    buttons->addWidget(button);
  }
  buttons->addStretch();
  layout->addLayout(buttons, 1, 1, layout->rowCount() - 1, 1);
  connect(FSuggestions, &QListWidget::itemDoubleClicked, this, [first = commands.front()] { first->Execute(); });
  FLine->setFocus();
}

void TDesktopCorrection::ShowMistake(const std::string& before, const std::string& word, const std::string& behind) {
  const auto shown = [](const std::string& text) { return FromUtf8(text).toHtmlEscaped(); };
  FMistake->setText(shown(before) + "<b><u>" + shown(word) + "</u></b>" + shown(behind));
  FMistake->setAccessibleDescription(FromUtf8(word));
}

void TDesktopCorrection::SetSuggestions(const std::vector<std::string>& words) {
  const QSignalBlocker silent(FSuggestions);
  FSuggestions->clear();
  for (const auto& word : words) FSuggestions->addItem(FromUtf8(word));
  FSuggestions->setCurrentRow(0);
}

void TDesktopCorrection::showEvent(QShowEvent* event) {
  TDesktopModalForm::showEvent(event);
  constexpr int margin = 12;
  const QRect room = screen()->availableGeometry();
  const QWidget* text = parentWidget();
  const QPoint corner = text == nullptr ? room.bottomRight() : text->frameGeometry().bottomRight();
  const QPoint last = room.bottomRight() - QPoint(frameGeometry().width(), frameGeometry().height());
  const QPoint place = corner - QPoint(frameGeometry().width() + margin, frameGeometry().height() + margin);
  move(std::clamp(place.x(), room.left(), std::max(room.left(), last.x())),
       std::clamp(place.y(), room.top(), std::max(room.top(), last.y())));
}

void TDesktopTickDialog::SetTexts(const std::string& title, const std::string& explanation,
                                  const std::vector<std::string>& captions) {
  constexpr int textWidth = 440;
  setWindowTitle(FromUtf8(title));
  auto* text = new QLabel(FromUtf8(explanation));
  text->setWordWrap(true);
  text->setFixedWidth(static_cast<int>(textWidth * FontScale(*this)));
  Parts().addWidget(text);
  Parts().addSpacing(8);
  for (const auto& caption : captions) {
    auto* box = new QCheckBox(FromUtf8(caption));
    FBoxes.push_back(std::make_unique<TDesktopTickItem>(*box));
    Parts().addWidget(box);
  }
  Parts().addSpacing(8);
  auto* ok = AddButton(UserText(DesktopTexts::BoxOK));
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  connect(AddButton(UserText(DesktopTexts::BoxCancel)), &QPushButton::clicked, this, &QDialog::reject);
  FixSize();
}
