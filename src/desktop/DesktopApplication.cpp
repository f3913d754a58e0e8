#include "DesktopApplication.h"

#include <QEvent>
#include <QScopeGuard>
#include <QTimer>

#include "DesktopTexts.h"
#include "QtText.h"
#include "VantrelMsgBox.h"

bool TDesktopApplication::notify(QObject* receiver, QEvent* event) {
  const bool isAsked = event->isInputEvent() || event->type() == QEvent::Shortcut;
  try {
    return QApplication::notify(receiver, event);
  } catch (const std::exception& error) {
    Keep(error.what(), isAsked);
  } catch (...) {
    Keep("?", isAsked);
  }
  return false;
}

void TDesktopApplication::Keep(const char* message, bool isAsked) {
  const bool isNew = FTold.emplace(message).second;
  if (!FKept.empty() || !(isNew || isAsked)) return;
  FKept = ToUtf8(UserText(DesktopTexts::UnexpectedError).arg(message));
  QTimer::singleShot(0, this, [this] { Tell(); });
}

void TDesktopApplication::Tell() {
  // While the box stands there is no second one.
  const auto done = qScopeGuard([this] { FKept.clear(); });
  MsgBoxError(FKept);
}
