#pragma once

#include "DesktopGridPane.h"
#include "DesktopViewScreen.h"
#include "fStudentsViewUi.h"

class QTabWidget;

/// The students view's screen: the list on the left, the pages on the right, the title above both.
class TDesktopStudentsView final : public TStudentsViewUi {
 public:
  explicit TDesktopStudentsView(TDesktopMainWindow& window);

  void SetVisible(bool visible) override { FScreen.SetVisible(visible); }
  TVantrelFormItem& TitleLabel() override { return FScreen.Title(); }
  TGridPaneUi& Students() override { return FStudents; }
  TGridPaneUi& Achievements() override { return FAchievements; }
  TGridPaneUi& CertificateComments() override { return FComments; }
  TStudentsPage ActivePage() const override;
  void SetActivePage(TStudentsPage page) override;
  void SetPageVisible(TStudentsPage page, bool visible) override;
  void SetPagesEnabled(bool enabled) override;

 private:
  void AddPageKeys();
  void TurnPage(int step);

  TDesktopViewScreen FScreen;
  TDesktopGridPane FStudents;
  TDesktopGridPane FAchievements;
  TDesktopGridPane FComments;
  QTabWidget* FPages;
};
