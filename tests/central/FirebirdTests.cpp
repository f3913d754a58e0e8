#include "uFirebird.h"

#include <gmock/gmock.h>

#include "ErrorOf.h"
#include "FirebirdServer.h"
#include "uDBQuery.h"

/// What the client library keeps for the whole run.
extern "C" const char* __lsan_default_suppressions();
const char* __lsan_default_suppressions() {
  return "leak:libfbclient.so";
}

namespace {
using testing::StartsWith;

constexpr const char* WrongLogon = "Benutzer bzw. Kennwort sind falsch.";
constexpr const char* OtherFailure = "Es ist ein Fehler bei der Anmeldung an die Datenbank aufgetreten.\r\n";

TEST(Firebird, ParameterListStandsInItsOrder) {
  const auto connection = CreateVantrel<TTessaronConnection>();
  connection->FileName = "/daten/schule.fdb";
  connection->Server = "zentrale";
  connection->SetProtocol(TDBProtocol::dbpTCPIP);
  const auto database = TFBUtils::GetConnection(*connection, {"MUE", "a=b"});
  EXPECT_THAT(database->Params(),
              testing::ElementsAre("DriverID=FB", "Database=/daten/schule.fdb", "Protocol=TCPIP", "Server=zentrale",
                                   "SQLDialect=3", "User_Name=MUE", "Password=a=b", "CharacterSet=UTF8"));
  EXPECT_EQ(database->Param("Password"), "a=b");
  EXPECT_EQ(database->Param("Pass"), "");
  EXPECT_THROW(database->Handle(), EDBError);
}

TEST(Firebird, LogonIsJudgedByTheServer) {
  NEEDS_FIREBIRD(server, "");
  const struct {
    const char* Database;
    TCredentials Credentials;
    const char* Report;
  } cases[] = {{"", {"SYSDBA", "geheim"}, ""},
               {"", {"SYSDBA", "falsch"}, WrongLogon},
               {"", {"NIEMAND", "geheim"}, WrongLogon},
               {"", {"SYSDBA", std::string(40000, 'x')}, WrongLogon},
               {"/fehlt.fdb", {"SYSDBA", "geheim"}, OtherFailure}};
  for (const auto& one : cases) {
    const auto connection = server.Connection();
    if (*one.Database != '\0') connection->FileName = one.Database;
    const auto report = TFBUtils::CheckConnection(*connection, one.Credentials);
    if (one.Report == OtherFailure)
      EXPECT_THAT(report, StartsWith(one.Report));
    else
      EXPECT_EQ(report, one.Report) << one.Credentials.Username;
  }
}

TEST(Firebird, QueriesGiveAndTakeValues) {
  NEEDS_FIREBIRD(server,
                 "CREATE TABLE T (N INTEGER, B BIGINT, D NUMERIC(9,2), V VARCHAR(40), C CHAR(10), J BOOLEAN,"
                 " X TIMESTAMP, S DATE, U TIME, M BLOB);");
  const auto database = TFBUtils::GetConnection(*server.Connection(), FirebirdServer::Administrator());
  database->Open();
  TDBQuery insert(*database, "INSERT INTO T VALUES (:n, :B, :D, :V || ':x', :V, :J, :X, :X, :X, NULL)");
  insert.SetParam("N", 7);
  insert.SetParam("B", std::int64_t{1} << 40);
  insert.SetParam("D", 1.25);
  insert.SetParam("V", "Käthe ß");
  insert.SetParam("J", true);
  insert.SetParam("X", TVariant::DateTime(45366.75));
  EXPECT_THROW(insert.SetParam("Y", 1), EDBError);
  EXPECT_THROW(insert.SetParam("V", std::string(32766, 'x')), EDBError);
  insert.Execute();
  insert.SetParam("N", TVariant::Null());
  insert.Execute();
  insert.SetParam("V", std::string(41, 'x'));
  EXPECT_THAT(ErrorOf<EDBError>([&] { insert.Execute(); }), StartsWith("Die Datenbank meldet einen Fehler.\r\n"));

  TDBQuery query(*database, "SELECT T.*, CAST('x' AS BLOB) AS \"Bild\" FROM T ORDER BY N");
  EXPECT_THROW(query.Value(0), EDBError);
  for (int run = 0; run < 2; ++run) {
    query.Execute();
    ASSERT_TRUE(query.Next());
    EXPECT_TRUE(query.Value("N").IsNull());
    ASSERT_TRUE(query.Next());
  }
  EXPECT_EQ(query.Value("N"), TVariant(7));
  EXPECT_EQ(query.Value("B").AsText(), "1099511627776");
  EXPECT_EQ(query.Value("D"), TVariant(1.25));
  EXPECT_EQ(query.Value("V").AsText(), "Käthe ß:x");
  EXPECT_EQ(query.Value("C").AsText(), "Käthe ß");
  EXPECT_EQ(query.Value("J").AsBoolean(), true);
  EXPECT_EQ(query.Value("X"), TVariant::DateTime(45366.75));
  EXPECT_EQ(query.Value("S"), TVariant::DateTime(45366));
  EXPECT_EQ(query.Value("U"), TVariant::DateTime(0.75));
  EXPECT_TRUE(query.Value("M").IsNull());
  EXPECT_THROW(query.Value("Bild"), EDBError);
  EXPECT_THROW(query.Value("n"), EDBError);
  EXPECT_FALSE(query.Next());
  EXPECT_FALSE(query.Next());
  EXPECT_THROW(TDBQuery(*database, "SELECT FROM"), EDBError);
}
}  // namespace
