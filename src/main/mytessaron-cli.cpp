#include <iostream>

#include "CliTexts.h"
#include "Commands.h"
#include "Processes.h"
#include "uRecordTexts.h"

int main(int argc, char** argv) {
  TCliContext context{std::cout, std::cerr};
  context.ShowProgress = System::IsTerminal(System::TStandardStream::Error);
  if (System::IsTerminal(System::TStandardStream::Input)) {
    context.AskPassword = [](const std::string& fileName) {
      return System::AskUnseen(RecordTexts::PrintableText(CliTexts::AskPassword, fileName));
    };
  }
  return static_cast<int>(RunCli({argv + 1, argv + argc}, context));
}
