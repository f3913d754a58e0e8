#pragma once

#include <string>
#include <vector>

#include "VantrelCommands.h"
#include "VantrelDialogs.h"

/// The window in which a mistake is corrected. It leaves the mistake itself in sight.
class TCorrectionUi {
 public:
  virtual ~TCorrectionUi() = default;
  /// Once, before all else. The first command is the default button; they outlive the window.
  virtual void SetCommands(const std::vector<TVantrelCommand*>& commands) = 0;
  virtual TVantrelModalForm& Form() = 0;
  /// The wrong word and what stands around it.
  virtual void ShowMistake(const std::string& before, const std::string& word, const std::string& behind) = 0;
  /// The nearest words; the one that the user takes becomes the replacement.
  virtual void SetSuggestions(const std::vector<std::string>& words) = 0;
  /// A line that can be edited.
  virtual TVantrelFormItem& Replacement() = 0;
};

/// A dialog of tick boxes below an explanation, with OK and Cancel, on the centre of the main window.
class TTickDialogUi {
 public:
  virtual ~TTickDialogUi() = default;
  /// Once, before all else.
  virtual void SetTexts(const std::string& title, const std::string& explanation,
                        const std::vector<std::string>& captions) = 0;
  virtual TVantrelModalForm& Form() = 0;
  /// By its place among the captions; its value is a Boolean.
  virtual TVantrelFormItem& Box(std::size_t index) = 0;
};
