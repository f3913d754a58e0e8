#pragma once

#include "DesktopGridPane.h"
#include "DesktopViewScreen.h"
#include "fStudentsViewUi.h"

class QTabWidget;
class TDesktopFieldForm;

/// The students view's screen: the list on the left, the pages on the right, the title above both.
class TDesktopStudentsView final : public TStudentsViewUi {
 public:
  explicit TDesktopStudentsView(TDesktopMainWindow& window);
  TDesktopStudentsView(const TDesktopStudentsView&) = delete;
  TDesktopStudentsView& operator=(const TDesktopStudentsView&) = delete;
  ~TDesktopStudentsView() override;

  void SetVisible(bool visible) override { FScreen.SetVisible(visible); }
  TVantrelFormItem& TitleLabel() override { return FScreen.Title(); }
  TGridPaneUi& Students() override { return FStudents; }
  TGridPaneUi& Achievements() override { return FAchievements; }
  TVantrelFieldForm& CertificateData() override;
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
  TDesktopFieldForm* FData;
  TDesktopGridPane FComments;
  QTabWidget* FPages;
};
