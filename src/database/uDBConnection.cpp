#include "uDBConnection.h"

#include <fmt/format.h>

#include "DatabaseTexts.h"
#include "FirebirdStatus.h"
#include "VantrelI18n.h"

static_assert(std::is_same_v<isc_db_handle, std::uint32_t>);

namespace {
constexpr std::string_view RemoteProtocol = "TCPIP";
constexpr char DialectByte = FirebirdDialect;
/// Seconds until a server that does not answer counts as missing.
constexpr char LongestWait = 10;

/// The parameter block of a logon: for each item its code, the length in four bytes, the value.
class TLogonBlock {
 public:
  void Add(char item, std::string_view value) {
    FBytes += item;
    for (unsigned shift = 0; shift < 32; shift += 8) FBytes += static_cast<char>(value.size() >> shift);
    FBytes += value;
  }
  const std::string& Bytes() const { return FBytes; }

 private:
  std::string FBytes{isc_dpb_version2};
};
}  // namespace

TDBConnection::~TDBConnection() {
  Close();
}

std::string TDBConnection::Param(std::string_view name) const {
  for (const std::string& line : FParams)
    if (line.size() > name.size() && line[name.size()] == '=' && line.starts_with(name))
      return line.substr(name.size() + 1);
  return {};
}

std::string TDBConnection::ConnectionText() const {
  if (Param("Protocol") != RemoteProtocol) return Param("Database");
  return fmt::format("{}:{}", Param("Server"), Param("Database"));
}

void TDBConnection::Open() {
  if (Connected()) return;
  TLogonBlock block;
  block.Add(isc_dpb_user_name, Param("User_Name"));
  block.Add(isc_dpb_password, Param("Password"));
  block.Add(isc_dpb_lc_ctype, Param("CharacterSet"));
  block.Add(isc_dpb_sql_dialect, {&DialectByte, 1});
  block.Add(isc_dpb_connect_timeout, {&LongestWait, 1});
  block.Add(isc_dpb_utf8_filename, {});
  if (block.Bytes().size() > INT16_MAX) throw EDBLogonError(ResourceText(DatabaseTexts::WrongLogon));
  const std::string database = ConnectionText();
  TFirebirdStatus status;
  TFirebirdClient::Get().AttachDatabase(status, 0, database.c_str(), &FHandle, static_cast<short>(block.Bytes().size()),
                                        block.Bytes().data());
  if (status.IsWrongLogon()) throw EDBLogonError(ResourceText(DatabaseTexts::WrongLogon));
  if (status.Failed()) throw EDBError(FormatText(DatabaseTexts::LogonError, status.Text()));
}

void TDBConnection::Close() {
  if (!Connected()) return;
  TFirebirdStatus status;
  TFirebirdClient::Get().DetachDatabase(status, &FHandle);
  FHandle = 0;
}

std::uint32_t& TDBConnection::Handle() {
  if (!Connected()) throw EDBError(ResourceText(DatabaseTexts::NotConnected));
  return FHandle;
}
