#include "uTessaronStart.h"

#include <fmt/core.h>

#include "CentralTexts.h"
#include "VantrelI18n.h"
#include "VantrelMsgBox.h"
#include "uTessaron.h"

namespace {
template <class TStep>
void OrErrorBox(TStep step) {
  try {
    step();
  } catch (const std::exception& error) {
    MsgBoxError(FormatText(CentralTexts::EnvironmentError, error.what()));
  }
}
}  // namespace

TTessaronStart::TTessaronStart(const std::vector<std::string>& arguments)
    : FSession(CreateVantrel<TTessaronSession>()) {
  Session = FSession.get();
  TTessaronEnvironment::RegisterClasses();
  DebugFlag = FindCommandSwitch(arguments, "Debug");
  if (const auto damage = ReadInstallation(); !damage.empty())
    MsgBoxWarning(ResourceText(CentralTexts::NoteCaption), damage);
  OrErrorBox(MakePaths);
  FEnvironment = CreateVantrel<TTessaronEnvironment>();
  OrErrorBox([this] { LoadEnvironment(); });
  Environment = FEnvironment.get();
}

TTessaronStart::~TTessaronStart() {
  Environment = nullptr;
  FEnvironment.reset();
  Session = nullptr;
}

void TTessaronStart::LoadEnvironment() {
  try {
    FEnvironment->LoadFromFile(FEnvironment->GetDefaultFileName(), TVantrelDataStorageFormat::dsfXml);
  } catch (const std::exception&) {
    FEnvironment->NewFile();
    throw;
  }
  if (DebugFlag) fmt::print(stderr, "{}\n", ResourceText(CentralTexts::EnvironmentLoaded));
}
