#include "VantrelCommandLinks.h"

#include <algorithm>

namespace {

bool Holds(TDBEnableType test, const TVantrelCommand& component, const TVantrelMemTable& table,
           std::string_view fieldname) {
  switch (test) {
    case TDBEnableType::dbtIsActive:
      return table.Active();
    case TDBEnableType::dbtCanModify:
      return table.CanModify();
    case TDBEnableType::dbtFieldNotNull: {
      const TVantrelField* field = table.FindField(fieldname);
      return field != nullptr && !field->IsNull();
    }
    case TDBEnableType::dbtNotEOF:
      return !table.Eof() && table.RecNo() < table.RecordCount();
    case TDBEnableType::dbtNotBOF:
      return !table.Bof() && table.RecNo() > 1;
    case TDBEnableType::dbtHasRecords:
      return table.RecordCount() > 0;
    case TDBEnableType::dbtIsModified:
      return table.Modified();
    case TDBEnableType::dbtIsNotModified:
      return !table.Modified();
    case TDBEnableType::dbtInEdit:
      return table.InEdit();
    case TDBEnableType::dbtNotInEdit:
      return !table.InEdit();
    case TDBEnableType::dbtEnabled:
      return component.Enabled();
    case TDBEnableType::dbtDisabled:
      return !component.Enabled();
  }
  return false;
}

}  // namespace

void TDBTools::UpdateLink(TVantrelCommand& component, const TVantrelMemTable* dataSource, bool enabled,
                          TDBEnableTypes enableTypes, std::string_view fieldname) {
  component.SetEnabled(enabled && (dataSource == nullptr || std::ranges::all_of(enableTypes, [&](TDBEnableType test) {
                                     return Holds(test, component, *dataSource, fieldname);
                                   })));
}
