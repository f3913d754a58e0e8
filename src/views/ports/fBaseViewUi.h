#pragma once

/// The screen parts of a form, which the user interface makes and the form owns. They may end within an event of
/// their own; none comes afterwards.
class TFormUi {
 public:
  virtual ~TFormUi() = default;
  /// The form fills the view host, or goes out of sight.
  virtual void SetVisible(bool visible) = 0;
};
