#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "VantrelVariant.h"
#include "uDBConnection.h"

/// A prepared statement with named parameters, in a transaction of its own. What it changes is committed at once; a
/// query sees the state of its beginning. Every failure of the database raises EDBError.
class TDBQuery {
 public:
  /// Prepares the statement. ":NAME" outside quotes is a parameter, and may stand in several places. The connection is
  /// not owned and must be open.
  TDBQuery(TDBConnection& connection, std::string_view sql);
  TDBQuery(const TDBQuery&) = delete;
  TDBQuery& operator=(const TDBQuery&) = delete;
  ~TDBQuery();

  /// Null at first. Takes null, numbers, Booleans, dates and texts of at most 32765 bytes; a longer text and an unknown
  /// name raise EDBError. A date outside the years 1 to 9999 raises EVantrelDateTimeError on Execute.
  void SetParam(std::string_view name, const TVariant& value);
  /// Runs the statement; the rows of a query come with Next.
  void Execute();
  /// Goes to the next row, at first to the first one. False behind the last row.
  bool Next();

  int FieldCount() const;
  std::string FieldName(int index) const;
  /// The column of the present row: an integer, a float, a Boolean, a date with or without its time, a text without
  /// the filling blanks of its column, or null. Other kinds of columns, an unknown column, and no row raise EDBError.
  TVariant Value(int index) const;
  TVariant Value(std::string_view fieldName) const;

 private:
  struct TStatement;
  void CloseCursor();

  std::unique_ptr<TStatement> FStatement;
};
