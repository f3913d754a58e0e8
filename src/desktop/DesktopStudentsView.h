#pragma once

#include "DesktopFormItems.h"
#include "HostedPanel.h"
#include "fStudentsViewUi.h"

class QTabWidget;
class TDesktopGrid;

/// The students view's screen: the list on the left, the pages on the right, the title above both.
class TDesktopStudentsView final : public TStudentsViewUi {
 public:
  explicit TDesktopStudentsView(TDesktopMainWindow& window);
  ~TDesktopStudentsView() override;

  void SetVisible(bool visible) override { FPanel.SetVisible(visible); }
  TVantrelFormItem& TitleLabel() override { return FTitle; }
  TVantrelFormItem& StudentsStatus() override { return FStudentsStatus; }
  TVantrelFormItem& AchievementsStatus() override { return FAchievementsStatus; }
  TVantrelGrid& StudentsGrid() override;
  TVantrelGrid& AchievementsGrid() override;
  TStudentsPage ActivePage() const override;
  void SetActivePage(TStudentsPage page) override;
  void SetPageVisible(TStudentsPage page, bool visible) override;
  void SetPagesEnabled(bool enabled) override;

 private:
  QWidget* MakeStudentsPanel();
  QWidget* MakeAchievementSheet();
  void MakePages();

  TDesktopGrid* FStudents;
  TDesktopGrid* FAchievements;
  QLabel* FTitleLabel;
  QLabel* FStudentsCount;
  QLabel* FAchievementsCount;
  QTabWidget* FPages;
  TDesktopLabelItem FTitle;
  TDesktopLabelItem FStudentsStatus;
  TDesktopLabelItem FAchievementsStatus;
  THostedPanel FPanel;
};
