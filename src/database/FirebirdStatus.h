#pragma once

#include <string>

#include "DatabaseTexts.h"
#include "FirebirdClient.h"
#include "VantrelI18n.h"
#include "VantrelText.h"
#include "uDBConnection.h"

/// The answer of a call of the client library.
class TFirebirdStatus {
 public:
  /// For the library's first argument.
  operator ISC_STATUS*() { return FVector; }

  bool Failed() const { return FVector[0] == isc_arg_gds && FVector[1] != 0; }
  bool IsWrongLogon() const { return Failed() && FVector[1] == isc_login; }

  /// The library's own text, one line per finding.
  std::string Text() const {
    std::string text;
    char line[512];
    for (const ISC_STATUS* at = FVector; TFirebirdClient::Get().Interpret(line, sizeof(line), &at) > 0;)
      text += (text.empty() ? "" : "\r\n") + RepairUtf8(line);
    return text;
  }

  /// Raises EDBError if the call failed.
  void Check() const {
    if (Failed()) throw EDBError(FormatText(DatabaseTexts::DatabaseError, Text()));
  }

 private:
  ISC_STATUS_ARRAY FVector{};
};
