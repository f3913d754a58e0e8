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
  void* const library = System::LoadSharedLibrary(LibraryName);
  if (library == nullptr) RaiseNoClient();
  const auto function = [library](const char* name) {
    void* const address = System::FindFunction(library, name);
    if (address == nullptr) RaiseNoClient();
    return TFunction{address};
  };
#define VANTREL_FIND(Name, Call) .Name = function(#Call),
  return {VANTREL_FIREBIRD_CALLS(VANTREL_FIND)};
#undef VANTREL_FIND
}
}  // namespace

const TFirebirdClient& TFirebirdClient::Get() {
  static const TFirebirdClient client = Load();
  return client;
}
