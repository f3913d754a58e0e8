#include "uTessaronPrivileges.h"

#include <algorithm>

#include "CentralTexts.h"
#include "VantrelI18n.h"
#include "VantrelMsgBox.h"
#include "VantrelText.h"
#include "uDBQuery.h"
#include "uTessaronSession.h"

namespace {
constexpr std::string_view SysDba = "SYSDBA", DbAdmin = "DBADMIN", Coordinator = "48kkor", Guest = "GAST";
constexpr std::string_view StatisticsAspect = "Statistik", StatisticsRight = "Administrator";
constexpr TGroupRight AdministratorRight = 1;

constexpr std::string_view ClassLeaderQuery =
    "SELECT \"Klassenleiter1\", \"Klassenleiter2\" FROM \"KlassenZeitraeume\" KZ WHERE KZ.\"Mandant\" = :MANDANT "
    "AND KZ.\"Klasse\" = :KLASSE AND KZ.\"Zeitraum\" = :ZEITRAUM "
    "AND (KZ.\"Klassenleiter1\" = :LEITER1 OR KZ.\"Klassenleiter2\" = :LEITER2)";

/// Passes the answer on; a refusal is told to the user.
bool Answer(bool allowed, std::string_view refusal, bool showError = true) {
  if (!allowed && showError)
    MsgBoxWarning(ResourceText(CentralTexts::NoteCaption), refusal, TVantrelMsgBoxParent::mbpActiveWindow);
  return allowed;
}

bool HasRow(TDBConnection& connection, std::string_view sql,
            std::initializer_list<std::pair<std::string_view, TVariant>> params) {
  TDBQuery query(connection, sql);
  for (const auto& [name, value] : params) query.SetParam(name, value);
  query.Execute();
  return query.Next();
}
}  // namespace

void TTessaronPrivileges::InitViewRight(std::string_view aspekt, std::string_view right) {
  FViewsRights.Add(CreateVantrel<TTessaronViewRight>(aspekt, right).release());
}

bool TTessaronPrivileges::IsUser(std::initializer_list<std::string_view> names) const {
  return std::ranges::any_of(names, [user = FSession.Username()](auto name) { return SameText(user, name); });
}

bool TTessaronPrivileges::IsAdmin(bool showError, std::string_view user) const {
  const std::string name = UpperCase(user.empty() ? FSession.Username() : std::string(user));
  return Answer(name.empty() || name == SysDba || name == DbAdmin, ResourceText(CentralTexts::AdminOnly), showError);
}

bool TTessaronPrivileges::IsDBAdmin(bool showError) const {
  return Answer(IsUser({DbAdmin, SysDba}), ResourceText(CentralTexts::AdminOnly), showError);
}

bool TTessaronPrivileges::IsMandantenAdmin(bool showError) const {
  return Answer(FRights.FAdminMandant || IsUser({SysDba, Coordinator}), ResourceText(CentralTexts::MandantenAdminOnly),
                showError);
}

bool TTessaronPrivileges::IsStatistikAdmin() const {
  return Answer(HasViewRight(StatisticsAspect, StatisticsRight) || IsUser({SysDba}),
                ResourceText(CentralTexts::StatistikAdminOnly));
}

bool TTessaronPrivileges::HasRightDocument() const {
  return Answer(FRights.FCanShowDocuments || IsAdmin(false) || IsUser({SysDba, Coordinator}),
                ResourceText(CentralTexts::DocumentOnly));
}

bool TTessaronPrivileges::HasRightImportExport(bool displayError) const {
  return Answer(FRights.FCanImportExport || IsAdmin(false) || IsUser({SysDba, Coordinator}),
                ResourceText(CentralTexts::ImportExportOnly), displayError);
}

bool TTessaronPrivileges::HasRightPrint() const {
  return Answer(FRights.FCanPrint || IsAdmin(false) || IsUser({SysDba, Coordinator}),
                ResourceText(CentralTexts::PrintOnly));
}

TGroupRight TTessaronPrivileges::GroupRight() const {
  return IsAdmin(false) ? AdministratorRight : FRights.FGroupRight;
}

bool TTessaronPrivileges::HasRightGroup() const {
  return Answer(GroupRight() < NoGroupRight,
                FormatText(CentralTexts::NoGroupRight, FSession.Username(), FSession.ProductName()));
}

bool TTessaronPrivileges::DenyGuest() const {
  return Answer(!IsUser({Guest}), ResourceText(CentralTexts::GuestDenied));
}

bool TTessaronPrivileges::HasViewRight(std::string_view aspekt, std::string_view right) const {
  return std::any_of(FViewsRights.begin(), FViewsRights.end(), [&](const TVantrelObject* item) {
    const auto* row = static_cast<const TTessaronViewRight*>(item);
    return SameText(row->FAspekt, aspekt) && SameText(row->FZugriff, right);
  });
}

bool TTessaronPrivileges::HasRightToView(std::string_view aspekt, std::string_view right) const {
  return IsAdmin(false) || HasViewRight(aspekt, right);
}

bool TTessaronPrivileges::LeadsClass(const TVariant& mandant, const TVariant& zeitraum, const TVariant& klasse) const {
  return HasRow(*FSession.FConnection, ClassLeaderQuery,
                {{"MANDANT", mandant},
                 {"KLASSE", klasse},
                 {"ZEITRAUM", zeitraum},
                 {"LEITER1", FSession.FTeacher},
                 {"LEITER2", FSession.FTeacher}});
}

bool TTessaronPrivileges::IsTutor(const TVariant& mandant, const TVariant& zeitraum, const TVariant& schueler) const {
  return !FTutorQuery.empty() &&
         HasRow(*FSession.FConnection, FTutorQuery,
                {{"MANDANT", mandant}, {"SCHUELER", schueler}, {"ZEITRAUM", zeitraum}, {"TUTOR", FSession.FTeacher}});
}

bool TTessaronPrivileges::HasRightToSaveKlassendaten(const TVariant& mandant, const TVariant& zeitraum,
                                                     const TVariant& klasse, const TVariant& schueler) const {
  bool allowed = false;
  switch (GroupRight()) {
    case 0:
    case 1:
    case 4:
    case 5:
      allowed = true;
      break;
    case 6:
    case 7:
    case 8:
      allowed = LeadsClass(mandant, zeitraum, klasse) || IsTutor(mandant, zeitraum, schueler);
      break;
    default:
      break;
  }
  return allowed || IsAdmin(true);
}
