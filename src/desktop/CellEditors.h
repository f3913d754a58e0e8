#pragma once

#include <QAbstractSpinBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <functional>
#include <vector>

#include "VantrelGrid.h"

class QTreeWidget;

/// What all cell editors have in common; each is a widget besides. An empty editor gives null.
class TCellEditor {
 public:
  virtual ~TCellEditor() = default;
  virtual TVariant Value() const = 0;
  /// Raises no OnChanged.
  virtual void SetValue(const TVariant& value) = 0;

  std::function<void()> OnChanged;   ///< the user changed the value
  std::function<void()> OnAccepted;  ///< the user took a value with the mouse

 protected:
  void Changed() const {
    if (OnChanged) OnChanged();
  }
};

/// One line of text.
class TPlainEdit : public QLineEdit, public TCellEditor {
 public:
  explicit TPlainEdit(QWidget* parent);
  TVariant Value() const override;
  void SetValue(const TVariant& value) override;
};

/// Text of any number of lines; Shift or Alt with Enter begins a new one. Grows with its text as far as the room above
/// and below allows. Line ends are written as they were read.
class TMemoEdit : public QPlainTextEdit, public TCellEditor {
 public:
  explicit TMemoEdit(QWidget* parent);
  TVariant Value() const override;
  void SetValue(const TVariant& value) override;
  /// Takes place over a cell.
  void Fit(const QRect& cell);
  /// Whether an arrow key would leave the text upwards or downwards.
  bool IsAtEdge(int key) const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QRect FCell;
  bool FWindowsLines = false;
};

/// A number or nothing, typed or stepped. With places it gives floats, without integers.
class TSpinEdit : public QAbstractSpinBox, public TCellEditor {
 public:
  TSpinEdit(double minimum, double maximum, int decimals, QWidget* parent);
  TVariant Value() const override;
  void SetValue(const TVariant& value) override;
  void stepBy(int steps) override;
  QValidator::State validate(QString& input, int& position) const override;

 protected:
  StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }

 private:
  double FMinimum, FMaximum;
  int FDecimals;
};

/// A date or nothing: typed as d.m.yy or d.m.yyyy, stepped by day with the arrow keys, or picked from a calendar with
/// buttons for today and for none.
class TDateEdit : public QLineEdit, public TCellEditor {
 public:
  explicit TDateEdit(QWidget* parent);
  TVariant Value() const override;
  void SetValue(const TVariant& value) override;
  void OpenCalendar();

 protected:
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

/// Picks one of the entries. What is typed marks the entry at once: the one that reads so, else the first that starts
/// so; keys that lead nowhere are dropped. The drop-down is open from the start and never takes the keyboard.
class TLookupEdit : public QLineEdit, public TCellEditor {
 public:
  TLookupEdit(std::vector<TLookupEntry> entries, QWidget* parent);
  ~TLookupEdit() override;
  TVariant Value() const override;
  void SetValue(const TVariant& value) override;

  bool IsListOpen() const;
  void OpenList();
  void CloseList();
  const QTreeWidget& List() const { return *FList; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  int Find(const QString& typed) const;
  /// Marks an entry, -1 for none; `typed` characters of it came from the user.
  void Mark(int entry, qsizetype typed);
  void MarkByUser(int entry, qsizetype typed);
  /// Selects what completes the typed text, so that the text shows from its start.
  void SelectRest();
  void FillList();
  void PlaceList();

  std::vector<TLookupEntry> FEntries;
  QTreeWidget* FList;
  int FMarked = -1;
  QString FTyped;
};
