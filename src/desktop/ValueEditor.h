#pragma once

#include <QPointer>
#include <QWidget>
#include <optional>

#include "VantrelEditors.h"

class QKeyEvent;

/// What an editor belongs to: a cell, or a field of a form.
class TEditorOwner {
 public:
  virtual ~TEditorOwner() = default;
  /// The user changed what stands in the editor.
  virtual void EditorChanged() = 0;
  /// The user took a value with the mouse.
  virtual void EditorAccepted() {}
};

/// What all editors have in common; each is a widget besides. An empty editor gives null.
class TValueEditor {
 public:
  TValueEditor(QWidget& widget, TEditorDescription description);
  virtual ~TValueEditor() = default;

  QWidget& Widget() const { return FWidget; }
  const TEditorDescription& Description() const { return FDescription; }
  /// The owner outlives the editor or takes itself away.
  void SetOwner(TEditorOwner* owner) { FOwner = owner; }

  /// Until the user changes the editor this is the value as it was set, then what stands in the editor.
  TVariant Value() const { return FChanged ? Entered() : FStored; }
  /// `shown` is how a value reads that the editor has no words for. Tells nobody.
  void SetValue(const TVariant& value, const QString& shown = {});
  /// The value as it was set stands there again. Tells nobody.
  void Restore();
  /// Empties the editor as the user does.
  void Clear();
  bool IsChanged() const { return FChanged; }
  /// What stands in the editor is a value that may be stored.
  bool IsComplete() const { return !FChanged || CanStore(); }

  /// What stands in the editor cannot be left with the keys that store.
  virtual bool KeepsOpen() const { return !IsComplete(); }
  /// Begins the edit of a cell: the cursor behind the text, or all of the text to be replaced.
  virtual void Begin(bool atEnd) = 0;
  /// Takes place inside a cell, without a frame of its own.
  virtual void PlaceInCell(const QRect& cell) = 0;
  virtual void SetAlignment(Qt::Alignment) {}
  /// Cells to the right and rows down that a key leads out of a cell; nothing where the editor has use for the key.
  virtual QPoint StepsOf(const QKeyEvent&) const { return {}; }
  /// The key begins a new line of the text, also in a cell.
  virtual bool BreaksLine(const QKeyEvent&) const { return false; }
  /// Return is a key of the text where there is no cell.
  virtual bool HasLines() const { return false; }
  /// What was typed can be taken back, or done again, in the editor itself.
  virtual bool CanTakeBack(bool /*again*/) const { return false; }
  /// Reads anew what there is to choose from.
  virtual void Reload() {}
  /// Something that lies over the window belongs to the editor and is open; the call closes it.
  virtual bool CloseList() { return false; }

  /// Deals with a key that means the same in all editors: Delete, where it clears. False if it is none.
  bool TakeKey(const QKeyEvent& key);
  /// Decides who gets the keys that take back and do again: the editor as long as it can, else the window's commands.
  /// True where the event is such a key.
  bool DecidesOn(QEvent& event) const;
  /// Tells the user that the last key was not taken: the bell, and a warning frame until the next key.
  void Refuse();
  /// Likewise that what stands in the editor is no value: the frame stays until it is one.
  void RefuseText();
  bool HasRefused() const;
  bool IsTextRefused() const { return FRefusesText && !IsComplete(); }

 protected:
  virtual TVariant Entered() const = 0;
  virtual void Show(const TVariant& value, const QString& shown) = 0;
  virtual bool CanStore() const { return true; }
  void SetChanged() { FChanged = true; }
  /// What stands in the editor is another: tells the owner.
  void Tell();
  /// The user changed the value.
  void Changed();
  void Accepted();

 private:
  void EndRefusal();

  QWidget& FWidget;
  TEditorDescription FDescription;
  TEditorOwner* FOwner = nullptr;
  TVariant FStored = TVariant::Null();
  QString FShown;
  bool FChanged = false;
  bool FRefusesText = false;
  QPointer<QWidget> FSign;
};

/// The editor of a description. It belongs to its parent.
TValueEditor& MakeEditor(const TEditorDescription& description, QWidget* parent);

/// How a value reads that is edited so; nothing where the description has no words for it.
std::optional<QString> EditorText(const TEditorDescription& description, const TVariant& value);

/// How the user reads a number. Values of 32 bits are read as short as they were written, others with at most so many
/// places; -1 for any number.
QString NumberText(const TVariant& value, int places = -1);
