#pragma once

#include <functional>
#include <string>
#include <vector>

#include "VantrelEditors.h"

/// A field of a form, and the key by which logic and form call it.
struct TFormField {
  std::string Key;
  std::string Caption;
  TEditorDescription Editor = {};
  bool StartsBlock = false;  ///< a thin empty row parts it from what is shown above it
  std::string Name = {};     ///< what a screen reader calls it, where the caption alone does not tell
};

/// Fields that stand below one caption.
struct TFormGroup {
  std::string Key;
  std::string Caption;
  std::vector<TFormField> Fields;
  int Width = 0;  ///< at least, in pixels at scale 1 and with a usual font
};

/// The groups stand side by side. Tab goes through the fields in this order.
struct TFormDescription {
  std::vector<TFormGroup> Groups;
  bool Ticks = false;  ///< a tick box stands before each field
  /// What is no value stays in its field when the keyboard goes, for the logic to ask about in the end; else the value
  /// from before the keyboard came stands there again.
  bool KeepsWrong = false;
  std::string Note = {};  ///< what can be said beside each field (see ShowNote)
};

/// A form of labelled fields as its logic sees it. Keys that the form does not have are nothing. What the logic sets
/// raises no event; widgets belong to the window.
class TVantrelFieldForm {
 public:
  virtual ~TVantrelFieldForm() = default;

  /// The user made the value of a field another one: at each change, and when Escape takes it back.
  std::function<void(const std::string& key)> OnChange;
  /// The user has typed into a field, be it a value or none; and Escape.
  std::function<void(const std::string& key)> OnType;
  /// The keyboard has left a field.
  std::function<void(const std::string& key)> OnLeave;
  std::function<void(const std::string& key)> OnTick;

  /// Once, before all else.
  virtual void SetFields(const TFormDescription& form) = 0;

  /// As it was set until the user changes it, null for an empty field. While the field holds what cannot be stored it
  /// is the value from before the keyboard came there.
  virtual TVariant Value(const std::string& key) const = 0;
  virtual void SetValue(const std::string& key, const TVariant& value) = 0;
  /// What stands in the field can be stored.
  virtual bool IsValid(const std::string& key) const = 0;
  /// Marks the fields in which stands what cannot be stored, until it can.
  virtual void Check() = 0;
  virtual void SetEnabled(const std::string& key, bool enabled) = 0;
  virtual void SetVisible(const std::string& key, bool visible) = 0;
  virtual void SetGroupVisible(const std::string& key, bool visible) = 0;
  virtual bool IsTicked(const std::string& key) const = 0;
  virtual void SetTicked(const std::string& key, bool ticked) = 0;
  virtual void SetFocus(const std::string& key) = 0;
  /// Nothing is said beside a field until this is called.
  virtual void ShowNote(const std::string& key, bool visible) = 0;
};
