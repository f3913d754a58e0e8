#pragma once

#include <QDialog>

#include "VantrelDialogs.h"

/// A dialog over the window that is active when it is made.
class TDesktopModalForm : public QDialog, public TVantrelModalForm {
 public:
  TDesktopModalForm();

  bool ShowModal() override;
  void Close(bool ok) override { done(ok ? Accepted : Rejected); }
  void done(int result) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};
