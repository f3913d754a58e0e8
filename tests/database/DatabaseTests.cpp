#include <sys/resource.h>

#include "FirebirdServer.h"
#include "InChild.h"
#include "Testing.h"
#include "uDBQuery.h"

/// What the client library keeps for the whole run.
extern "C" const char* __lsan_default_suppressions();
const char* __lsan_default_suppressions() {
  return "leak:libfbclient.so";
}

TEST(Database, AMachineWithoutTheClientLibraryTellsSoAtTheLogon) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer opens files of its own";
#endif
  const auto logon = [] {
    const rlimit noFiles{0, 0};
    ::setrlimit(RLIMIT_NOFILE, &noFiles);
    const auto text = ErrorOf<EDBError>([] { TDBConnection().Open(); });
    const char* expected =
        "Es ist ein Fehler bei der Anmeldung an die Datenbank aufgetreten.\r\nAuf diesem Rechner fehlt die "
        "Programmbibliothek „libfbclient.so.2“ von Firebird.";
    return text.starts_with(expected) ? 0 : 1;
  };
  EXPECT_EQ(InChild(logon), 0);
}

TEST(Database, QueriesGiveAndTakeValues) {
  NEEDS_FIREBIRD(server,
                 "CREATE TABLE T (N INTEGER, B BIGINT, D NUMERIC(9,2), V VARCHAR(40), C CHAR(10), J BOOLEAN,"
                 " X TIMESTAMP, S DATE, U TIME, M BLOB);");
  TDBConnection database;
  database.SetParams(server.Params());
  database.Open();
  TDBQuery insert(database, "INSERT INTO T VALUES (:n, :B, :D, :V || ':x', :V, :J, :X, :X, :X, NULL)");
  using TValue = std::pair<const char*, TVariant>;
  const TVariant big = std::int64_t{1} << 40, time = TVariant::DateTime(45366.75);
  for (const auto& [name, value] :
       {TValue("N", 7), {"B", big}, {"D", 1.25}, {"V", "Käthe ß"}, {"J", true}, {"X", time}})
    insert.SetParam(name, value);
  EXPECT_THROW(insert.SetParam("Y", 1), EDBError);
  EXPECT_THROW(insert.SetParam("V", std::string(32766, 'x')), EDBError);
  insert.Execute();
  insert.SetParam("N", TVariant::Null());
  insert.Execute();
  insert.SetParam("V", std::string(41, 'x'));
  EXPECT_THAT(ErrorOf<EDBError>([&] { insert.Execute(); }), StartsWith("Die Datenbank meldet einen Fehler.\r\n"));

  TDBQuery query(database, "SELECT T.*, CAST('x' AS BLOB) AS \"Bild\" FROM T ORDER BY N");
  EXPECT_THROW(query.Value(0), EDBError);
  for (int run = 0; run < 2; ++run) {
    query.Execute();
    ASSERT_TRUE(query.Next());
    EXPECT_TRUE(query.Value("N").IsNull());
    ASSERT_TRUE(query.Next());
  }
  std::size_t column = 0;
  for (const TVariant& value : std::vector<TVariant>{7, big, 1.25, "Käthe ß:x", "Käthe ß", true, time,
                                                     TVariant::DateTime(45366), TVariant::DateTime(0.75)})
    EXPECT_EQ(query.Value(std::string_view("NBDVCJXSU").substr(column++, 1)), value) << column;
  EXPECT_TRUE(query.Value("M").IsNull());
  EXPECT_THROW(query.Value("Bild"), EDBError);
  EXPECT_THROW(query.Value("n"), EDBError);
  EXPECT_FALSE(query.Next() || query.Next());
  EXPECT_THROW(TDBQuery(database, "SELECT FROM"), EDBError);
}