#pragma once

#include <ibase.h>

/// The operations of Firebird's client library. The library is loaded at the first use and stays until the program's
/// end.
struct TFirebirdClient {
  /// Raises EDBError with a text for the user where the machine has no client library that can be used.
  static const TFirebirdClient& Get();

  decltype(&::isc_attach_database) AttachDatabase;
  decltype(&::isc_detach_database) DetachDatabase;
  decltype(&::isc_start_transaction) StartTransaction;
  decltype(&::isc_rollback_transaction) RollbackTransaction;
  decltype(&::isc_commit_retaining) CommitRetaining;
  decltype(&::isc_dsql_allocate_statement) AllocateStatement;
  decltype(&::isc_dsql_free_statement) FreeStatement;
  decltype(&::isc_dsql_prepare) PrepareStatement;
  decltype(&::isc_dsql_describe) Describe;
  decltype(&::isc_dsql_describe_bind) DescribeBind;
  decltype(&::isc_dsql_execute) Execute;
  decltype(&::isc_dsql_fetch) Fetch;
  decltype(&::fb_interpret) Interpret;
};
