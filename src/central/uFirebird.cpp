#include "uFirebird.h"

#include <fmt/format.h>

namespace {
constexpr std::string_view Utf8CharacterSet = "UTF8";
}  // namespace

std::vector<std::string> TFBUtils::ConnectionParams(const TTessaronConnection& connection,
                                                    const TCredentials& credentials, std::string_view characterSet) {
  return {"DriverID=FB",
          "Database=" + connection.DatabaseName(false),
          "Protocol=" + connection.GetProtocolForFireDAC(),
          "Server=" + connection.Server,
          fmt::format("SQLDialect={}", FirebirdDialect),
          "User_Name=" + credentials.Username,
          "Password=" + credentials.Password,
          fmt::format("CharacterSet={}", characterSet)};
}

TVantrelPtr<TDBConnection> TFBUtils::GetConnection(const TTessaronConnection& connection,
                                                   const TCredentials& credentials) {
  auto database = CreateVantrel<TDBConnection>();
  database->SetParams(ConnectionParams(connection, credentials, Utf8CharacterSet));
  return database;
}

std::string TFBUtils::CheckConnection(const TTessaronConnection& connection, const TCredentials& credentials) {
  try {
    GetConnection(connection, credentials)->Open();
    return {};
  } catch (const EDBError& error) {
    return error.Message();
  }
}
