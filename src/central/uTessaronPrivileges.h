#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "VantrelLists.h"
#include "VantrelVariant.h"

class TTessaronSession;

/// How far the user's right on a module goes. The grades are the central system's own; 255 is none.
using TGroupRight = std::uint8_t;
inline constexpr TGroupRight NoGroupRight = 255;

/// What a user may do, as the central system keeps it.
struct TUserRights {
  bool FAdminMandant = false;
  bool FEditCatalogs = false;
  bool FCanImportExport = false;
  bool FCanShowDocuments = false;
  bool FCanPrint = false;
  bool FCanVocational = false;
  std::int16_t FVocationalMarksRight = 0;
  TGroupRight FGroupRight = NoGroupRight;
  TVariant FMediaCatalog = TVariant::Null();
};

/// The user's access to one aspect of a view.
class TTessaronViewRight : public TVantrelObject {
 public:
  TTessaronViewRight(std::string_view aspekt, std::string_view zugriff) : FAspekt(aspekt), FZugriff(zugriff) {}

  const std::string FAspekt;
  const std::string FZugriff;
};

/// The rights of the user who is logged on. With nobody logged on, the user counts as administrator. Operations that
/// refuse tell the user so in a box, where it says so or they are asked to.
class TTessaronPrivileges : public TVantrelObject {
 public:
  /// The session that these are the privileges of.
  explicit TTessaronPrivileges(const TTessaronSession& session) : FSession(session) {}

  void InitRights(const TUserRights& rights) { FRights = rights; }
  void InitViewRight(std::string_view aspekt, std::string_view right);
  /// The statement that has a row for a student's tutor, with the parameters MANDANT, SCHUELER, ZEITRAUM and TUTOR.
  /// Without one nobody is a tutor.
  void InitTutorQuery(std::string_view sql) { FTutorQuery = sql; }

  /// An empty `user` is the one who is logged on.
  bool IsAdmin(bool showError, std::string_view user = {}) const;
  bool IsDBAdmin(bool showError) const;
  bool IsMandantenAdmin(bool showError) const;
  /// With a box. The statistics administrator is the user with the right "Administrator" on the aspect "Statistik".
  bool IsStatistikAdmin() const;
  /// With a box, as the next four.
  bool HasRightDocument() const;
  bool HasRightImportExport(bool displayError) const;
  bool HasRightPrint() const;
  bool HasRightGroup() const;
  /// True for everybody but the user "GAST".
  bool DenyGuest() const;
  /// Without a box: an administrator, or a right of that name on that aspect.
  bool HasRightToView(std::string_view aspekt, std::string_view right) const;
  /// Whether the certificate data of a student may be saved: by the group right, or, where that asks for it, because
  /// the user leads the class in that term or is the student's tutor. With a box. Raises EDBError where the database
  /// cannot be asked.
  bool HasRightToSaveKlassendaten(const TVariant& mandant, const TVariant& zeitraum, const TVariant& klasse,
                                  const TVariant& schueler) const;

 private:
  bool IsUser(std::initializer_list<std::string_view> names) const;
  bool HasViewRight(std::string_view aspekt, std::string_view right) const;
  TGroupRight GroupRight() const;
  bool LeadsClass(const TVariant& mandant, const TVariant& zeitraum, const TVariant& klasse) const;
  bool IsTutor(const TVariant& mandant, const TVariant& zeitraum, const TVariant& schueler) const;

  const TTessaronSession& FSession;
  TUserRights FRights;
  std::string FTutorQuery;
  TVantrelArrayList FViewsRights{true};
};
