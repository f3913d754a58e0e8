#pragma once

#include <string>
#include <vector>

#include "VantrelVariant.h"

class TVantrelMemTable;

enum class TValueKind { Text, Integer, Float, Date };
/// Plain is a line of text, or a number without buttons; Spin is a number with buttons.
enum class TEditorKind { Plain, Memo, Spin, Lookup, List, Date };

/// One entry of a fixed list: what the user sees, and the value that stands for it.
struct TEditorItem {
  std::string Text;
  TVariant Value;
};

/// Where a lookup editor finds its entries. The drop-down offers the records that pass the table's filter; a value
/// shows its entry even when the filter holds it back. The table outlives the editor.
struct TEditorLookup {
  TVantrelMemTable* Table = nullptr;
  std::string KeyField;
  std::string ShownField;
  std::string DescriptionField;
};

/// How one value is edited, in a cell as in a field of a form.
struct TEditorDescription {
  TEditorKind Kind = TEditorKind::Plain;
  TValueKind ValueKind = TValueKind::Text;
  TEditorLookup Lookup = {};            ///< of a lookup
  std::vector<TEditorItem> Items = {};  ///< of a list
  double Minimum = 0;                   ///< limits of what can be entered as a number, both included
  double Maximum = 2147483647;
  int Decimals = 0;            ///< places that can be entered; 0 for integers
  bool RoundsShown = false;    ///< a number with more places is shown rounded to them
  std::string NullText = {};   ///< what an empty value reads like
  bool DeleteClears = false;   ///< the Delete key empties the value as a whole
  bool ReturnMovesOn = false;  ///< of a form: Return goes to the next field
  int MaxLength = 0;           ///< UTF-16 units that can be typed, 0 for any number; a value that is set may be longer

  bool IsNumber() const { return ValueKind == TValueKind::Integer || ValueKind == TValueKind::Float; }
  /// One of a set of entries is picked.
  bool Picks() const { return Kind == TEditorKind::Lookup || Kind == TEditorKind::List; }
};
