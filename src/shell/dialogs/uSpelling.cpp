#include "uSpelling.h"

#include <set>

#include "Environment.h"
#include "VantrelPaths.h"
#include "uTessaron.h"

namespace {

void LoadMainDictionary(TVantrelHunspellDictionary& dictionary) {
  dictionary.Path = DictionaryFileName;
  dictionary.AffixPath = AffixFileName;
  dictionary.Language = GermanLanguage;
  dictionary.Enabled = true;
  if (dictionary.Load()) return;
  const auto ofSystem = [](const std::string& path) {
    return System::MachinePath(System::TFolderKind::Data, "hunspell/" + TVantrelFilePath::GetFileName(path));
  };
  dictionary.Path = ofSystem(DictionaryFileName);
  dictionary.AffixPath = ofSystem(AffixFileName);
  dictionary.Load();
}

void LoadUserDictionary(TVantrelUserDictionary& dictionary) {
  dictionary.Path = UserDictionaryFileName;
  if (!UserDataFolder.empty())
    dictionary.OwnPath =
        TVantrelFilePath::Combine(UserDataFolder, TVantrelFilePath::GetFileName(UserDictionaryFileName));
  dictionary.Language = GermanLanguage;
  dictionary.Enabled = true;
  dictionary.Load();
}

}  // namespace

void ConfigureSpellChecker(TVantrelSpellChecker& checker, const TMyTessaronOptions& options) {
  if (options.RechtschreibungAktiv) {
    LoadMainDictionary(checker.MainDictionary);
    LoadUserDictionary(checker.UserDictionary);
  }
  checker.AutoCorrect = checker.Active = options.RechtschreibungAktiv;
  checker.CheckAsYouType = options.RechtschreibungEingabe;
  checker.IgnoreUpperCase = options.RechtschreibungGross;
  checker.IgnoreNumbers = options.RechtschreibungZahl;
  checker.IgnoreEMails = options.RechtschreibungEmail;
  checker.IgnoreUrls = options.RechtschreibungURL;
}

void KnowNamesOf(const TMyTessaronProject& project, TVantrelSpellChecker& checker) {
  std::set<std::string> names{project.TeacherName, project.TeacherToken};
  for (int i = 0; i < project.Students().Count(); ++i) {
    const auto& student = *project.Students().GetItem(i);
    names.insert({student.Vorname, student.Nachname});
  }
  for (int i = 0; i < project.Courses().Count(); ++i) {
    const auto& course = *project.Courses().GetItem(i);
    names.insert({course.SubjectToken, course.SubjectName, course.Fachlehrer, course.Tutor});
  }
  checker.KnowNames({names.begin(), names.end()});
}
