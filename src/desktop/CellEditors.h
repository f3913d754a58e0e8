#pragma once

#include <QAbstractSpinBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <functional>
#include <vector>

#include "VantrelGrid.h"

class QTreeWidget;

/// What all cell editors have in common; each is a widget besides. An empty editor gives null.
class TCellEditor {
 public:
  virtual ~TCellEditor() = default;
  /// Until the user changes the editor this is the value as it was set, then what stands in the editor.
  TVariant Value() const { return FChanged ? Entered() : FStored; }
  /// `shown` is how a value reads that the editor has no words for. Raises no OnChanged.
  void SetValue(const TVariant& value, const QString& shown = {});
  /// What stands in the editor is a value that may be stored.
  bool IsComplete() const { return !FChanged || CanStore(); }
  /// What stands in the editor cannot be left with the keys that store.
  virtual bool KeepsOpen() const { return !IsComplete(); }
  /// Begins the edit of a cell: the cursor behind the text, or all of the text to be replaced.
  virtual void Begin(bool atEnd) = 0;
  /// Tells the user that the last key was not taken: the bell, and a warning frame until the next key.
  void Refuse();
  bool HasRefused() const { return FSign != nullptr; }

  std::function<void()> OnChanged;   ///< the user changed the value
  std::function<void()> OnAccepted;  ///< the user took a value with the mouse

 protected:
  virtual TVariant Entered() const = 0;
  virtual void Show(const TVariant& value, const QString& shown) = 0;
  virtual bool CanStore() const { return true; }
  bool IsChanged() const { return FChanged; }
  void Changed();

 private:
  TVariant FStored = TVariant::Null();
  bool FChanged = false;
  QPointer<QWidget> FSign;
};

/// One line of text.
class TPlainEdit : public QLineEdit, public TCellEditor {
 public:
  explicit TPlainEdit(QWidget* parent);
  void Begin(bool atEnd) override;

 protected:
  TVariant Entered() const override;
  void Show(const TVariant& value, const QString& shown) override;
};

/// Text of any number of lines; Shift or Alt with Enter begins a new one. Grows with its text as far as the room above
/// and below allows. Line ends are written as they were read, new ones like the first, CRLF where there is none.
class TMemoEdit : public QPlainTextEdit, public TCellEditor {
 public:
  explicit TMemoEdit(QWidget* parent);
  void Begin(bool atEnd) override;
  /// Takes place over a cell.
  void Fit(const QRect& cell);
  /// Whether an arrow key would leave the text upwards or downwards.
  bool IsAtEdge(int key) const;

 protected:
  TVariant Entered() const override;
  void Show(const TVariant& value, const QString& shown) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QRect FCell;
  /// The line ends of the text as it was read; a block's state is the place of the one before it.
  QStringList FLineEnds;
};

/// A number or nothing, typed or stepped by key or button. With places it gives floats, without integers. A point is
/// typed as a comma. What is shown can always be shortened; a number outside the limits is not stored.
class TNumberEdit : public QAbstractSpinBox, public TCellEditor {
 public:
  TNumberEdit(double minimum, double maximum, int decimals, QWidget* parent);
  bool KeepsOpen() const override { return false; }
  void Begin(bool atEnd) override;
  void stepBy(int steps) override;
  QValidator::State validate(QString& input, int& position) const override;

 protected:
  TVariant Entered() const override;
  void Show(const TVariant& value, const QString& shown) override;
  bool CanStore() const override;
  StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  bool Takes(const QString& text) const;
  TVariant NumberOf(double number) const;
  void SetText(const TVariant& value);

  double FMinimum, FMaximum;
  int FDecimals;
  QString FText;  ///< as it was before the change that is being validated
  bool FKeyRefused = false;
  bool FCommaRefused = false;
};

/// A date or nothing: typed as d.m.yy or d.m.yyyy, stepped by day with the arrow keys, or picked from a calendar with
/// buttons for today and for none.
class TDateEdit : public QLineEdit, public TCellEditor {
 public:
  explicit TDateEdit(QWidget* parent);
  void Begin(bool atEnd) override;
  void OpenCalendar();

 protected:
  TVariant Entered() const override;
  void Show(const TVariant& value, const QString& shown) override;
  bool CanStore() const override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Take(const QDate& date);
};

/// One line of a drop-down.
struct TLookupEntry {
  TVariant Key;
  QString Shown;
  QString Description;
};

/// Picks one of the entries. What is typed marks the entry at once: the one that reads so, else the number of that
/// value, else the first that starts so. What names no entry stays as it was typed and is not stored. A value that is
/// not on offer is shown as it reads. The drop-down is open from the start and never takes the keyboard.
class TLookupEdit : public QLineEdit, public TCellEditor {
 public:
  TLookupEdit(std::vector<TLookupEntry> entries, QWidget* parent);
  ~TLookupEdit() override;
  void Begin(bool atEnd) override;

  bool IsListOpen() const;
  void OpenList();
  void CloseList();
  const QTreeWidget& List() const { return *FList; }

 protected:
  TVariant Entered() const override;
  void Show(const TVariant& value, const QString& shown) override;
  bool CanStore() const override { return FMarked >= 0 || FTyped.isEmpty(); }
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void moveEvent(QMoveEvent* event) override;

 private:
  int Find(const QString& typed) const;
  /// Marks an entry, -1 for none, which came about by what was typed, and shows a text.
  void Mark(int entry, const QString& typed, const QString& text);
  void MarkByUser(int entry, const QString& typed);
  /// Takes what the user has typed so far.
  void Type(const QString& typed);
  void Clear();
  /// Selects what completes the typed text, so that the text shows from its start.
  void SelectRest();
  void FillList();
  void PlaceList();
  void MarkUnderMouse(int entry);

  std::vector<TLookupEntry> FEntries;
  QTreeWidget* FList;
  int FMarked = -1;
  int FUnderMouse = -1;
  QString FTyped;
};
