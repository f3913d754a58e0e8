#pragma once

#include <QPersistentModelIndex>
#include <QPointer>
#include <functional>

#include "GridModel.h"
#include "ValueEditor.h"

/// The edit of one cell from its beginning to its end: what the user changes, what is posted and what is taken back.
class TCellEdit : public TEditorOwner {
 public:
  TCellEdit(TGridModel& model, const TVantrelGrid& events) : FModel(model), FEvents(events) {}

  /// The edit of a cell begins; the one before is over.
  void Begin(const QModelIndex& index);
  /// The cell's editor has been made. It is not owned.
  void SetEditor(TValueEditor& editor);
  /// Shows the value from before the edit; `shown` is how it reads. Called again when the row has changed: a value that
  /// came from elsewhere is shown as long as the user has touched nothing. What he has entered stands and is posted
  /// over it, but the value from before the edit is then the new one.
  void Load(const QString& shown);
  /// The editor is open: tells so, and lets it begin behind the text or with all of it to be replaced.
  void Open(bool atEnd);
  /// The editor has gone, whatever became of its value. Told once.
  void End();

  /// None where no editor has been made, or it has gone.
  TValueEditor* Editor() const { return FWidget == nullptr ? nullptr : FEditor; }
  bool IsOf(const QObject* widget) const { return FWidget != nullptr && FWidget == widget; }
  /// -1 where the cell has gone.
  int Ordinal() const { return FIndex.column(); }

  void EditorChanged() override;
  void EditorAccepted() override;
  /// A post would write something.
  bool HasDraft() const;
  /// Writes what stands in the editor, if the user changed it and it can be stored.
  void Post();
  /// Posts, and from then on that is what the edit goes back to. What cannot be stored stays, marked as refused.
  void Save();
  /// Writes back what the cell held before the edit, or at the last Save. What stands in the editor is not posted any
  /// more.
  void Revert();

  std::function<void()> OnAccepted;  ///< the user took a value with the mouse

 private:
  /// Takes the editor's value as the one to write; false where the cell holds it.
  bool TakeValue();
  void Write(const TVariant& value);
  void WriteBack();

  TGridModel& FModel;
  const TVantrelGrid& FEvents;
  TValueEditor* FEditor = nullptr;
  QPointer<QWidget> FWidget;
  QPersistentModelIndex FIndex;
  TVariant FBefore;
  /// What the cell holds as far as this edit knows.
  TVariant FStored;
  TVariant FValue;
  bool FIsOpen = false;
  bool FLoaded = false;
  bool FTouched = false;
  bool FPosted = false;
  bool FWriting = false;
};
