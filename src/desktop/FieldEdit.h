#pragma once

#include <QObject>
#include <functional>

#include "ValueEditor.h"

/// A field of a form: its editor, from the keyboard's coming to its going.
class TFieldEdit : public QObject, public TEditorOwner {
 public:
  TFieldEdit(const TEditorDescription& description, QWidget* parent);

  TValueEditor& Editor() { return FEditor; }
  const TVariant& Value() const { return FValue; }
  /// What it was before the user's last change.
  const TVariant& ValueBefore() const { return FBefore; }
  void SetValue(const TVariant& value);
  bool IsValid() const { return FEditor.IsComplete(); }
  /// What is no value stays there when the keyboard goes, for the form to ask about; else the value from before the
  /// keyboard came stands there again.
  void KeepWrong() { FKeepsWrong = true; }
  /// Tells the user where what stands there is no value.
  void Check();

  void EditorChanged() override;
  /// Nothing is told any more: the form goes, and its editors lose the keyboard.
  void Release();

  std::function<void()> OnChange;
  /// What stands there is another, be it a value or none.
  std::function<void()> OnType;
  std::function<void()> OnLeave;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Show();
  /// What is typed next begins anew, as after Tab.
  void SelectAll();
  void Take(const TVariant& value);
  void Enter();
  void Leave();
  bool TakeKey(const QKeyEvent& key);
  bool TakeReturn();
  bool TakeBack();

  TValueEditor& FEditor;
  bool FKeepsWrong = false;
  TVariant FValue = TVariant::Null();
  TVariant FBefore = TVariant::Null();
  TVariant FEntered = TVariant::Null();  ///< as it was when the keyboard came
};
