#include <cmath>
#include <limits>

#include "CliFixture.h"
#include "uProjectDefects.h"

namespace {

using CheckTest = CliFixture;

TEST_F(CheckTest, FindsDefects) {
  const struct {
    void (*Spoil)(TMyTessaronProject& project);
    const char* Finding;
    bool ForTeacher = true;
  } cases[] = {
      {[](auto& it) { Anna(it).Geburtsdatum.SetAsDateTime(1e300); },
       "Anna Beck (10a), Geburtsdatum: Der Wert ist unmöglich (ungültiges Datum)."},
      {[](auto& it) { Anna(it).Zugang.SetAsDateTime(std::nan("")); }, "Anna Beck (10a), Zugang: Der Wert"},
      {[](auto& it) { Anna(it).Fehltage.SetAsInt(-16); }, "Anna Beck (10a), Fehltage: Der Wert ist unmöglich (-16)."},
      {[](auto& it) { Anna(it).CertificateComments().AddCertificateComment("", "still", "", -3); },
       "Anna Beck (10a), Zeugnisbemerkung „still“, Position: Der Wert ist unmöglich (-3).", false},
      {[](auto& it) { it.TermId.SetAsInt(-7); }, "Kopfdaten, Zeitraumnummer: Der Wert ist unmöglich (-7)."},
      {[](auto& it) { Anna(it).TessaronId.SetNull(); }, "Anna Beck (10a): Der Schüler hat keine Nummer."},
      {[](auto& it) { Maths(it).Faktor.SetAsFloat(-HUGE_VALF); },
       "Anna Beck (10a), Mathematik (Ma), Faktor: Der Wert ist unmöglich (-INF)."},
      {[](auto& it) { it.Noten().GetItem(0)->GradeValue = HUGE_VALF; }, "„2+“, Notenwert: Der Wert"},
      {[](auto& it) { it.Classes().GetItem(0)->SetGradeType(TGradeTypes(9)); },
       "Die Notenart 9 der Klasse „10a“ ist unbekannt."},
      {[](auto& it) { it.Noten().GetItem(0)->SetGradeType(TGradeTypes(3)); }, "Die Notenart 3 der Note „2+“"},
      {[](auto& it) { static_cast<TGrade*>(it.Niveaus().Add(TGrade::Class()))->Token = "G"; },
       "Niveaus: Der Eintrag „G“ ist von der Klasse TGrade, die dort nicht hingehört."},
      {[](auto& it) { it.Students().Extract(0); }, "Mathematik (Ma): Der Schüler des Kurses fehlt in der Datei."},
      {[](auto& it) { Maths(it).Student = nullptr; }, "Mathematik (Ma): Der Kurs hat keinen Schüler."},
      {[](auto& it) { Maths(it).Note1Id.SetAsInt(3); },
       "Anna Beck (10a), Mathematik (Ma), 1. Note: Die Note Nr. 3 steht nicht im Notenkatalog.", false},
      {[](auto& it) { Maths(it).ZusatzNote9Id.SetAsInt(-2); },
       "Anna Beck (10a), Mathematik (Ma), ZusatzNote9: Die Note Nr. -2 steht nicht im Notenkatalog.", false},
      {[](auto& it) { Anna(it).VerhaltenGradeId.SetAsInt(9); },
       "Anna Beck (10a), Verhalten: Die Note Nr. 9 steht nicht im Notenkatalog.", false},
      {[](auto& it) { Anna(it).ClassId.SetAsInt(6); }, "Anna Beck: Die Klasse Nr. 6 steht nicht in der Datei."},
      {[](auto& it) { Maths(it).Fachstatus = "p\n"; },
       "Anna Beck (10a), Mathematik (Ma), Fachstatus: „p␊“ steht nicht im Katalog.", false},
      {[](auto& it) { Anna(it).Abschluss2Art = "X"; }, "Anna Beck (10a), Abschluss2Art: „X“ steht nicht im Katalog.",
       false},
      {[](auto& it) { it.Options().Columns().AddColumn("Note2", "", true, true, true, 0); },
       "Die Spalte „Note2“ hat keine Beschriftung.", false},
      {[](auto& it) { it.Options().Columns().AddColumn("NOTE1", "Note", true, true, true, 0); },
       "Die Spalte „note1“ kommt mehrfach vor.", false},
      {[](auto& it) { it.Noten().AddNote(2, "2", "", 2, TGradeTypes::gtValue); },
       "Die Notennummer 2 kommt mehrfach vor."},
      {[](auto& it) { static_cast<TClass*>(it.Classes().Add(TClass::Class()))->TessaronId = 5; },
       "Die Klassennummer 5 kommt mehrfach vor."},
      {[](auto& it) { static_cast<TStudent*>(it.Students().Add(TStudent::Class()))->TessaronId.SetAsInt(100); },
       "Die Schülernummer 100 kommt"},
      {[](auto& it) {
         auto& twin = *static_cast<TCourse*>(it.Courses().Add(TCourse::Class()));
         twin.Student = &Anna(it);
         twin.TessaronId.SetAsInt(200);
       },
       "Die Kursnummer 200 kommt"},
      {[](auto& it) { it.Courses().Add(&Maths(it)); }, ("Das Objekt ")},
  };
  for (const auto& [spoil, finding, forTeacher] : cases) {
    const auto project = Project();
    EXPECT_THAT(FindDefects(*project, TDefectScope::All).Texts, IsEmpty());
    auto* student = &Anna(*project);
    spoil(*project);
    EXPECT_THAT(FindDefects(*project, TDefectScope::All).Texts, testing::UnorderedElementsAre(HasSubstr(finding)));
    const auto told = FindDefects(*project, TDefectScope::Teacher, 0);
    EXPECT_THAT(told.Texts, IsEmpty());
    EXPECT_EQ(told.Count, forTeacher ? 1U : 0U) << finding;
    if (project->Students().IsEmpty()) TVantrelDeleter()(student);
  }
}

TEST_F(CheckTest, TellsTheFilesInTheirOrder) {
  const auto good = Save(Project(), "gut.kvrx");
  auto spoilt = Project();
  Maths(*spoilt).Student = nullptr;
  const auto bad = Save(std::move(spoilt), "schlecht.kvr7");
  const auto cut = FFolder / "kaputt.kvrxr";
  WriteFileText(cut, "<?xml version=\"1.0\"?><Storage><Stu");

  EXPECT_EQ(Run({"check", good, good}), 0);
  EXPECT_EQ(Out(), good + ": in Ordnung\n" + good + ": in Ordnung\n");
  EXPECT_EQ(Run({"check", bad, good, cut, good}), 1);
  EXPECT_THAT(Out(), testing::MatchesRegex(bad + ": 1 Befund\n[^\n]*\n" + good + ": in Ordnung\n" + cut +
                                           ": 1 Befund\n  Die Datei ist beschädigt: [^\n]*Zeile 1[^\n]*\n" + good +
                                           ": in Ordnung\n"));
  EXPECT_EQ(Run({"check", bad, FFolder / "fehlt.kvrx", good}), 2);
  EXPECT_THAT(Err(), HasSubstr("existiert nicht"));
  EXPECT_THAT(Out(), HasSubstr(good));
}

std::string Replaced(std::string text, std::string_view what, std::string_view by) {
  for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size()))
    text.replace(at, what.size(), by);
  return text;
}

TEST_F(CheckTest, TellsWhatTheReaderPassedOver) {
  const auto xml = ReadFileText(Save(Project(), "a.kvrxr"));
  const auto binary = ReadFileText(Save(Project(), "a.kvr7"));
  auto one = xml;
  one.replace(one.find("<Note1ID>-1</Note1ID>"), 21, "<Note1Id>-1</Note1Id>");
  auto negative = std::string(94, '\0');
  negative.replace(37, 4, "\xFF\xFF\xFF\xFF");
  const std::tuple<const char*, std::string, int, std::vector<const char*>> cases[] = {
      {"a.kvrxr", xml, 0, {"in Ordnung\n"}},
      {"a.kvr7", binary, 0, {"in Ordnung\n"}},
      {"a.kvr7", binary + "xyz", 1, {"1 Befund\n", "Die Datei ist beschädigt: Ab Byte ", " stehen 3 Byte, die nicht"}},
      {"a.kvr7", std::string(114727, '\0'), 1, {"Ab Byte 94 stehen 114633 Byte"}},
      {"a.kvr7", negative, 1, {"1 Befund\n", "Eine Liste soll -1 Einträge haben (Byte 41 von 94)."}},
      {"a.kvrxr", Replaced(xml, "Storage>", "Lager>"), 1, {"1 Befund\n", "heißt „Lager“ statt „Storage“."}},
      {"a.kvrxr",
       Replaced(xml, "Courses>", "Kurse>"),
       0,
       {"\n  Hinweis: „Kurse“ ist unbekannt und wird nicht gelesen (1-mal, z"}},
      {"a.kvrxr", one, 0, {"\n  Hinweis: „Courses“: „Note1ID“ fehlt (1-mal).\n  Hinweis: „Courses“: „Note1Id“ ist"}},
  };
  for (const auto& [name, bytes, result, told] : cases) {
    WriteFileText(FFolder / name, bytes);
    EXPECT_EQ(Run({"check", FFolder / name}), result);
    for (const auto* text : told) EXPECT_THAT(Out(), HasSubstr(text));
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"info", FFolder / name},
          {"convert", "--force", FFolder / name, FFolder / (std::string("ziel-") + name)}}) {
      EXPECT_EQ(Run(command), 0);
      EXPECT_THAT(Err(), HasSubstr(result == 0 ? "" : told.back()));
      EXPECT_EQ(Err().starts_with("Die Datei ist beschädigt: "), result != 0) << Err();
    }
  }
  std::string names;
  for (int i = 0; i < 1000; ++i) names += fmt::format("<Feld{0}/>", i) + std::string("<Feld/>");
  WriteFileText(FFolder / "a.kvrxr", Replaced(xml, "<Courses>", names + "<Courses>"));
  EXPECT_EQ(Run({"check", FFolder / "a.kvrxr"}), 0);
  EXPECT_THAT(Out(), AllOf(HasSubstr("„Feld“ ist unbekannt"), HasSubstr("(1000-mal"), HasSubstr("Und weitere 981 ")));
}

TEST_F(CheckTest, AsksForPasswordsAndKeepsTheOrder) {
  const auto good = Save(Project(), "gut.kvrx");
  std::vector<std::string> asked;
  FAskPassword = [&](const std::string& file) { return asked.push_back(file), asked.size() == 1 ? "Geheim-Ä1" : ""; };
  const auto first = Fixture("protected.kvrx");
  const auto second = Fixture("protected.kvr7");
  EXPECT_EQ(Run({"check", first, good, second}), 2);
  EXPECT_THAT(asked, ElementsAre(first, second));
  EXPECT_LT(Out().find(first), Out().find(good));
  EXPECT_THAT(Err(), HasSubstr("Passwort ist nicht korrekt"));
}

struct DiffTest : CliFixture {
  struct TCase {
    void (*Change)(TMyTessaronProject& project);
    const char* Output;
  };
  static const TCase Cases[];
};

const DiffTest::TCase DiffTest::Cases[] = {
    {[](auto& it) { Maths(it).Note1Id.SetAsInt(2); }, "Anna Beck (10a)\n  Mathematik (Ma), 1. Note: leer -> 2+\n"},
    {[](auto& it) { Maths(it).Note1Id.SetAsInt(7); },
     "Anna Beck (10a)\n  Mathematik (Ma), 1. Note: leer -> Nr. 7 (unbekannt)\n"},
    {[](auto& it) { Maths(it).Mahnung.SetAsInt(1); },
     "Anna Beck (10a)\n  Mathematik (Ma), Mahnung: leer -> Nachmahnung\n"},
    {[](auto& it) { Maths(it).Faktor.SetAsFloat(0.1F); }, "Anna Beck (10a)\n  Mathematik (Ma), Faktor: leer -> 0,1\n"},
    {[](auto& it) { Maths(it).Student = nullptr; },
     "Unbekannter Schüler\n  Mathematik (Ma), Schüler: Anna Beck (10a) -> Unbekannter Schüler\n"},
    {[](auto& it) { Anna(it).Zeugnisdatum.SetAsDateTime(46053); },
     "Anna Beck (10a)\n  Zeugnisdatum: leer -> 31.01.2026\n"},
    {[](auto& it) { Anna(it).Geburtsdatum.SetAsDateTime(1e300); },
     "Anna Beck (10a)\n  Geburtsdatum: leer -> ungültiges Datum\n"},
    {[](auto& it) { Anna(it).Nachname = "Beck\x1b[2J"; }, "Anna Beck␛[2J (10a)\n  Nachname: „Beck“ -> „Beck␛[2J“\n"},
    {[](auto& it) { Anna(it).ClassId.SetNull(); }, "Anna Beck\n  Klasse: 10a -> leer\n"},
    {[](auto& it) { Anna(it).VonSportBefreit = true; }, "Anna Beck (10a)\n  VonSportBefreit: nein -> ja\n"},
    {[](auto& it) { Anna(it).CertificateComments().AddCertificateComment("", "fleißig", "", 1); },
     "Anna Beck (10a)\n  neu: Zeugnisbemerkung „fleißig“\n"},
    {[](auto& it) { it.Courses().Delete(0); }, "Anna Beck (10a)\n  entfernt: Mathematik (Ma)\n"},
    {[](auto& it) { it.Students().Add(TStudent::Class()); }, "Schüler Nr. -1\n  Schüler neu in der Datei\n"},
    {[](auto& it) { it.Description = "x"; }, "Kopfdaten\n  Beschreibung: leer -> „x“\n"},
    {[](auto& it) { it.Password = "geheim"; }, "Kopfdaten\n  Das Kennwort wurde geändert.\n"},
    {[](auto& it) { it.Fachstati().GetItem(0)->Description = ""; },
     "Katalog Fachstati\n  „P“, Beschreibung: „Pflicht“ -> leer\n"},
    {[](auto& it) { it.Options().Columns().GetItem(0)->Visible = false; }, "Spalten\n  Note1, Sichtbar: ja -> nein\n"},
    {[](auto& it) { it.Fachstati().Move(0, 1); }, "Katalog Fachstati\n  Reihenfolge ab Platz 1: „P“ -> „W“\n"},
    {[](auto& it) { it.Students().Move(0, 1); }, "Schüler\n  Reihenfolge ab Platz 1: Anna Beck (10a) -> Ben\n"},
    {[](auto& it) { it.Courses().Add(&Maths(it)); },
     "Kurse\n  Anna Beck (10a), Mathematik (Ma), Anzahl der Einträge: 1 -> 2\n"},
    {[](auto& it) { Anna(it).CertificateComments().GetItem(0)->Position = 9; },
     "Anna Beck (10a)\n  Zeugnisbemerkung „still“, Position: 1 -> 9\n"},
    {[](auto& it) { it.Classes().AddClass(6, "10b", TGradeTypes::gtValue); }, "Klassen\n  neu: 10b\n"},
};

TEST_F(DiffTest, TellsChangesInWords) {
  auto first = Project();
  first->Fachstati().AddCatalog("W", "Wahl");
  first->Options().Columns().AddColumn("Position", "Platz", true, true, true, 0);
  static_cast<TStudent*>(first->Students().Add(TStudent::Class()))->Vorname = "Ben";
  Anna(*first).CertificateComments().AddCertificateComment("", "still", "", 1);
  const auto before = Save(std::move(first), "vorher.kvr7");
  for (const auto& [change, output] : Cases) {
    auto project = ProjectIn(before);
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
  Anna(*project).Zugang.SetAsDateTime(1e300);
  Anna(*project).Abgang.SetAsDateTime(46053.25);
  Anna(*project).Abschluss1Note.SetAsFloat(std::numeric_limits<float>::quiet_NaN());
  const auto before = Save(std::move(project), "vorher.kvr7");
  project = ProjectIn(before);
  Maths(*project).Note1Id.SetAsInt(3);
  Anna(*project).Zugang.SetAsDateTime(2e300);
  Anna(*project).Abgang.SetAsDateTime(46053.5);
  auto newOptions = CreateVantrel<TDataOptions>(project.get());
  newOptions->Assign(project->Options());
  const auto changedOptions = GuidToText(newOptions->ID());
  project->SetOptions(std::move(newOptions));
  EXPECT_EQ(Run({"diff", before, Save(std::move(project), "nachher.kvr7")}), 1);
  EXPECT_EQ(Out(), "Kopfdaten\n  Objektnummer der Optionen: " + options + " -> " + changedOptions +
                       "\nSpalten\n  neu: Note1\n  entfernt: Note1\nAnna Beck (10a)\n  Zugang: 1E300 -> 2E300\n  "
                       "Abgang: 31.01.2026 06:00:00 -> "
                       "31.01.2026 12:00:00\n"
                       "  Mathematik (Ma), 1. Note: 2+ (Nr. 2) -> 2+ (Nr. 3)\n");
}

}  // namespace
