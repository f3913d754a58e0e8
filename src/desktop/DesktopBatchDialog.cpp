#include "DesktopBatchDialog.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStackedWidget>
#include <algorithm>

#include "DesktopFieldForm.h"
#include "DesktopGrid.h"
#include "DesktopViewScreen.h"
#include "QtText.h"
#include "ViewTexts.h"

namespace {
constexpr QSize toldMinimum(800, 600);
constexpr int margin = 16;

void MakeBold(QLabel& label, double scale) {
  QFont font = label.font();
  font.setPointSizeF(font.pointSizeF() * scale);
  font.setBold(true);
  label.setFont(font);
}
}  // namespace

TDesktopBatchDialog::TDesktopBatchDialog()
    : FStudents("", TPaneButton::SelectAll),
      FFields(new TDesktopFieldForm),
      FPages(new QStackedWidget),
      FNotice(new QLabel),
      FAffectedLabel(new QLabel),
      FAffected(*FAffectedLabel) {
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(FPages, 1);
  AddPage(&FStudents.Panel());
  AddPage(MakeDataPage());
  auto* row = new QHBoxLayout;
  layout->addLayout(row);
  row->addStretch();
  for (std::size_t i = 0; i < FButtons.size(); ++i) {
    auto* button = FButtons[i] = new QPushButton;
    // A click leaves the keyboard where it is, and with it what is being typed.
    button->setFocusPolicy(Qt::TabFocus);
    row->addWidget(button);
    connect(button, &QPushButton::clicked, this, [this, pressed = static_cast<TBatchButton>(i)] {
      if (const auto handler = OnButton) handler(pressed);
    });
  }
}

TDesktopBatchDialog::~TDesktopBatchDialog() {
  FFields->Release();
}

void TDesktopBatchDialog::AddPage(QWidget* content) {
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  layout->setContentsMargins(0, 0, 0, 0);
  for (auto* labels : {&FTitles, &FDescriptions}) {
    auto* label = labels->emplace_back(new QLabel);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    layout->addWidget(label);
  }
  MakeBold(*FTitles.back(), 1.25);
  layout->addSpacing(margin / 2);
  layout->addWidget(content, 1);
  FPages->addWidget(page);
}

QWidget* TDesktopBatchDialog::MakeDataPage() {
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(Scrolled(FFields), 1);
  FNotice->setTextFormat(Qt::PlainText);
  MakeBold(*FNotice, 1);
  layout->addWidget(FNotice);
  layout->addSpacing(margin / 2);
  layout->addWidget(FAffectedLabel);
  return page;
}

void TDesktopBatchDialog::SetTexts(const TBatchTexts& texts) {
  setWindowTitle(FromUtf8(texts.Title));
  for (std::size_t page = 0; page < texts.Pages.size(); ++page) {
    FTitles[page]->setText(FromUtf8(texts.Pages[page].Title));
    FDescriptions[page]->setText(FromUtf8(texts.Pages[page].Description));
  }
  for (std::size_t i = 0; i < FButtons.size(); ++i) FButtons[i]->setText(FromUtf8(texts.Buttons[i]));
  FNotice->setText(FromUtf8(texts.Notice).replace("\r\n", "\n"));
}

TVantrelFieldForm& TDesktopBatchDialog::Fields() {
  return *FFields;
}

void TDesktopBatchDialog::SetButtonEnabled(TBatchButton button, bool enabled) {
  FButtons[static_cast<std::size_t>(button)]->setEnabled(enabled);
}

TBatchPage TDesktopBatchDialog::ActivePage() const {
  return static_cast<TBatchPage>(FPages->currentIndex());
}

void TDesktopBatchDialog::SetActivePage(TBatchPage page) {
  FPages->setCurrentIndex(static_cast<int>(page));
  FButtons[static_cast<std::size_t>(TBatchButton::Next)]->setDefault(page == TBatchPage::SelectStudentsPage);
  if (page == TBatchPage::SelectStudentsPage) return FStudents.Grid().SetFocus();
  for (auto* place = FFields->nextInFocusChain(); place != FFields; place = place->nextInFocusChain()) {
    if (!FFields->isAncestorOf(place) || !place->isVisibleTo(FFields) || !place->isEnabled()) continue;
    if ((place->focusPolicy() & Qt::TabFocus) == 0) continue;
    return place->setFocus(Qt::TabFocusReason);
  }
}

void TDesktopBatchDialog::showEvent(QShowEvent* event) {
  const QSize room = screen()->availableSize() - QSize(2 * margin, 3 * margin);
  const QSize fields(FFields->minimumSizeHint().width() + 3 * margin, 0);
  setFixedSize(sizeHint().expandedTo(toldMinimum).expandedTo(fields).boundedTo(room));
  TDesktopModalForm::showEvent(event);
}

void TDesktopBatchDialog::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!isReturn) return TDesktopModalForm::keyPressEvent(event);
  auto& next = *FButtons[static_cast<std::size_t>(TBatchButton::Next)];
  if (ActivePage() == TBatchPage::SelectStudentsPage && next.isEnabled()) next.click();
}
