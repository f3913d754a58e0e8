#include <unistd.h>

#include <iostream>

#include "CliTexts.h"
#include "Commands.h"
#include "uRecordTexts.h"

namespace {

std::string AskPassword(const std::string& fileName) {
  // The only call that asks without echo and leaves the terminal as it was, also when it is interrupted.
  const char* entered = ::getpass(RecordTexts::PrintableText(CliTexts::AskPassword, fileName).c_str());
  return entered == nullptr ? std::string() : entered;
}

}  // namespace

int main(int argc, char** argv) {
  TCliContext context{std::cout, std::cerr};
  context.ShowProgress = ::isatty(STDERR_FILENO) == 1;
  if (::isatty(STDIN_FILENO) == 1) context.AskPassword = AskPassword;
  return static_cast<int>(RunCli({argv + 1, argv + argc}, context));
}
