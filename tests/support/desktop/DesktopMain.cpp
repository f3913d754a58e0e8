#include <gtest/gtest.h>

#include "DesktopApplication.h"
#include "DesktopLook.h"

/// What system libraries keep for the whole run, for the sanitizers.
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libfontconfig.so\n";
}

/// Real widgets on the platform that shows nothing, unless the caller names another.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  TDesktopApplication application(argc, argv);
  PrepareApplication(application);
  return RUN_ALL_TESTS();
}
