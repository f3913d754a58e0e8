#include "VantrelXdgOpener.h"

#include <algorithm>
#include <iomanip>
#include <sstream>
#include <vector>

#include "Processes.h"
#include "SystemFolders.h"

namespace {

constexpr std::uint32_t Success = 33, NoAssociation = 31, BadFormat = 11, NotFound = 2;

bool IsAddress(const std::string& name) {
  return name.find("://") != std::string::npos || name.starts_with("mailto:");
}

/// The code of a failure: one that cannot be taken for a success.
std::uint32_t CodeOf(System::TCode code) {
  return System::KindOf(code) == System::TFailureKind::NoProgram ? BadFormat : std::min(code, NoAssociation);
}

/// 0 if the file can be read from the start directory, else the system's code.
std::uint32_t CheckFile(const TVantrelLaunch& launch) {
  const auto path = System::PathOf(launch.StartDir) / System::PathOf(launch.FileName);
  return CodeOf(System::CheckRight(System::NameOf(path), System::TRight::Read));
}

std::vector<std::string> CommandOf(const TVantrelLaunch& launch) {
  const bool looksLikeOption = launch.FileName.starts_with('-');
  if (launch.StartParams.empty()) return {System::OpenerProgram(), (looksLikeOption ? "./" : "") + launch.FileName};
  std::vector<std::string> command = {launch.FileName};
  std::istringstream params(launch.StartParams);
  for (std::string param; params >> std::quoted(param);) command.push_back(param);
  return command;
}

}  // namespace

std::uint32_t TVantrelXdgOpener::Open(const TVantrelLaunch& launch, std::function<void()>* wait) {
  if (!launch.Operation.empty() && launch.Operation != "open") return NoAssociation;
  const bool isProgram = !launch.StartParams.empty();
  if (!isProgram && !IsAddress(launch.FileName)) {
    if (const std::uint32_t code = CheckFile(launch); code != 0) return code;
  }
  const std::uint32_t missing = isProgram ? NotFound : NoAssociation;
  auto code = System::Success;
  if (wait == nullptr) {
    code = System::StartDetached(CommandOf(launch), launch.StartDir);
  } else {
    auto process = System::StartProgram(CommandOf(launch), launch.StartDir);
    code = process.Code();
    if (process) *wait = [started = *process] { started.Wait(); };
  }
  if (code == System::Success) return Success;
  return code == NotFound ? missing : CodeOf(code);
}
