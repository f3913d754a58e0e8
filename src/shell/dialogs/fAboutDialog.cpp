#include "fAboutDialog.h"

#include "ShellTexts.h"
#include "VantrelDateTime.h"
#include "VantrelI18n.h"

TAboutInfo AboutInfo(const TProgramInfo& program, const TTessaronSession& session) {
  return {session.ProductName(),
          FormatText(ShellTexts::AboutVersion, program.Major, program.Minor, program.Release, program.Build),
          program.Copyright.empty() ? FormatText(ShellTexts::DefaultCopyright, DecodeDateTime(CurrentDateTime()).Year)
                                    : program.Copyright};
}
