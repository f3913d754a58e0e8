#pragma once

#include <QLineEdit>
#include <vector>

#include "ValueEditor.h"

class QSizeGrip;
class QTreeWidget;

/// Picks one of the entries of a lookup or a list. What is typed marks the entry at once: the one that reads so, else
/// the number of that value, else the first that starts so. What names no entry stays as it was typed and is not
/// stored. A value that is not on offer is shown as it reads. The drop-down never takes the keyboard; a long one can be
/// sized with the mouse and stays so.
class TLookupEdit : public QLineEdit, public TValueEditor {
 public:
  TLookupEdit(const TEditorDescription& description, QWidget* parent);
  /// Opens the drop-down.
  void Begin(bool atEnd) override;
  void PlaceInCell(const QRect& cell) override;
  void SetAlignment(Qt::Alignment alignment) override { setAlignment(alignment); }
  /// Left and right: the text has no cursor.
  QPoint StepsOf(const QKeyEvent& key) const override;
  void Reload() override;

  bool IsListOpen() const;
  void OpenList();
  bool CloseList() override;
  /// A text that names nothing.
  bool CanTakeBack(bool again) const override { return !again && !IsComplete(); }
  const QTreeWidget& List() const { return *FList; }

 protected:
  TVariant Entered() const override;
  void Show(const TVariant& value, const QString& shown) override;
  bool CanStore() const override { return FMarked >= 0 || FTyped.isEmpty(); }
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void moveEvent(QMoveEvent* event) override;

 private:
  /// So many entries are seen without scrolling.
  static constexpr int ShownRows = 12;

  struct TEntry {
    TVariant Key;
    QString Shown;
    QString Description;
  };
  /// What stood there before the first letter was typed.
  struct TBefore {
    int Entry = -1;
    QString Text;
    bool IsChanged = false;
  };

  std::vector<TEntry> ReadEntries() const;
  int EntryOf(const TVariant& value) const;
  int Find(const QString& typed) const;
  /// Marks an entry, -1 for none, which came about by what was typed, and shows a text.
  void Mark(int entry, const QString& typed, const QString& text);
  // What the user does. True where that is a change.
  bool MarkByUser(int entry, const QString& typed);
  bool Type(const QString& typed);
  bool Shorten();
  /// The entry that a key leads to, which may lie beyond the first or last one.
  int TargetOf(const QKeyEvent& key) const;
  bool TakeBack();
  /// Selects what completes the typed text, so that the text shows from its start.
  void SelectRest();
  void MakeList();
  void FillList();
  void PlaceList();
  /// Keeps the size that the user has given the open list.
  void KeepSize();
  void MarkUnderMouse(int entry);

  std::vector<TEntry> FEntries;
  QTreeWidget* FList;
  QSizeGrip* FGrip;
  QSize FPlaced, FSized;  ///< of the list as the program and as the user made it
  int FMarked = -1;
  int FUnderMouse = -1;
  QString FTyped;
  TBefore FBefore;
};
