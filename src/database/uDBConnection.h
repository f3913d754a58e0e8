#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "VantrelClasses.h"
#include "VantrelExceptions.h"

/// What the database or its client library refuses, with their own text behind one for the user.
class EDBError : public EVantrelException {
  using EVantrelException::EVantrelException;
};
/// A user name or password that the database does not know.
class EDBLogonError : public EDBError {
  using EDBError::EDBError;
};

/// The dialect of SQL that connections and statements speak.
inline constexpr int FirebirdDialect = 3;

/// A connection to a Firebird database, described by lines of the form "Name=Value". Belongs to one thread.
class TDBConnection : public TVantrelObject {
 public:
  ~TDBConnection() override;

  const std::vector<std::string>& Params() const { return FParams; }
  /// Takes effect with the next Open.
  void SetParams(std::vector<std::string> params) { FParams = std::move(params); }
  /// The value of a parameter; empty if there is none of that name.
  std::string Param(std::string_view name) const;

  /// Raises EDBLogonError for a wrong user name or password and EDBError for any other failure, a machine without
  /// Firebird's client library among them; nothing where the connection is open.
  void Open();
  /// Ends the connection. Queries on it must be gone.
  void Close();
  bool Connected() const { return FHandle != 0; }
  /// The client library's handle, for queries on this connection. Raises EDBError without a connection.
  std::uint32_t& Handle();

 private:
  std::string ConnectionText() const;

  std::vector<std::string> FParams;
  std::uint32_t FHandle = 0;
};
