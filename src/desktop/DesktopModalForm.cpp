#include "DesktopModalForm.h"

#include "DesktopLook.h"

TDesktopModalForm::TDesktopModalForm() : QDialog(ActiveWindow()) {}

bool TDesktopModalForm::ShowModal() {
  const TDialogScope scope;
  return exec() == Accepted;
}

void TDesktopModalForm::done(int result) {
  if (!OnCloseQuery || OnCloseQuery(result == Accepted)) QDialog::done(result);
}
