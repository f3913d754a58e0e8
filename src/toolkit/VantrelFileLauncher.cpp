#include "VantrelFileLauncher.h"

#include <mutex>
#include <thread>
#include <utility>

#include "ToolkitTexts.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "VantrelXdgOpener.h"

namespace {

constexpr std::pair<std::uint32_t, const char*> Texts[] = {
    {5, ToolkitTexts::LaunchAccessDenied},   {8, ToolkitTexts::LaunchMemory},
    {11, ToolkitTexts::LaunchExeFormat},     {26, ToolkitTexts::LaunchSharing},
    {27, ToolkitTexts::LaunchAssociation},   {28, ToolkitTexts::LaunchDdeTimeout},
    {29, ToolkitTexts::LaunchDdeFail},       {30, ToolkitTexts::LaunchDdeBusy},
    {31, ToolkitTexts::LaunchNoAssociation}, {32, ToolkitTexts::LaunchLibrary}};

std::string TextOf(std::uint32_t code) {
  for (const auto& [known, text] : Texts)
    if (known == code) return ResourceText(text);
  return EVantrelWin32Error::TextOf(code);
}

}  // namespace

/// What a launcher and its wait thread share; the thread may outlive the launcher.
struct TVantrelFileLauncher::TWait {
  std::recursive_mutex Mutex;
  bool Running = true;
  std::function<void()> OnExitProcess;

  void Finish() {
    const std::lock_guard lock(Mutex);
    Running = false;
    if (const auto onExit = std::move(OnExitProcess)) onExit();
  }
};

TVantrelOpener* TVantrelFileLauncher::FOpener = nullptr;

TVantrelFileLauncher::~TVantrelFileLauncher() {
  if (!FWaitThread) return;
  const std::lock_guard lock(FWaitThread->Mutex);
  FWaitThread->OnExitProcess = nullptr;
}

bool TVantrelFileLauncher::Launch(std::string_view operation, std::function<void()>* wait) {
  TVantrelXdgOpener desktop;
  TVantrelOpener& opener = FOpener != nullptr ? *FOpener : desktop;
  FLaunch.Operation = operation;
  const std::uint32_t code = opener.Open(FLaunch, wait);
  if (code > 32) return true;
  if (FThrowException) throw EVantrelFileLaunchError(code, FormatText(ToolkitTexts::LaunchError, code, TextOf(code)));
  return false;
}

bool TVantrelFileLauncher::ExecuteAndWait() {
  std::function<void()> wait;
  if (IsWaiting() || !Launch({}, &wait)) return false;
  FWaitThread = std::make_shared<TWait>();
  FWaitThread->OnExitProcess = FOnExitProcess;
  std::thread([wait = std::move(wait), shared = FWaitThread] {
    wait();
    shared->Finish();
  }).detach();
  return true;
}

bool TVantrelFileLauncher::IsWaiting() const {
  if (!FWaitThread) return false;
  const std::lock_guard lock(FWaitThread->Mutex);
  return FWaitThread->Running;
}

bool TCommonUtils::FileExecute(std::string_view fileName, std::string_view startParams, std::string_view startDir) {
  const auto launcher = CreateVantrel<TVantrelFileLauncher>();
  launcher->SetFileName(fileName);
  launcher->SetStartParams(startParams);
  launcher->SetStartDir(startDir);
  return launcher->Execute();
}
