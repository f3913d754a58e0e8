#pragma once

#include <array>
#include <functional>
#include <string>

#include "GridPaneUi.h"
#include "VantrelFieldForm.h"

enum class TBatchPage { SelectStudentsPage, SelectDataPage };
enum class TBatchButton { Back, Next, Finish, Close };

/// What is read in the wizard.
struct TBatchTexts {
  struct TPage {
    std::string Title;
    std::string Description;
  };
  std::string Title;
  std::array<TPage, 2> Pages;          ///< by TBatchPage
  std::array<std::string, 4> Buttons;  ///< captions by TBatchButton
  std::string Notice;                  ///< stands out, below the fields
};

/// The window of the batch dialog: a wizard of two pages, at least 800 by 600 pixels and of fixed size, over the window
/// in use. A list of students with SelectAllButton stands on the first page; a form with ticks, the notice and a quiet
/// line on the second. Return in an editor presses no button; what stands in an editor stays there while a button is
/// clicked.
class TBatchCertificateDataUi {
 public:
  virtual ~TBatchCertificateDataUi() = default;

  std::function<void(TBatchButton button)> OnButton;

  /// Once, before all else.
  virtual void SetTexts(const TBatchTexts& texts) = 0;
  virtual TVantrelModalForm& Form() = 0;
  virtual TGridPaneUi& Students() = 0;
  virtual TVantrelFieldForm& Fields() = 0;
  /// The quiet line.
  virtual TVantrelFormItem& Affected() = 0;
  virtual void SetButtonEnabled(TBatchButton button, bool enabled) = 0;
  virtual TBatchPage ActivePage() const = 0;
  /// The keyboard goes to the first place of the page.
  virtual void SetActivePage(TBatchPage page) = 0;
};
