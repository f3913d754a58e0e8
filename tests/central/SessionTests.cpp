#include "uFirebird.h"

#include "FirebirdServer.h"
#include "MsgBoxes.h"
#include "Testing.h"
#include "uTessaronSession.h"

/// What the client library keeps for the whole run.
extern "C" const char* __lsan_default_suppressions();
const char* __lsan_default_suppressions() {
  return "leak:libfbclient.so";
}

namespace {

constexpr const char* WrongLogon = "Benutzer bzw. Kennwort sind falsch.";
constexpr const char* OtherFailure = "Es ist ein Fehler bei der Anmeldung an die Datenbank aufgetreten.\r\n";

/// The server's database as an environment tells it.
TVantrelPtr<TTessaronConnection> ConnectionTo(const FirebirdServer& server) {
  auto connection = CreateVantrel<TTessaronConnection>();
  connection->SetProtocol(TDBProtocol::dbpTCPIP);
  connection->Server = server.Server();
  connection->FileName = server.Database();
  return connection;
}

TEST(Firebird, ParameterListStandsInItsOrder) {
  const auto connection = CreateVantrel<TTessaronConnection>();
  connection->FileName = "/daten/schule.fdb";
  connection->Server = "zentrale";
  connection->SetProtocol(TDBProtocol::dbpTCPIP);
  const auto database = TFBUtils::GetConnection(*connection, {"MUE", "a=b"});
  EXPECT_THAT(database->Params(),
              ElementsAre("DriverID=FB", "Database=/daten/schule.fdb", "Protocol=TCPIP", "Server=zentrale",
                          "SQLDialect=3", "User_Name=MUE", "Password=a=b", "CharacterSet=UTF8"));
  EXPECT_EQ(std::tuple(database->Param("Password"), database->Param("Pass")), std::tuple("a=b", ""));
  EXPECT_THROW(database->Handle(), EDBError);
}

TEST(Firebird, LogonIsJudgedByTheServer) {
  NEEDS_FIREBIRD(server, "");
  const std::tuple<const char*, TCredentials, const char*> cases[] = {
      {"", {"SYSDBA", "geheim"}, ""},
      {"", {"SYSDBA", "falsch"}, WrongLogon},
      {"", {"NIEMAND", "geheim"}, WrongLogon},
      {"", {"SYSDBA", std::string(40000, 'x')}, WrongLogon},
      {"/fehlt.fdb", {"SYSDBA", "geheim"}, OtherFailure}};
  for (const auto& [database, credentials, expected] : cases) {
    const auto connection = ConnectionTo(server);
    if (*database != '\0') connection->FileName = database;
    const auto report = TFBUtils::CheckConnection(*connection, credentials);
    if (expected == OtherFailure)
      EXPECT_THAT(report, StartsWith(expected));
    else
      EXPECT_EQ(report, expected) << credentials.Username;
  }
}

/// A session that somebody is logged on to.
TVantrelPtr<TTessaronSession> SessionOf(const std::string& user, const TUserRights& rights = {}) {
  auto session = CreateVantrel<TTessaronSession>();
  session->FModule = TApplicationKind::akMyTessaron;
  session->FLoggedIn = true;
  session->FConnection->SetParams({"User_Name=" + user});
  session->FPrivileges->InitRights(rights);
  return session;
}

TEST(Session, BeginsWithNobodyWhoIsAdministrator) {
  const FakeBoxes boxes;
  const auto session = CreateVantrel<TTessaronSession>();
  EXPECT_TRUE(!session->FLoggedIn && !session->FConnection->Connected() && session->FLastMediaCatalog.IsNull());
  session->Log("Anmeldung", 5);
  EXPECT_TRUE(session->FDebugLog.empty());
  EXPECT_EQ(session->Username(), "");
  EXPECT_TRUE(session->FPrivileges->IsAdmin(true) && !session->FPrivileges->IsAdmin(true, "MUE"));
  EXPECT_TRUE(!session->FPrivileges->IsDBAdmin(false) && session->FPrivileges->HasRightGroup());
  EXPECT_TRUE(session->FPrivileges->HasRightToView("Noten", "Lesen"));
  EXPECT_EQ(boxes.Texts.size(), 1U);
}

#define ASK(right) [](const TTessaronPrivileges& rights) { return rights.right; }

TEST(Session, RightsGoByUserAndFlag) {
  const std::vector<std::string> admins = {"SYSDBA", "dbadmin"}, two = {"sysdba", "48KKOR"};
  const std::vector<std::string> three = {"SYSDBA", "DBADMIN", "48kkor"};
  const char* administrator = "Diese Funktion darf nur von einem Administrator aufgerufen werden.";
  const struct {
    bool (*Ask)(const TTessaronPrivileges& rights);
    std::vector<std::string> Users;
    std::optional<TUserRights> Rights;
    const char* Refusal;
  } cases[] = {
      {ASK(IsAdmin(true)), admins, {}, administrator},
      {ASK(IsDBAdmin(true)), admins, {}, administrator},
      {ASK(IsMandantenAdmin(true)), two, {{.FAdminMandant = true}}, "oder\r\neinem Mandanten-Administrator aufgerufen"},
      {ASK(IsStatistikAdmin()), {"SYSDBA"}, {}, "oder\r\neinem Statistik-Administrator aufgerufen werden."},
      {ASK(HasRightDocument()), three, {{.FCanShowDocuments = true}}, "mit dem Recht für Dokumentenverwaltung"},
      {ASK(HasRightImportExport(true)), three, {{.FCanImportExport = true}}, "mit dem Recht für den Import/Export auf"},
      {ASK(HasRightPrint()), three, {{.FCanPrint = true}}, "oder\r\nmit dem Recht zu Drucken aufgerufen werden."},
      {ASK(HasRightGroup()), admins, {{.FGroupRight = 254}}, "Benutzer \"MUE\" hat nicht das Recht auf das Modul My"},
  };
  for (const auto& one : cases) {
    FakeBoxes boxes;
    for (const auto& user : one.Users) EXPECT_TRUE(one.Ask(*SessionOf(user)->FPrivileges)) << user << one.Refusal;
    EXPECT_FALSE(one.Ask(*SessionOf("MUE")->FPrivileges));
    EXPECT_THAT(boxes.Texts, ElementsAre(HasSubstr(one.Refusal)));
    EXPECT_EQ(one.Ask(*SessionOf("MUE", one.Rights.value_or(TUserRights()))->FPrivileges), one.Rights.has_value());
  }
}

TEST(Session, GuestsAndViewRights) {
  const FakeBoxes boxes;
  EXPECT_TRUE(SessionOf("MUE")->FPrivileges->DenyGuest() && !SessionOf("Gast")->FPrivileges->DenyGuest());
  EXPECT_THAT(boxes.Texts, ElementsAre(HasSubstr("mit Gastrechten angemeldet.\r\nDiese Funktion kann")));
  const auto session = SessionOf("MUE");
  session->FPrivileges->InitViewRight("Noten", "Lesen");
  session->FPrivileges->InitViewRight("Statistik", "Administrator");
  EXPECT_TRUE(session->FPrivileges->HasRightToView("Noten", "Lesen"));
  EXPECT_TRUE(!session->FPrivileges->HasRightToView("Noten", "Schreiben") && session->FPrivileges->IsStatistikAdmin());
  const auto user = TTessaronSession::TempUser("MUE", "geheim", "Jürgen", "K.", "Müller");
  EXPECT_EQ(TTessaronSession::TempUser(*user)->Lastname, "Müller");
}

TEST(Session, CertificateDataBelongToClassLeadersAndTutors) {
  NEEDS_FIREBIRD(server,
                 "CREATE TABLE \"KlassenZeitraeume\" (\"Mandant\" INTEGER, \"Klasse\" INTEGER, \"Zeitraum\" INTEGER,"
                 " \"Klassenleiter1\" INTEGER, \"Klassenleiter2\" INTEGER);"
                 "CREATE TABLE \"SchuelerZeitraeume\" (\"Mandant\" INTEGER, \"Schueler\" INTEGER,"
                 " \"Zeitraum\" INTEGER, \"Tutor\" INTEGER); COMMIT;"
                 "INSERT INTO \"KlassenZeitraeume\" VALUES (1, 5, 20, 42, NULL);"
                 "INSERT INTO \"KlassenZeitraeume\" VALUES (1, 6, 20, 43, 42);"
                 "INSERT INTO \"SchuelerZeitraeume\" VALUES (1, 300, 20, 42);");
  const struct {
    TGroupRight Right;
    int Term, Class, Student;
    bool Allowed;
    const char* TutorQuery =
        "SELECT 1 FROM \"SchuelerZeitraeume\" WHERE \"Mandant\" = :MANDANT AND \"Schueler\" = :SCHUELER"
        " AND \"Zeitraum\" = :ZEITRAUM AND \"Tutor\" = :TUTOR";
  } cases[] = {{0, 9, 9, 9, true},      {1, 9, 9, 9, true},        {4, 9, 9, 9, true},     {5, 9, 9, 9, true},
               {6, 20, 5, 9, true},     {7, 20, 6, 9, true},       {8, 20, 9, 300, true},  {8, 21, 5, 300, false},
               {6, 20, 9, 301, false},  {2, 20, 5, 300, false},    {3, 20, 5, 300, false}, {255, 20, 5, 300, false},
               {7, 20, 6, 9, true, ""}, {8, 20, 9, 300, false, ""}};
  for (const auto& one : cases) {
    const FakeBoxes boxes;
    const auto session = SessionOf("MUE", {.FGroupRight = one.Right});
    session->FConnection->SetParams(server.Params());
    session->FConnection->Open();
    session->FConnection->SetParams({"User_Name=MUE"});
    session->FTeacher = 42;
    session->FPrivileges->InitTutorQuery(one.TutorQuery);
    EXPECT_EQ(session->FPrivileges->HasRightToSaveKlassendaten(1, one.Term, one.Class, one.Student), one.Allowed);
    EXPECT_EQ(boxes.Texts.size(), one.Allowed ? 0U : 1U);
    session->FConnection->Close();
    if (one.Right >= 6 && one.Right < NoGroupRight) {
      EXPECT_THROW(session->FPrivileges->HasRightToSaveKlassendaten(1, 20, 5, 9), EDBError);
    }
  }
}
}  // namespace
