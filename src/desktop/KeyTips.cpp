#include "KeyTips.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QWidget>

QStringList AssignKeyTips(const QStringList& captions) {
  QStringList letters(captions.size());
  for (qsizetype i = 0; i < captions.size(); ++i) {
    const auto mark = captions[i].indexOf('&');
    const QString letter = mark < 0 ? QString() : captions[i].mid(mark + 1, 1).toUpper();
    if (!letters.contains(letter)) letters[i] = letter;
  }
  for (qsizetype i = 0; i < captions.size(); ++i) {
    if (!letters[i].isEmpty()) continue;
    QString candidates;
    for (const QChar c : captions[i].toUpper())
      if (c.isLetter()) candidates += c;
    for (const QChar c : candidates + "123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ") {
      if (letters.contains(QString(c))) continue;
      letters[i] = c;
      break;
    }
  }
  return letters;
}

namespace {

QStringList LettersOf(const std::vector<TKeyTipTarget>& targets) {
  QStringList captions;
  for (const auto& target : targets) captions << target.Caption;
  return AssignKeyTips(captions);
}

bool CanBeChosen(const TKeyTipTarget& target) {
  return target.Widget->isVisible() && target.Widget->isEnabled();
}

/// What the key stands for, whether or not Alt is held.
QString LetterOf(const QKeyEvent& event) {
  const auto key = static_cast<char32_t>(event.key());
  return key > Qt::Key_Space && key < Qt::Key_Escape ? QString::fromUcs4(&key, 1).toUpper() : event.text().toUpper();
}

/// A key that no tip can mean: the tips give way to it.
bool IsOfOthers(const QKeyEvent& key) {
  const bool isModifier = key.key() == Qt::Key_Alt || key.key() == Qt::Key_AltGr || key.key() == Qt::Key_Shift ||
                          key.key() == Qt::Key_Control || key.key() == Qt::Key_Meta;
  if (isModifier || key.key() == Qt::Key_Escape) return false;
  return LetterOf(key).isEmpty() || (key.modifiers() & (Qt::ControlModifier | Qt::MetaModifier)) != 0;
}

}  // namespace

TKeyTips::TKeyTips(QWidget& window, TTargets firstTargets, TTargets nextTargets)
    : QObject(&window), FWindow(window), FFirst(std::move(firstTargets)), FNext(std::move(nextTargets)) {
  qApp->installEventFilter(this);
}

void TKeyTips::Hide() {
  for (auto* label : FLabels) {
    label->hide();
    label->deleteLater();
  }
  FLabels.clear();
  FLetters.clear();
  FTargets.clear();
}

void TKeyTips::Show(const TTargets& targets, bool first) {
  Hide();
  FAtFirst = first;
  FTargets = targets();
  FLetters = LettersOf(FTargets);
  for (std::size_t i = 0; i < FTargets.size(); ++i) {
    if (!CanBeChosen(FTargets[i])) continue;
    auto* label = new QLabel(FLetters[static_cast<qsizetype>(i)], &FWindow);
    label->setAutoFillBackground(true);
    label->setBackgroundRole(QPalette::ToolTipBase);
    label->setForegroundRole(QPalette::ToolTipText);
    label->setFrameShape(QFrame::Box);
    label->setMargin(2);
    label->adjustSize();
    const auto& [widget, caption, choose, leadsOn, place] = FTargets[i];
    const QRect area = place.isEmpty() ? widget->rect() : place;
    const QPoint foot = widget->mapTo(&FWindow, QPoint(area.center().x(), area.bottom()));
    label->move(foot.x() - label->width() / 2, foot.y() - label->height() * 2 / 3);
    label->raise();
    label->show();
    FLabels.push_back(label);
  }
}

bool TKeyTips::TakeKey(int key, const QString& letter) {
  if (key == Qt::Key_Escape) {
    if (FAtFirst)
      Hide();
    else
      Show(FFirst, true);
    return true;
  }
  const auto at = FLetters.indexOf(letter);
  if (letter.isEmpty() || at < 0) {
    Hide();
    return false;
  }
  const auto target = FTargets[static_cast<std::size_t>(at)];
  if (!CanBeChosen(target)) return true;
  Hide();
  target.Choose();
  if (target.LeadsOn) Show(FNext, false);
  return true;
}

bool TKeyTips::eventFilter(QObject* watched, QEvent* event) {
  const auto type = event->type();
  if (type == QEvent::MouseButtonPress || type == QEvent::WindowDeactivate) {
    FAltAlone = false;
    if (IsShown()) Hide();
  }
  if (type != QEvent::KeyPress && type != QEvent::KeyRelease && type != QEvent::ShortcutOverride) return false;
  const auto* widget = qobject_cast<QWidget*>(watched);
  if (widget == nullptr || widget->window() != &FWindow) return false;
  const auto* key = static_cast<QKeyEvent*>(event);
  const bool begins = !IsShown() && key->key() != Qt::Key_Alt && key->modifiers() == Qt::AltModifier &&
                      LettersOf(FFirst()).contains(LetterOf(*key));
  if (type == QEvent::ShortcutOverride) {
    if (IsShown() && IsOfOthers(*key)) Hide();
    if (IsShown() || begins) event->accept();
    return false;
  }
  if (key->key() == Qt::Key_Alt) {
    if (type == QEvent::KeyPress) {
      FAltAlone = !key->isAutoRepeat() || FAltAlone;
    } else if (FAltAlone) {
      FAltAlone = false;
      if (IsShown())
        Hide();
      else
        Show(FFirst, true);
      return true;
    }
    return false;
  }
  FAltAlone = false;
  if (type != QEvent::KeyPress) return false;
  if (begins) Show(FFirst, true);
  return IsShown() && (key->isAutoRepeat() || TakeKey(key->key(), LetterOf(*key)));
}
