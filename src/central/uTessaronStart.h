#pragma once

#include <string>
#include <vector>

#include "uTessaronEnvironment.h"
#include "uTessaronSession.h"

/// What stands before any window does: the session, the paths of the installation, and its environment. Goes when the
/// last window is gone. There is one at a time.
class TTessaronStart {
 public:
  /// Takes the arguments of the program, without its own name. Nothing here stops the program: what cannot be read is
  /// told in an error box and counts as missing.
  explicit TTessaronStart(const std::vector<std::string>& arguments);
  TTessaronStart(const TTessaronStart&) = delete;
  TTessaronStart& operator=(const TTessaronStart&) = delete;
  ~TTessaronStart();

 private:
  void LoadEnvironment();

  TVantrelPtr<TTessaronSession> FSession;
  TVantrelPtr<TTessaronEnvironment> FEnvironment;
};
