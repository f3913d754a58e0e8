#pragma once

#include <functional>

#include "VantrelDialogs.h"
#include "VantrelGrid.h"
#include "fBaseViewUi.h"

enum class TStudentsPage { AchievementSheet, CertificateDataSheet, CertificateCommentsSheet };

/// The screen of the students view: a title across the top; on the left a panel of 300 pixels with the label
/// StudentsLabel, the list and its status; pages with the rest. Below the achievements stand their status and the
/// button FitColumns. It wants 1264 by 616 pixels and scrolls where there is less.
class TStudentsViewUi : public TFormUi {
 public:
  std::function<void()> OnPageChanged;
  /// The button under the achievements.
  std::function<void()> OnFit;

  virtual TVantrelFormItem& TitleLabel() = 0;
  virtual TVantrelFormItem& StudentsStatus() = 0;
  virtual TVantrelFormItem& AchievementsStatus() = 0;
  virtual TVantrelGrid& StudentsGrid() = 0;
  virtual TVantrelGrid& AchievementsGrid() = 0;
  virtual TStudentsPage ActivePage() const = 0;
  /// Raises no event.
  virtual void SetActivePage(TStudentsPage page) = 0;
  virtual void SetPageVisible(TStudentsPage page, bool visible) = 0;
  /// Whether pages can be turned, and what is on them used.
  virtual void SetPagesEnabled(bool enabled) = 0;
};
