#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "VantrelClasses.h"

enum class TVantrelShowMode { smoNormal, smoMinimized, smoMaximized, smoHidden };

/// What is handed to the system's opener.
struct TVantrelLaunch {
  std::string Operation;  ///< such as "open" and "print"; empty for the usual one
  std::string FileName;   ///< a file or an address
  std::string StartParams;
  std::string StartDir;
  TVantrelShowMode ShowMode = TVantrelShowMode::smoNormal;
};

/// Hands a file or an address to the program for it. Open is called by one thread.
class TVantrelOpener {
 public:
  virtual ~TVantrelOpener() = default;
  /// Starts the program and returns at once. The result is the system's code: above 32 for success. `wait`, if asked
  /// for, is set on success to a function that returns when the program has ended; any thread may call it, once.
  virtual std::uint32_t Open(const TVantrelLaunch& launch, std::function<void()>* wait) = 0;
};

/// Launches a file or an address through the system's opener.
class TVantrelFileLauncher : public TVantrelObject {
 public:
  /// The opener of all launchers, not owned; null goes back to that of the desktop (xdg-open).
  static void SetOpener(TVantrelOpener* opener) { FOpener = opener; }

  ~TVantrelFileLauncher() override;

  void SetFileName(std::string_view value) { FLaunch.FileName = value; }
  void SetShowMode(TVantrelShowMode value) { FLaunch.ShowMode = value; }
  void SetStartDir(std::string_view value) { FLaunch.StartDir = value; }
  void SetStartParams(std::string_view value) { FLaunch.StartParams = value; }
  /// Failures raise EVantrelFileLaunchError instead of giving false.
  void SetThrowException(bool value) { FThrowException = value; }
  /// Called by the wait thread when the program of ExecuteAndWait has ended; not after the launcher's end.
  void SetOnExitProcess(std::function<void()> value) { FOnExitProcess = std::move(value); }

  bool Execute() { return Launch({}, nullptr); }
  bool Execute(std::string_view operation) { return Launch(operation, nullptr); }
  /// As Execute; a thread then follows the program to its end. Refused while such a thread runs.
  bool ExecuteAndWait();
  bool IsWaiting() const;

 private:
  struct TWait;

  bool Launch(std::string_view operation, std::function<void()>* wait);

  static TVantrelOpener* FOpener;

  TVantrelLaunch FLaunch;
  bool FThrowException = false;
  std::function<void()> FOnExitProcess;
  std::shared_ptr<TWait> FWaitThread;
};

/// The short way to launch.
class TCommonUtils {
 public:
  TCommonUtils() = delete;
  /// Launches a file or an address; false if that failed.
  static bool FileExecute(std::string_view fileName, std::string_view startParams = {}, std::string_view startDir = {});
};
