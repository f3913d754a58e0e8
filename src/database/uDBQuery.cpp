#include "uDBQuery.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "DatabaseTexts.h"
#include "FirebirdStatus.h"
#include "VantrelDateTime.h"
#include "VantrelI18n.h"

namespace {
constexpr short FirstGuess = 16;
constexpr ISC_STATUS EndOfRows = 100;
/// What a parameter takes, in bytes.
constexpr std::size_t LongestText = 32765;

/// The library's description of parameters or columns, with room for their values.
class TDescriptor {
 public:
  TDescriptor() { Resize(FirstGuess); }

  XSQLDA* Area() { return reinterpret_cast<XSQLDA*>(FArea.get()); }
  const XSQLDA* Area() const { return reinterpret_cast<const XSQLDA*>(FArea.get()); }
  int Count() const { return Area()->sqld; }
  XSQLVAR& Var(int index) { return Area()->sqlvar[index]; }
  const XSQLVAR& Var(int index) const { return Area()->sqlvar[index]; }

  /// Calls `describe` again with more room where the first guess was too small.
  template <class TDescribe>
  void Describe(TDescribe describe) {
    describe(Area());
    if (Area()->sqld > Area()->sqln) {
      Resize(Area()->sqld);
      describe(Area());
    }
    FValues.resize(static_cast<std::size_t>(Count()));
    FNulls.assign(static_cast<std::size_t>(Count()), 0);
    for (int i = 0; i < Count(); ++i) Var(i).sqlind = &FNulls[static_cast<std::size_t>(i)];
  }

  /// The bytes of a value; the library reads or writes them in place.
  char* SetValue(int index, short type, std::string_view bytes) {
    auto& value = FValues[static_cast<std::size_t>(index)];
    value = bytes;
    Var(index).sqltype = static_cast<short>(type + 1);
    Var(index).sqldata = value.data();
    FNulls[static_cast<std::size_t>(index)] = 0;
    return value.data();
  }
  void SetNull(int index) { FNulls[static_cast<std::size_t>(index)] = -1; }
  bool IsNull(int index) const { return FNulls[static_cast<std::size_t>(index)] != 0; }

 private:
  void Resize(short count) {
    FArea = std::make_unique<char[]>(XSQLDA_LENGTH(static_cast<std::size_t>(count)));
    Area()->version = SQLDA_VERSION1;
    Area()->sqln = count;
  }

  std::unique_ptr<char[]> FArea;
  std::vector<std::string> FValues;
  std::vector<ISC_SHORT> FNulls;
};

template <class T>
std::string_view BytesOf(const T& value) {
  return {reinterpret_cast<const char*>(&value), sizeof(value)};
}

template <class T>
T ValueOf(const char* bytes) {
  T value;
  std::memcpy(&value, bytes, sizeof(value));
  return value;
}

/// The database counts days from 1858-11-17 on, and the time of day in ten-thousandths of a second.
constexpr ISC_DATE FirstDay = 15018;
constexpr double TicksPerDay = 864'000'000;

TVariant DateTimeOf(const ISC_TIMESTAMP& stamp) {
  const ISC_DATE day = stamp.timestamp_date - FirstDay;
  const double time = stamp.timestamp_time / TicksPerDay;
  return TVariant::DateTime(day < 0 ? day - time : day + time);
}

/// Raises EVantrelDateTimeError for a value that is no date.
ISC_TIMESTAMP StampOf(TDateTime value) {
  DecodeDateTime(value);
  double day = 0;
  const double time = std::abs(std::modf(value, &day));
  const double ticks = std::min(std::round(time * TicksPerDay), TicksPerDay - 1);
  return {static_cast<ISC_DATE>(day) + FirstDay, static_cast<ISC_TIME>(ticks)};
}

bool IsNameChar(char c) {
  return c == '_' || (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// Puts "?" in place of the named parameters and gives their names in the order of the places.
std::vector<std::string> TakeParamNames(std::string& sql) {
  std::vector<std::string> names;
  char quote = '\0';
  for (std::size_t at = 0; at < sql.size(); ++at) {
    const char c = sql[at];
    if (quote != '\0') {
      if (c == quote) quote = '\0';
    } else if (c == '\'' || c == '"') {
      quote = c;
    } else if (c == ':') {
      std::size_t end = at + 1;
      while (end < sql.size() && IsNameChar(sql[end])) ++end;
      if (end == at + 1) continue;
      names.push_back(sql.substr(at + 1, end - at - 1));
      sql.replace(at, end - at, "?");
    }
  }
  return names;
}
}  // namespace

struct TDBQuery::TStatement {
  explicit TStatement(TDBConnection& connection) : Connection(connection) {}
  ~TStatement() {
    TFirebirdStatus ignored;
    if (Handle != 0) TFirebirdClient::Get().FreeStatement(ignored, &Handle, DSQL_drop);
    if (Transaction != 0) TFirebirdClient::Get().RollbackTransaction(ignored, &Transaction);
  }

  void Prepare(std::string sql);
  void BindParam(int index);
  void MakeRoom();
  int FieldIndex(std::string_view name) const;

  TDBConnection& Connection;
  isc_tr_handle Transaction = 0;
  isc_stmt_handle Handle = 0;
  std::vector<std::string> ParamNames;
  std::vector<TVariant> ParamValues;
  TDescriptor Params;
  TDescriptor Columns;
  bool CursorOpen = false;
  bool OnRow = false;
};

void TDBQuery::TStatement::Prepare(std::string sql) {
  ParamNames = TakeParamNames(sql);
  ParamValues.assign(ParamNames.size(), TVariant::Null());
  isc_db_handle& database = Connection.Handle();
  const auto& client = TFirebirdClient::Get();
  TFirebirdStatus status;
  client.StartTransaction(status, &Transaction, 1, &database, 0, nullptr);
  status.Check();
  client.AllocateStatement(status, &database, &Handle);
  status.Check();
  client.PrepareStatement(status, &Transaction, &Handle, 0, sql.c_str(), FirebirdDialect, Columns.Area());
  status.Check();
  Columns.Describe([&](XSQLDA* area) {
    client.Describe(status, &Handle, SQLDA_VERSION1, area);
    status.Check();
  });
  Params.Describe([&](XSQLDA* area) {
    client.DescribeBind(status, &Handle, SQLDA_VERSION1, area);
    status.Check();
  });
  MakeRoom();
}

/// The library converts what it sends into the few types that Value reads.
void TDBQuery::TStatement::MakeRoom() {
  for (int i = 0; i < Columns.Count(); ++i) {
    XSQLVAR& column = Columns.Var(i);
    short type = static_cast<short>(column.sqltype & ~1);
    const bool integer = type == SQL_SHORT || type == SQL_LONG || type == SQL_INT64;
    if (integer && column.sqlscale == 0) {
      type = SQL_INT64;
      column.sqllen = sizeof(std::int64_t);
    } else if (integer || type == SQL_FLOAT || type == SQL_DOUBLE) {
      type = SQL_DOUBLE;
      column.sqllen = sizeof(double);
      column.sqlscale = 0;
    }
    const auto size = static_cast<std::size_t>(column.sqllen) + (type == SQL_VARYING ? sizeof(ISC_USHORT) : 0);
    Columns.SetValue(i, type, std::string(size, '\0'));
  }
}

void TDBQuery::TStatement::BindParam(int index) {
  const TVariant& value = ParamValues[static_cast<std::size_t>(index)];
  XSQLVAR& param = Params.Var(index);
  param.sqlscale = 0;
  const auto set = [&](short type, std::string_view bytes) {
    param.sqllen = static_cast<short>(bytes.size());
    Params.SetValue(index, type, bytes);
  };
  switch (value.Kind()) {
    case TVariantKind::Float:
      return set(SQL_DOUBLE, BytesOf(value.AsFloat()));
    case TVariantKind::DateTime:
      return set(SQL_TIMESTAMP, BytesOf(StampOf(value.AsFloat())));
    case TVariantKind::Boolean:
      return set(SQL_BOOLEAN, BytesOf(static_cast<FB_BOOLEAN>(value.AsBoolean())));
    case TVariantKind::Integer:
    case TVariantKind::Text:
      return set(SQL_TEXT, value.AsText());
    default:
      set(SQL_TEXT, {});
      Params.SetNull(index);
  }
}

int TDBQuery::TStatement::FieldIndex(std::string_view name) const {
  for (int i = 0; i < Columns.Count(); ++i) {
    const XSQLVAR& column = Columns.Var(i);
    if (name == std::string_view(column.aliasname, static_cast<std::size_t>(column.aliasname_length))) return i;
  }
  throw EDBError(FormatText(DatabaseTexts::UnknownColumn, name));
}

TDBQuery::TDBQuery(TDBConnection& connection, std::string_view sql)
    : FStatement(std::make_unique<TStatement>(connection)) {
  FStatement->Prepare(std::string(sql));
}

TDBQuery::~TDBQuery() = default;

void TDBQuery::SetParam(std::string_view name, const TVariant& value) {
  if (value.Kind() != TVariantKind::DateTime && value.AsTextOrEmpty().size() > LongestText)
    throw EDBError(FormatText(DatabaseTexts::ParamType, name));
  bool found = false;
  for (std::size_t i = 0; i < FStatement->ParamNames.size(); ++i) {
    if (!SameText(FStatement->ParamNames[i], name)) continue;
    FStatement->ParamValues[i] = value;
    found = true;
  }
  if (!found) throw EDBError(FormatText(DatabaseTexts::UnknownParam, name));
}

void TDBQuery::CloseCursor() {
  FStatement->OnRow = false;
  if (!std::exchange(FStatement->CursorOpen, false)) return;
  TFirebirdStatus status;
  TFirebirdClient::Get().FreeStatement(status, &FStatement->Handle, DSQL_close);
  status.Check();
}

void TDBQuery::Execute() {
  CloseCursor();
  for (int i = 0; i < FStatement->Params.Count(); ++i) FStatement->BindParam(i);
  TFirebirdStatus status;
  TFirebirdClient::Get().Execute(status, &FStatement->Transaction, &FStatement->Handle, SQLDA_VERSION1,
                                 FStatement->Params.Area());
  status.Check();
  FStatement->CursorOpen = FieldCount() > 0;
  if (FStatement->CursorOpen) return;
  TFirebirdClient::Get().CommitRetaining(status, &FStatement->Transaction);
  status.Check();
}

bool TDBQuery::Next() {
  FStatement->OnRow = false;
  if (!FStatement->CursorOpen) return false;
  TFirebirdStatus status;
  const auto answer =
      TFirebirdClient::Get().Fetch(status, &FStatement->Handle, SQLDA_VERSION1, FStatement->Columns.Area());
  if (answer != EndOfRows) status.Check();
  FStatement->OnRow = answer != EndOfRows;
  if (!FStatement->OnRow) CloseCursor();
  return FStatement->OnRow;
}

int TDBQuery::FieldCount() const {
  return FStatement->Columns.Count();
}

std::string TDBQuery::FieldName(int index) const {
  if (index < 0 || index >= FieldCount()) throw EDBError(FormatText(DatabaseTexts::UnknownColumn, index));
  const XSQLVAR& column = FStatement->Columns.Var(index);
  return {column.aliasname, static_cast<std::size_t>(column.aliasname_length)};
}

TVariant TDBQuery::Value(int index) const {
  const std::string name = FieldName(index);
  if (!FStatement->OnRow) throw EDBError(ResourceText(DatabaseTexts::NoRow));
  if (FStatement->Columns.IsNull(index)) return TVariant::Null();
  const XSQLVAR& column = FStatement->Columns.Var(index);
  switch (column.sqltype & ~1) {
    case SQL_INT64:
      return ValueOf<std::int64_t>(column.sqldata);
    case SQL_DOUBLE:
      return ValueOf<double>(column.sqldata);
    case SQL_BOOLEAN:
      return ValueOf<FB_BOOLEAN>(column.sqldata) != 0;
    case SQL_TIMESTAMP:
      return DateTimeOf(ValueOf<ISC_TIMESTAMP>(column.sqldata));
    case SQL_TYPE_DATE:
      return DateTimeOf({ValueOf<ISC_DATE>(column.sqldata), 0});
    case SQL_TYPE_TIME:
      return DateTimeOf({FirstDay, ValueOf<ISC_TIME>(column.sqldata)});
    case SQL_VARYING:
      return std::string_view(column.sqldata + sizeof(ISC_USHORT), ValueOf<ISC_USHORT>(column.sqldata));
    case SQL_TEXT: {
      const std::string_view text(column.sqldata, static_cast<std::size_t>(column.sqllen));
      return text.substr(0, text.find_last_not_of(' ') + 1);
    }
    default:
      throw EDBError(FormatText(DatabaseTexts::ColumnType, name));
  }
}

TVariant TDBQuery::Value(std::string_view fieldName) const {
  return Value(FStatement->FieldIndex(fieldName));
}
