#include "uTessaronEnvironment.h"

#include "VantrelDataFields.h"
#include "VantrelDataRegistry.h"
#include "uTessaron.h"

// The order of the table is the file format.
constexpr auto TTessaronEnvironment::FieldTable() {
  using T = TTessaronEnvironment;
  return std::tuple(Fields::DataList("Connections", &T::FConnections),
                    Fields::String("DefaultAlias", &T::DefaultAlias));
}

void TTessaronEnvironment::RegisterClasses() {
  TVantrelDataClassRegistry::Instance().AddClass(StorageName, TTessaronConnection::Class());
}

std::string TTessaronEnvironment::GetDefaultFileName() const {
  return EnvironmentFileName;
}

void TTessaronEnvironment::DoCreate() {
  TVantrelDataStorage::DoCreate();
  FConnections = CreateVantrel<TTessaronConnections>(this, true);
  DoClear();
}

void TTessaronEnvironment::DoDestroy() {
  FConnections.reset();
  TVantrelDataStorage::DoDestroy();
}

void TTessaronEnvironment::DoClear() {
  TVantrelDataStorage::DoClear();
  Fields::ClearAll(Fields::Of<FieldTable>, *this);
}

void TTessaronEnvironment::ReadData(TVantrelDataObjectReader& reader) {
  TVantrelDataStorage::ReadData(reader);
  // An item comes into the list before its alias is read: the list is put in order when all are there.
  FConnections->SetSorted(false);
  Fields::ReadAll(Fields::Of<FieldTable>, *this, reader);
  FConnections->SetSorted(true);
}

void TTessaronEnvironment::WriteData(TVantrelDataObjectWriter& writer) const {
  TVantrelDataStorage::WriteData(writer);
  Fields::WriteAll(Fields::Of<FieldTable>, *this, writer);
}
