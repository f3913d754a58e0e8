#pragma once

#include <string>
#include <string_view>

#include "VantrelDataStorage.h"
#include "uConnections.h"

/// The document that the administrator of the central system lays down for all its programs on a machine.
class TTessaronEnvironment : public TVantrelDataStorage {
 public:
  static constexpr std::string_view StorageName = "TTessaronEnvironment";
  using TVantrelDataStorage::TVantrelDataStorage;

  /// Makes the connections known to the readers. To be called once at program start.
  static void RegisterClasses();

  std::string DefaultAlias;

  /// Sorted by alias after a read.
  TTessaronConnections& Connections() const { return *FConnections; }
  bool ExistAlias(std::string_view value) const { return GetIndexOfAlias(value) >= 0; }
  /// There is at least one connection.
  bool ExistConnection() const { return !FConnections->IsEmpty(); }
  /// -1 if there is none.
  int GetIndexOfAlias(std::string_view alias) const { return FConnections->IndexOf(alias); }

  std::string_view StorageClassName() const override { return StorageName; }
  std::string GetDefaultFileName() const override;
  void DoCreate() override;
  void DoDestroy() override;
  void DoClear() override;
  void ReadData(TVantrelDataObjectReader& reader) override;
  void WriteData(TVantrelDataObjectWriter& writer) const override;

 private:
  static constexpr auto FieldTable();

  TVantrelPtr<TTessaronConnections> FConnections;
};

/// The environment of this machine, empty where there is none; null before the program's start and behind its end.
inline TTessaronEnvironment* Environment = nullptr;
