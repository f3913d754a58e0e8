#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "uConnections.h"
#include "uDBConnection.h"

/// Who logs on to a database.
struct TCredentials {
  std::string Username;
  std::string Password;
};

/// What the programs of the family do with databases as a whole.
class TFBUtils {
 public:
  TFBUtils() = delete;

  /// The parameter list of a connection.
  static std::vector<std::string> ConnectionParams(const TTessaronConnection& connection,
                                                   const TCredentials& credentials, std::string_view characterSet);
  /// A connection in UTF-8, not yet open.
  static TVantrelPtr<TDBConnection> GetConnection(const TTessaronConnection& connection,
                                                  const TCredentials& credentials);
  /// Tries a logon. Gives the text for the user where it fails, else the empty text; never raises EDBError.
  static std::string CheckConnection(const TTessaronConnection& connection, const TCredentials& credentials);
};
