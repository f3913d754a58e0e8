#include <limits>

#include "CliFixture.h"

namespace {

using DiffTest = CliFixture;

TEST_F(DiffTest, TellsChangesInWords) {
  const struct {
    void (*Change)(TMyTessaronProject& project);
    const char* Output;
  } cases[] = {
      {[](auto& project) { Maths(project).Note1Id.SetAsInt(2); },
       "Anna Beck (10a)\n  Mathematik (Ma), 1. Note: leer -> 2+\n"},
      {[](auto& project) { Maths(project).Note1Id.SetAsInt(7); },
       "Anna Beck (10a)\n  Mathematik (Ma), 1. Note: leer -> Nr. 7 (unbekannt)\n"},
      {[](auto& project) { Maths(project).Mahnung.SetAsInt(1); },
       "Anna Beck (10a)\n  Mathematik (Ma), Mahnung: leer -> Nachmahnung\n"},
      {[](auto& project) { Maths(project).Faktor.SetAsFloat(0.1F); },
       "Anna Beck (10a)\n  Mathematik (Ma), Faktor: leer -> 0,1\n"},
      {[](auto& project) { Maths(project).Student = nullptr; },
       "Unbekannter Schüler\n  Mathematik (Ma), Schüler: Anna Beck (10a) -> Unbekannter Schüler\n"},
      {[](auto& project) { Anna(project).Zeugnisdatum.SetAsDateTime(46053); },
       "Anna Beck (10a)\n  Zeugnisdatum: leer -> 31.01.2026\n"},
      {[](auto& project) { Anna(project).Geburtsdatum.SetAsDateTime(1e300); },
       "Anna Beck (10a)\n  Geburtsdatum: leer -> ungültiges Datum\n"},
      {[](auto& project) { Anna(project).Nachname = "Beck\x1b[2J"; },
       "Anna Beck␛[2J (10a)\n  Nachname: „Beck“ -> „Beck␛[2J“\n"},
      {[](auto& project) { Anna(project).ClassId.SetNull(); }, "Anna Beck\n  Klasse: 10a -> leer\n"},
      {[](auto& project) { Anna(project).VonSportBefreit = true; }, "Anna Beck (10a)\n  VonSportBefreit: nein -> ja\n"},
      {[](auto& project) { Anna(project).CertificateComments().AddCertificateComment("", "fleißig", "", 1); },
       "Anna Beck (10a)\n  neu: Zeugnisbemerkung „fleißig“\n"},
      {[](auto& project) { project.Courses().Delete(0); }, "Anna Beck (10a)\n  entfernt: Mathematik (Ma)\n"},
      {[](auto& project) { project.Students().Add(TStudent::Class()); },
       "Schüler Nr. -1\n  Schüler neu in der Datei\n"},
      {[](auto& project) { project.Description = "x"; }, "Kopfdaten\n  Beschreibung: leer -> „x“\n"},
      {[](auto& project) { project.Password = "geheim"; }, "Kopfdaten\n  Das Kennwort wurde geändert.\n"},
      {[](auto& project) { project.Fachstati().GetItem(0)->Description = ""; },
       "Katalog Fachstati\n  „P“, Beschreibung: „Pflicht“ -> leer\n"},
      {[](auto& project) { project.Options().Columns().GetItem(0)->Visible = false; },
       "Spalten\n  Note1, Sichtbar: ja -> nein\n"},
      {[](auto& project) { project.Fachstati().Move(0, 1); },
       "Katalog Fachstati\n  Reihenfolge ab Platz 1: „P“ -> „W“\n"},
      {[](auto& project) { project.Students().Move(0, 1); },
       "Schüler\n  Reihenfolge ab Platz 1: Anna Beck (10a) -> Ben\n"},
      {[](auto& project) { project.Courses().Add(&Maths(project)); },
       "Kurse\n  Anna Beck (10a), Mathematik (Ma), Anzahl der Einträge: 1 -> 2\n"},
      {[](auto& project) { Anna(project).CertificateComments().GetItem(0)->Position = 9; },
       "Anna Beck (10a)\n  Zeugnisbemerkung „still“, Position: 1 -> 9\n"},
      {[](auto& project) { project.Classes().AddClass(6, "10b", TGradeTypes::gtValue); }, "Klassen\n  neu: 10b\n"},
  };
  auto first = Project();
  first->Fachstati().AddCatalog("W", "Wahl");
  first->Options().Columns().AddColumn("Position", "Platz", true, true, true, 0);
  static_cast<TStudent*>(first->Students().Add(TStudent::Class()))->Vorname = "Ben";
  Anna(*first).CertificateComments().AddCertificateComment("", "still", "", 1);
  const auto before = Save(std::move(first), "vorher.kvr7");
  for (const auto& [change, output] : cases) {
    auto project = CreateVantrel<TMyTessaronProject>();
    project->LoadForReading(before);
    change(*project);
    const auto after = Save(std::move(project), "nachher.kvr7");
    EXPECT_EQ(Run({"diff", before, after}), 1);
    EXPECT_EQ(Out(), output);
    EXPECT_EQ(Run({"diff", after, after}), 0);
    EXPECT_EQ(Run({"diff", after, before}), 1);
  }
}

TEST_F(DiffTest, DifferentValuesNeverLookAlike) {
  auto project = Project();
  const auto options = GuidToText(project->Options().ID());
  project->Noten().AddNote(3, "2+", "auch gut", 1.7F, TGradeTypes::gtValue);
  Maths(*project).Note1Id.SetAsInt(2);
  Anna(*project).Abgang.SetAsDateTime(46053.25);
  Anna(*project).Abschluss1Note.SetAsFloat(std::numeric_limits<float>::quiet_NaN());
  const auto before = Save(std::move(project), "vorher.kvr7");
  project = CreateVantrel<TMyTessaronProject>();
  project->LoadForReading(before);
  Maths(*project).Note1Id.SetAsInt(3);
  Anna(*project).Abgang.SetAsDateTime(46053.5);
  auto newOptions = CreateVantrel<TDataOptions>(project.get());
  newOptions->Assign(project->Options());
  const auto changedOptions = GuidToText(newOptions->ID());
  project->SetOptions(std::move(newOptions));
  EXPECT_EQ(Run({"diff", before, Save(std::move(project), "nachher.kvr7")}), 1);
  EXPECT_EQ(Out(), "Kopfdaten\n  Objektnummer der Optionen: " + options + " -> " + changedOptions +
                       "\nSpalten\n  neu: Note1\n  entfernt: Note1\nAnna Beck (10a)\n  Abgang: 31.01.2026 06:00:00 -> "
                       "31.01.2026 12:00:00\n"
                       "  Mathematik (Ma), 1. Note: 2+ (Nr. 2) -> 2+ (Nr. 3)\n");
}

}  // namespace
