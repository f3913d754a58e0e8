#pragma once

#include <functional>

#include "GridPaneUi.h"
#include "VantrelFieldForm.h"
#include "fBaseViewUi.h"

enum class TStudentsPage { AchievementSheet, CertificateDataSheet, CertificateCommentsSheet };

/// The screen of the students view: a title across the top; on the left a panel of 300 pixels with the label
/// StudentsLabel and the list; pages with the rest. It wants 1264 by 616 pixels and scrolls where there is less.
///
/// Ctrl+PageDown and Ctrl+PageUp turn the pages; the tabs themselves are for the mouse.
class TStudentsViewUi : public TFormUi {
 public:
  std::function<void()> OnPageChanged;

  virtual TVantrelFormItem& TitleLabel() = 0;
  virtual TGridPaneUi& Students() = 0;
  /// With the button FitColumns.
  virtual TGridPaneUi& Achievements() = 0;
  virtual TVantrelFieldForm& CertificateData() = 0;
  /// With a bar of commands and the button FitColumns.
  virtual TGridPaneUi& CertificateComments() = 0;
  virtual TStudentsPage ActivePage() const = 0;
  /// Raises no event.
  virtual void SetActivePage(TStudentsPage page) = 0;
  virtual void SetPageVisible(TStudentsPage page, bool visible) = 0;
  /// Whether pages can be turned, and what is on them used.
  virtual void SetPagesEnabled(bool enabled) = 0;
};
