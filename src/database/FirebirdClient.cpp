#include "FirebirdClient.h"

#include "DatabaseTexts.h"
#include "SharedLibrary.h"
#include "VantrelI18n.h"
#include "uDBConnection.h"

namespace {
constexpr const char* LibraryName = "libfbclient.so.2";

[[noreturn]] void RaiseNoClient() {
  throw EDBError(FormatText(DatabaseTexts::LogonError, FormatText(DatabaseTexts::NoClient, LibraryName)));
}

/// Becomes whichever function it is assigned to.
struct TFunction {
  void* Address;
  template <class T>
  operator T*() const {
    return reinterpret_cast<T*>(Address);
  }
};

TFirebirdClient Load() {
  void* const library = LoadSharedLibrary(LibraryName);
  if (library == nullptr) RaiseNoClient();
  const auto function = [library](const char* name) {
    void* const address = FindFunction(library, name);
    if (address == nullptr) RaiseNoClient();
    return TFunction{address};
  };
  return {.AttachDatabase = function("isc_attach_database"),
          .DetachDatabase = function("isc_detach_database"),
          .StartTransaction = function("isc_start_transaction"),
          .RollbackTransaction = function("isc_rollback_transaction"),
          .CommitRetaining = function("isc_commit_retaining"),
          .AllocateStatement = function("isc_dsql_allocate_statement"),
          .FreeStatement = function("isc_dsql_free_statement"),
          .PrepareStatement = function("isc_dsql_prepare"),
          .Describe = function("isc_dsql_describe"),
          .DescribeBind = function("isc_dsql_describe_bind"),
          .Execute = function("isc_dsql_execute"),
          .Fetch = function("isc_dsql_fetch"),
          .Interpret = function("fb_interpret")};
}
}  // namespace

const TFirebirdClient& TFirebirdClient::Get() {
  static const TFirebirdClient client = Load();
  return client;
}
