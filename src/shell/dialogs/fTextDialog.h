#pragma once

#include <functional>
#include <memory>
#include <string>

#include "VantrelSpelling.h"
#include "fSpellingUi.h"
#include "fTextDialogUi.h"
#include "mLookup.h"
#include "uOptions.h"

/// What the text dialogs are built on. All of it outlives them.
struct TTextDialogFrame {
  const std::function<std::unique_ptr<TTextDialogUi>()>& CreateUi;
  const std::function<std::unique_ptr<TCorrectionUi>()>& CreateCorrectionUi;
  /// Of CurrentProject.
  TLookupTables& Lookups;
  const TMyTessaronOptions& Options;
  TVantrelWaitCursor& WaitCursor;
};

/// Lets the user edit a certificate remark, with the catalogue of remarks beside it; the texts of all rows that he adds
/// stand on lines of their own, and the last one gives position and attribute. True if the dialog ended with OK, and
/// only then the values are others: a position that was emptied is 0, a changed text has CRLF at its line ends; what
/// was not changed stays as it was, also a position below 0, which reads as 0. `student` is what the user reads below.
bool EditCertificateCommentValues(const TTextDialogFrame& frame, int& position, std::string& attribute,
                                  std::string& description, const std::string& student = {});

/// Likewise an assessment in a subject, with the catalogue of assessments. True if the dialog ended with OK: every line
/// of the text, the last one too, ends in CRLF then; an empty one stays empty.
bool EditZeugnisbeurteilung(const TTextDialogFrame& frame, const std::string& subject, std::string& text,
                            const std::string& student = {});
