#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "VantrelDataList.h"
#include "VantrelDataRecords.h"

/// How a database is reached: as a file of this machine, or through a server.
enum class TDBProtocol : std::uint8_t { dbpLocal, dbpTCPIP };

class TTessaronConnection;
extern template class TVantrelRecordOf<TTessaronConnection>;

/// Where the databases of one installation and their folders lie. Known by its alias.
class TTessaronConnection : public TVantrelRecordOf<TTessaronConnection> {
 public:
  static constexpr std::string_view ClassName = "TTessaronConnection";
  using TVantrelRecordOf::TVantrelRecordOf;

  std::string Alias;
  std::int16_t Region = 0;
  std::int16_t BackupRestoreNaming = 0;
  std::string FileName;
  std::string FolderBaseBackupRestore;
  std::string FolderBaseDocuments;
  std::string FolderBackups;
  std::string FolderDocuments;
  std::string FolderImports;
  std::string FolderReports;
  std::string FolderRestores;
  std::string FolderScripts;
  std::string FolderTemplates;
  std::string ODBCDataSource;
  std::string OptFileName;
  std::string Server;

  TDBProtocol Protocol() const { return static_cast<TDBProtocol>(FProtocol); }
  void SetProtocol(TDBProtocol value) { FProtocol = static_cast<std::uint8_t>(value); }

  /// The file of the database; with protocol, and of a database behind a server, "SERVER:file".
  std::string DatabaseName(bool withProtocol) const;
  /// The protocol as the user reads it. The server "localhost" is this machine, whatever the protocol says.
  std::string GetProtocolAsString() const;
  /// The same as the word of a connection's parameter list.
  std::string GetProtocolForFireDAC() const;

  /// By alias, without regard to case.
  int Compare(const TVantrelObject& other) const override;
  void DoClear() override;

 private:
  friend TVantrelRecordOf<TTessaronConnection>;
  static constexpr auto FieldTable();
  bool IsLocal() const;

  /// As it stands in the file.
  std::uint8_t FProtocol = 0;
};

/// The connections of an environment. Aliases are compared without regard to case.
class TTessaronConnections : public TVantrelDataListOf<TTessaronConnection> {
 public:
  using TVantrelDataListOf::TVantrelDataListOf;

  /// A new connection of that alias.
  TTessaronConnection* AddConnection(std::string_view alias);
  /// The first one of that alias; null if there is none.
  TTessaronConnection* FindConnection(std::string_view alias) const;
  using TVantrelDataListOf::IndexOf;
  /// -1 if there is none.
  int IndexOf(std::string_view alias) const;
};
