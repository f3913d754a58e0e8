#include "DesktopWelcomeView.h"

#include <QBoxLayout>
#include <QEvent>
#include <QPainter>
#include <QScrollArea>
#include <algorithm>

#include "DesktopLook.h"
#include "QtText.h"
#include "RecentList.h"
#include "ViewTexts.h"

using enum TWelcomeText;

namespace {

constexpr double SmallSize = 0.95, UsualSize = 1.0, LargeSize = 1.6;

void SetSize(QWidget& widget, double factor, bool bold = false) {
  QFont font = widget.font();
  font.setPointSizeF(font.pointSizeF() * factor);
  font.setBold(bold);
  widget.setFont(font);
}

/// A quiet frame with a heading.
class TCard : public QWidget {
 public:
  explicit TCard(const char* heading) : FLayout(new QVBoxLayout(this)) {
    FLayout->setContentsMargins(20, 10, 20, 12);
    FLayout->setSpacing(3);
    const QString text = UserText(heading);
    setAccessibleName(text);
    auto* label = new QLabel(text);
    SetSize(*label, UsualSize, true);
    label->setAlignment(Qt::AlignTop);
    FLayout->addWidget(label);
    FLayout->addSpacing(4);
  }
  QVBoxLayout& Layout() { return *FLayout; }

 protected:
  void paintEvent(QPaintEvent*) override {
    const QColor base = palette().color(QPalette::Base), text = palette().color(QPalette::Text);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Blend(base, text, 0.18));
    painter.setBrush(Blend(base, text, 0.025));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
  }

 private:
  QVBoxLayout* FLayout;
};

/// A label whose lines may also break behind a slash, so that a long path is never cut off.
class TPathLabelItem : public TDesktopLabelItem {
 public:
  using TDesktopLabelItem::TDesktopLabelItem;

 protected:
  void ShowText(const QString& text) override {
    TDesktopLabelItem::ShowText(text);
    constexpr char16_t breakHere = 0x200B;
    FLabel.setText(QString(text).replace('/', QString('/') + QChar(breakHere)));
  }
};

/// What is missing: the first line is a heading, the others are names and counts, which stand in columns.
class TSummaryItem : public TDesktopLabelItem {
 public:
  explicit TSummaryItem(QLabel& label) : TDesktopLabelItem(label) { FLabel.setTextFormat(Qt::RichText); }

 protected:
  void ShowText(const QString& text) override {
    TDesktopLabelItem::ShowText(text);
    const auto lines = text.split('\n');
    QString rows;
    for (const auto& line : lines.mid(1)) {
      const auto count = line.lastIndexOf(':') + 1;
      rows += QString(
                  "<tr><td style='padding-left:16px'>%1</td><td align='right' "
                  "style='padding-left:24px'><b>%2</b></td></tr>")
                  .arg(line.left(count).trimmed().toHtmlEscaped(), line.mid(count).trimmed().toHtmlEscaped());
    }
    FLabel.setText("<div>" + lines.front().toHtmlEscaped() + "</div><table cellspacing='0'>" + rows + "</table>");
  }
};

}  // namespace

/// Scrolls the panel of the cards where it does not fit, and tells its own size.
class TWelcomePanel : public QScrollArea {
 public:
  TWelcomePanel() : Center(new QWidget) {
    setFrameShape(NoFrame);
    setWidgetResizable(true);
    setAccessibleName(UserText(ViewTexts::WindowTitle));
    auto* ground = new QWidget;
    ground->setBackgroundRole(QPalette::Base);
    ground->setAutoFillBackground(true);
    Center->setParent(ground);
    setWidget(ground);
  }

  void Fit() {
    constexpr int width = TWelcomeViewUi::CenterPanelWidth;
    const int wanted = Center->layout()->totalMinimumHeightForWidth(width);
    Center->resize(width, std::max(wanted, TWelcomeViewUi::CenterPanelHeight));
    widget()->setMinimumSize(Center->size());
    if (OnResize) OnResize(viewport()->width(), viewport()->height());
  }

  std::function<void(int width, int height)> OnResize;
  QWidget* Center;

 protected:
  void resizeEvent(QResizeEvent* event) override {
    QScrollArea::resizeEvent(event);
    Fit();
  }
  void changeEvent(QEvent* event) override {
    QScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange && isVisible()) Fit();
  }
};

TDesktopWelcomeView::TDesktopWelcomeView(TDesktopMainWindow& window)
    : FScreen(new TWelcomePanel), FPanel(window, FScreen) {
  auto* cards = new QVBoxLayout(FScreen->Center);
  cards->setContentsMargins(0, 0, 0, 0);
  cards->setSpacing(12);
  auto* info = new TCard(ViewTexts::InfoGroup);
  auto* file = new TCard(ViewTexts::FileGroup);
  auto* description = new TCard(ViewTexts::DescriptionGroup);
  cards->addWidget(info);
  cards->addWidget(file);
  cards->addWidget(description, 1);
  FDescription = description;
  AddStart(*cards);

  AddLabels(info->Layout(), {VersionText, FileVersionText}, SmallSize);
  AddSummary(file->Layout());
  AddLabels(file->Layout(), {StudentsText}, UsualSize);
  AddLabels(file->Layout(), {CreatedOnText, ChangedOnText, FilepathText, WriteProtectedText}, SmallSize);
  AddLabels(file->Layout(), {SignatureText, PeriodText, TenantText}, UsualSize);
  AddMemo(description->Layout());
  FScreen->OnResize = [this](int width, int height) {
    if (OnResize) OnResize(width, height);
  };
}

TDesktopWelcomeView::~TDesktopWelcomeView() {
  FScreen->OnResize = nullptr;
}

void TDesktopWelcomeView::AddLabels(QVBoxLayout& layout, std::initializer_list<TWelcomeText> texts, double size) {
  for (const auto text : texts) {
    auto* label = new QLabel;
    SetSize(*label, size);
    label->setWordWrap(true);
    layout.addWidget(label);
    FItems[text] = std::make_unique<TPathLabelItem>(*label);
  }
}

void TDesktopWelcomeView::AddSummary(QVBoxLayout& layout) {
  auto* label = new QLabel;
  SetSize(*label, LargeSize);
  label->setWordWrap(true);
  layout.addWidget(label);
  layout.addSpacing(8);
  FItems[FilenameText] = std::make_unique<TSummaryItem>(*label);
}

void TDesktopWelcomeView::AddMemo(QVBoxLayout& layout) {
  auto* memo = new QPlainTextEdit;
  memo->setReadOnly(true);
  memo->setFrameShape(QFrame::NoFrame);
  memo->document()->setDocumentMargin(0);
  memo->viewport()->setAutoFillBackground(false);
  memo->setTabChangesFocus(true);
  memo->setMinimumHeight(3 * memo->fontMetrics().lineSpacing());
  memo->setAccessibleName(UserText(ViewTexts::DescriptionGroup));
  layout.addWidget(memo, 1);
  FItems[DescriptionMemo] = std::make_unique<TDesktopMemoItem>(*memo);
}

void TDesktopWelcomeView::AddStart(QVBoxLayout& layout) {
  FStart = new QWidget;
  auto* start = new QVBoxLayout(FStart);
  start->setContentsMargins(20, 4, 20, 0);
  auto* howTo = new QLabel(UserText(ViewTexts::HowToOpen));
  howTo->setWordWrap(true);
  start->addWidget(howTo);
  FRecentHeading = new QLabel(UserText(ViewTexts::RecentFiles));
  SetSize(*FRecentHeading, UsualSize, true);
  start->addSpacing(8);
  start->addWidget(FRecentHeading);
  FRecent = new TRecentList(FRecentHeading->text());
  FRecent->viewport()->setAutoFillBackground(false);
  FRecent->setMinimumHeight(4 * FRecent->fontMetrics().lineSpacing());
  FPanel.AddRegion(*FRecent);
  start->addWidget(FRecent, 1);
  start->addStretch();
  layout.addWidget(FStart);
  // Queued: opening a file ends the view.
  FRecent->OnChoose = [this](int index) {
    QMetaObject::invokeMethod(
        &FPanel.Receiver(), [chosen = OnRecentClick, index] { chosen(index); }, Qt::QueuedConnection);
  };
}

void TDesktopWelcomeView::SetStart(bool visible, const std::vector<TRecentItem>& recent) {
  auto* cards = static_cast<QVBoxLayout*>(FScreen->Center->layout());
  cards->setStretchFactor(FDescription, visible ? 0 : 1);
  cards->setStretchFactor(FStart, visible ? 1 : 0);
  FStart->setVisible(visible);
  FRecentHeading->setVisible(!recent.empty());
  FRecent->setVisible(!recent.empty());
  FRecent->SetItems(recent, true);
  FRecent->setCurrentRow(0);
  FScreen->setFocusProxy(visible && !recent.empty() ? FRecent : nullptr);
  if (FScreen->isVisible()) FScreen->Fit();
}

void TDesktopWelcomeView::MoveCenterPanel(int left, int top) {
  FScreen->Center->move(left, top);
}
