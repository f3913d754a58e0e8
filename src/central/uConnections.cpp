#include "uConnections.h"

#include <fmt/format.h>

#include "VantrelText.h"
#include "uTessaron.h"

namespace {
constexpr std::string_view LocalServer = "LOCALHOST";
constexpr std::string_view DefaultConnectionAlias = "Tessaron";
constexpr std::string_view DefaultOdbcDataSource = "Tessaron-CR";
constexpr std::int16_t NoRegion = -2;
}  // namespace

// The order of the table is the file format.
constexpr auto TTessaronConnection::FieldTable() {
  using namespace Fields;
  using T = TTessaronConnection;
  return std::tuple(String("Alias", &T::Alias), PlainSmallInt("Region", &T::Region, NoRegion),
                    PlainSmallInt("BackupRestoreNaming", &T::BackupRestoreNaming), String("FileName", &T::FileName),
                    String("FolderBaseBackupRestore", &T::FolderBaseBackupRestore),
                    String("FolderBaseDocuments", &T::FolderBaseDocuments), String("FolderBackups", &T::FolderBackups),
                    String("FolderDocuments", &T::FolderDocuments), String("FolderImports", &T::FolderImports),
                    String("FolderReports", &T::FolderReports), String("FolderRestores", &T::FolderRestores),
                    String("FolderScripts", &T::FolderScripts), String("FolderTemplates", &T::FolderTemplates),
                    String("ODBCDataSource", &T::ODBCDataSource), String("OptFileName", &T::OptFileName),
                    Byte("Protocol", &T::FProtocol), String("Server", &T::Server));
}

template class TVantrelRecordOf<TTessaronConnection>;

std::string TTessaronConnection::DatabaseName(bool withProtocol) const {
  if (!withProtocol || Protocol() == TDBProtocol::dbpLocal) return FileName;
  return fmt::format("{}:{}", UpperCase(Server), FileName);
}

bool TTessaronConnection::IsLocal() const {
  return Protocol() == TDBProtocol::dbpLocal || UpperCase(Server) == LocalServer;
}

std::string TTessaronConnection::GetProtocolAsString() const {
  return IsLocal() ? "Local" : "TCP/IP";
}

std::string TTessaronConnection::GetProtocolForFireDAC() const {
  return IsLocal() ? "Local" : "TCPIP";
}

int TTessaronConnection::Compare(const TVantrelObject& other) const {
  const auto* connection = dynamic_cast<const TTessaronConnection*>(&other);
  return connection == nullptr ? 0 : CompareText(Alias, connection->Alias);
}

void TTessaronConnection::DoClear() {
  TVantrelRecordOf::DoClear();
  Alias = DefaultConnectionAlias;
  ODBCDataSource = DefaultOdbcDataSource;
  OptFileName = TessaronOptFileName;
}

TTessaronConnection* TTessaronConnections::AddConnection(std::string_view alias) {
  auto connection = CreateVantrel<TTessaronConnection>(this);
  connection->Alias = alias;
  Add(connection.get());
  return connection.release();
}

TTessaronConnection* TTessaronConnections::FindConnection(std::string_view alias) const {
  const int index = IndexOf(alias);
  return index < 0 ? nullptr : GetItem(index);
}

int TTessaronConnections::IndexOf(std::string_view alias) const {
  for (int i = 0; i < Count(); ++i)
    if (SameText(GetItem(i)->Alias, alias)) return i;
  return -1;
}
