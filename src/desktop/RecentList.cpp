#include "RecentList.h"

#include <QFileInfo>
#include <QKeyEvent>

#include "DesktopTexts.h"
#include "QtText.h"

TRecentList::TRecentList(const QString& name) {
  setFrameShape(QFrame::NoFrame);
  setTextElideMode(Qt::ElideMiddle);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setAccessibleName(name);
  connect(this, &QListWidget::itemClicked, this, [this](const QListWidgetItem* item) {
    if (OnChoose) OnChoose(row(item));
  });
}

void TRecentList::SetItems(const std::vector<TRecentItem>& items, bool withFolder) {
  clear();
  for (const auto& item : items) {
    const QString name = FromUtf8(item.DisplayText), path = FromUtf8(item.StoredText);
    auto* entry = new QListWidgetItem(
        withFolder ? UserText(DesktopTexts::FileInFolder).arg(name, QFileInfo(path).path()) : name, this);
    entry->setToolTip(path);
    entry->setSizeHint(QSize(0, fontMetrics().height() + 8));
  }
}

void TRecentList::keyPressEvent(QKeyEvent* event) {
  const bool chooses = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!chooses || currentItem() == nullptr) return QListWidget::keyPressEvent(event);
  if (OnChoose) OnChoose(currentRow());
}
