#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "VantrelVariant.h"

/// An integer that may be null; -1 stands for null in a file. Value may hold any variant: AsInt converts it, and
/// raises EConvertError where that cannot be done.
struct TMyTessaronInteger {
  TVariant Value;

  std::int32_t AsInt() const { return Value.IsNull() ? -1 : Value.AsInteger(); }
  void SetAsInt(std::int32_t value) { Value = value == -1 ? TVariant::Null() : TVariant(value); }
  bool IsNull() const { return Value.IsNull(); }
  void SetNull() { Value = TVariant::Null(); }
  /// In decimal, and as it stands where it is no integer; empty for null.
  std::string ToString() const;
};

/// A 32-bit float that may be null; exactly -1.0 stands for null in a file.
struct TMyTessaronFloat {
  TVariant Value;

  float AsFloat() const { return Value.IsNull() ? -1.0F : static_cast<float>(Value.AsFloat()); }
  void SetAsFloat(float value) { Value = value == -1.0F ? TVariant::Null() : TVariant(double{value}); }
  bool IsNull() const { return Value.IsNull(); }
  void SetNull() { Value = TVariant::Null(); }
  /// With a decimal comma; empty for null.
  std::string ToString() const { return Value.AsTextOrEmpty(); }
};

/// A date and time that may be null; exactly 0.0 stands for null in a file.
struct TMyTessaronDateTime {
  TVariant Value;

  double AsDateTime() const { return Value.IsNull() ? 0.0 : Value.AsFloat(); }
  void SetAsDateTime(double value) { Value = value == 0.0 ? TVariant::Null() : TVariant::DateTime(value); }
  bool IsNull() const { return Value.IsNull(); }
  void SetNull() { Value = TVariant::Null(); }
  /// The date alone as dd.mm.yyyy; empty for null.
  std::string ToString() const;
};

/// How a remembered column is sorted.
enum class TSortOrder { soNone, soAscending, soDescending };

/// What a grid remembers of a column while its columns are rebuilt. The Index that Values takes is dropped: the field
/// Index stays 0.
struct TSortField {
  std::string Name;
  int Index = 0;
  int SortIndex = -1;
  TSortOrder SortOrder = TSortOrder::soNone;

  TSortField(const std::string& name, int index, int sortIndex, TSortOrder sortOrder);
  void Values(const std::string& name, int index, int sortIndex, TSortOrder sortOrder, bool clearFirst);
  void Clear();
};

/// Likewise, whether and how wide it is shown.
struct TVisibleField {
  std::string Name;
  int Index = 0;
  bool Visible = true;
  int VisibleIndex = -1;
  int Width = 0;

  TVisibleField(const std::string& name, int index, int visibleIndex, bool visible, int width);
  void Values(const std::string& name, int index, int visibleIndex, bool visible, int width, bool clearFirst);
  void Clear();
};

/// Likewise, its place among the columns that the rows are grouped by; -1 for none.
struct TGroupField {
  std::string Name;
  int Index = 0;
  int GroupIndex = -1;

  TGroupField(const std::string& name, int index, int groupIndex);
  void Values(const std::string& name, int index, int groupIndex, bool clearFirst);
  void Clear();
};

/// A list that owns its records.
template <class TFieldRecord>
class TFieldRecords : public std::vector<std::unique_ptr<TFieldRecord>> {
 public:
  /// Makes the record from the parameters of its constructor and appends it.
  template <class... TArgs>
  TFieldRecord& AddField(TArgs&&... args) {
    return *this->emplace_back(std::make_unique<TFieldRecord>(std::forward<TArgs>(args)...));
  }
};

using TSortFields = TFieldRecords<TSortField>;
using TVisibleFields = TFieldRecords<TVisibleField>;
using TGroupFields = TFieldRecords<TGroupField>;
