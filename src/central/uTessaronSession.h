#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "VantrelVariant.h"
#include "uFirebird.h"
#include "uTessaronPrivileges.h"

/// Which program of the product family runs. The kind chooses the settings of the user and the about window.
enum class TApplicationKind : std::uint8_t {
  akNone = 0,
  akCentral = 1,
  akAdministrator = 2,
  akMyTessaron = 4,
  akOther = 8
};

/// The ids that were last worked with; -1 for none.
struct TLastIds {
  std::int32_t Mandant = -1;
  std::int32_t Zeitraum = -1;
  std::int32_t Klasse = -1;
  std::int32_t Schueler = -1;
};

/// A user of the database.
class TDBUser : public TVantrelObject {
 public:
  std::string Username;
  std::string Password;
  std::string Firstname;
  std::string Middlename;
  std::string Lastname;

  /// Takes over the content of another user; raises EVantrelAssignError for anything else.
  void Assign(const TVantrelObject& source) override;
};

/// Which program runs and, in those that log on to the central database, who is logged on.
class TTessaronSession : public TVantrelObject {
 public:
  TTessaronSession();

  std::string FAlias;
  TApplicationKind FModule = TApplicationKind::akNone;
  /// Made with the session, unconnected.
  TVantrelPtr<TDBConnection> FConnection;
  TVantrelPtr<TTessaronPrivileges> FPrivileges;
  bool FLoggedIn = false;
  std::string FStartParam;
  TLastIds FLastId;
  std::int16_t FRegion = 0;
  TVariant FLastMediaCatalog = TVariant::Null();
  std::vector<std::string> FDebugLog;
  /// The id of the teacher who is logged on; null for nobody.
  TVariant FTeacher = TVariant::Null();

  /// Whom the connection belongs to; empty while nobody is logged on.
  std::string Username() const { return FLoggedIn ? FConnection->Param("User_Name") : std::string(); }
  /// What the user calls the program.
  std::string ProductName() const;
  /// The family's programs log nothing.
  void Log(std::string_view, std::int64_t /*timeInMs*/) {}

  /// A user who is known to nobody but the caller.
  static TVantrelPtr<TDBUser> TempUser(std::string_view username, std::string_view password, std::string_view firstname,
                                       std::string_view middlename, std::string_view lastname);
  static TVantrelPtr<TDBUser> TempUser(const TDBUser& otherUser);
};

/// The one session; null before the program's start and behind its end.
inline TTessaronSession* Session = nullptr;
