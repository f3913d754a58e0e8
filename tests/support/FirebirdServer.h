#pragma once

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>

#include "TempFolder.h"
#include "uDBConnection.h"

/// A database server of the test's own: on a free port, with a database that holds its own users, in a folder that goes
/// with it.
class FirebirdServer {
 public:
  static bool Installed() {
    return std::filesystem::exists(Program) && std::filesystem::exists(Shell) && !InstalledFolder().empty();
  }

  explicit FirebirdServer(const std::string& sql) : FPort(FreePort()) {
    LayOut();
    WriteFileText(FFolder / "tables.sql", "CREATE DATABASE '" + Database() +
                                              "' DEFAULT CHARACTER SET UTF8;\n"
                                              "CREATE USER SYSDBA PASSWORD 'geheim';\nCOMMIT;\n" +
                                              sql + "\nCOMMIT;\n");
    int status = 0;
    ::waitpid(Start(Shell, "-q", "-user", "SYSDBA", "-bail", "-i", FFolder / "tables.sql"), &status, 0);
    FReady = status == 0;
    if (!FReady) return;
    FProcess = Start(Program, "-p", std::to_string(FPort), "-e", FFolder.Path().string());
    FReady = Answers();
  }
  ~FirebirdServer() {
    if (FProcess <= 0) return;
    ::kill(FProcess, SIGKILL);
    ::waitpid(FProcess, nullptr, 0);
  }

  /// The database is there and the server answers.
  bool Ready() const { return FReady; }
  std::string Database() const { return FFolder / "schule.fdb"; }
  std::string Server() const { return "127.0.0.1/" + std::to_string(FPort); }
  /// The parameters of a connection as administrator.
  std::vector<std::string> Params() const {
    return {"Database=" + Database(), "Protocol=TCPIP",  "Server=" + Server(),
            "User_Name=SYSDBA",       "Password=geheim", "CharacterSet=UTF8"};
  }

  static int FreePort() {
    sockaddr_in address = Loopback(0);
    socklen_t size = sizeof(address);
    const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
    ::bind(socket, reinterpret_cast<sockaddr*>(&address), size);
    ::getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size);
    ::close(socket);
    return ntohs(address.sin_port);
  }

 private:
  static constexpr const char* Program = "/usr/sbin/firebird";
  static constexpr const char* Shell = "/usr/bin/isql-fb";

  /// The server lies in the library folder of the machine's architecture; empty if it lies in none.
  static std::filesystem::path InstalledFolder() {
    for (const auto& libraries : std::filesystem::directory_iterator("/usr/lib"))
      if (auto folder = libraries.path() / "firebird/3.0"; std::filesystem::exists(folder)) return folder;
    return {};
  }

  static sockaddr_in Loopback(int port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
  }

  void LayOut() const {
    namespace fs = std::filesystem;
    const fs::path installed = InstalledFolder();
    for (const char* name : {"plugins", "intl", "firebird.msg"}) fs::create_symlink(installed / name, FFolder / name);
    fs::create_directory(FFolder / "lock");
    fs::copy_file(fs::canonical(installed / "plugins.conf"), FFolder / "plugins.conf");
    WriteFileText(FFolder / "databases.conf", "");
    WriteFileText(FFolder / "firebird.conf",
                  "RemoteBindAddress = 127.0.0.1\nUserManager = Srp\nSecurityDatabase = " + Database() + "\n");
  }

  template <class... TArgs>
  pid_t Start(const char* program, const TArgs&... arguments) const {
    const std::string root = FFolder.Path().string(), lock = FFolder / "lock";
    const pid_t child = ::fork();
    if (child != 0) return child;
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::setenv("FIREBIRD", root.c_str(), 1);
    ::setenv("FIREBIRD_LOCK", lock.c_str(), 1);
    ::execl(program, program, std::string(arguments).c_str()..., nullptr);
    ::_exit(127);
  }

  bool Answers() const {
    constexpr int tries = 200;
    for (int i = 0; i < tries; ++i) {
      const sockaddr_in address = Loopback(FPort);
      const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
      const bool answered = ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
      ::close(socket);
      if (answered) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return false;
  }

  const TempFolder FFolder;
  const int FPort;
  pid_t FProcess = 0;
  bool FReady = false;
};

/// Skips the test where no server is installed, and ends it where the server does not come up.
#define NEEDS_FIREBIRD(server, sql)                                                               \
  if (!FirebirdServer::Installed()) GTEST_SKIP() << "The package firebird3.0-server is missing."; \
  const FirebirdServer server(sql);                                                               \
  ASSERT_TRUE(server.Ready())
