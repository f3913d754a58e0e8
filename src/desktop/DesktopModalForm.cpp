#include "DesktopModalForm.h"

#include <QKeyEvent>

#include "DesktopLook.h"
#include "MenuKey.h"

TDesktopModalForm::TDesktopModalForm() : QDialog(ActiveWindow()) {}

bool TDesktopModalForm::ShowModal() {
  const TDialogScope scope;
  const bool ok = exec() == Accepted;
  // A window manager that loses a box and the dialog below it at once may leave the keyboard to nobody.
  if (auto* parent = parentWidget()) parent->activateWindow();
  return ok;
}

void TDesktopModalForm::done(int result) {
  if (!OnCloseQuery || OnCloseQuery(result == Accepted)) QDialog::done(result);
}

void TDesktopModalForm::keyPressEvent(QKeyEvent* event) {
  if (!OpensMenu(*event, *this)) QDialog::keyPressEvent(event);
}
