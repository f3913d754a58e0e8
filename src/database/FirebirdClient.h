#pragma once

#include <ibase.h>

/// What connections and queries ask of Firebird's client library: the name of a call here, and that in the library.
#define VANTREL_FIREBIRD_CALLS(X)                   \
  X(AttachDatabase, isc_attach_database)            \
  X(DetachDatabase, isc_detach_database)            \
  X(StartTransaction, isc_start_transaction)        \
  X(RollbackTransaction, isc_rollback_transaction)  \
  X(CommitRetaining, isc_commit_retaining)          \
  X(AllocateStatement, isc_dsql_allocate_statement) \
  X(FreeStatement, isc_dsql_free_statement)         \
  X(PrepareStatement, isc_dsql_prepare)             \
  X(Describe, isc_dsql_describe)                    \
  X(DescribeBind, isc_dsql_describe_bind)           \
  X(Execute, isc_dsql_execute)                      \
  X(Fetch, isc_dsql_fetch)                          \
  X(Interpret, fb_interpret)

/// The calls of Firebird's client library, which is loaded at the first use and stays until the program's end.
struct TFirebirdClient {
  /// Raises EDBError with a text for the user where the machine has no client library that can be used.
  static const TFirebirdClient& Get();

#define VANTREL_DECLARE(Name, Call) decltype(&::Call) Name;
  VANTREL_FIREBIRD_CALLS(VANTREL_DECLARE)
#undef VANTREL_DECLARE
};
