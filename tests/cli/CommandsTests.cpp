#include "CliFixture.h"
#include "VantrelText.h"

namespace {

namespace fs = std::filesystem;

using CommandsTest = CliFixture;

TEST_F(CommandsTest, TellsWrongUse) {
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{}, "Aufruf: mytessaron-cli"},
      {{"nichts"}, "Unbekannter Befehl: nichts"},
      {{"info"}, "erwartet andere Dateiangaben"},
      {{"diff", "a.kvrx"}, "erwartet andere Dateiangaben"},
      {{"info", "--bunt", "a.kvrx"}, "Unbekannte Option: --bunt"},
      {{"check", "-x"}, "Unbekannte Option: -x\n"},
      {{"check", "-xyz", "a.kvrx"}, "Unbekannte Option: -xyz\n"},
      {{"--password-file=/dev/null", "check", "-ä"}, "Unbekannte Option: -ä\n"},
      {{"check", "--help=1"}, "Unbekannte Option: --help=1\n"},
      {{"check", "--force", "a.kvrx"}, "--force gehört nicht zum Befehl check"},
      {{"info", "a.kvrx", "--password-file"}, "fehlt ihr Wert"},
      {{"info", "a.kvrx", "--password-file", "/nirgends"}, "/nirgends"},
      {{"info", "/nirgends/a.kvrx"}, "Pfad"},
      {{"info", FFolder / "a.kvrx"}, "existiert nicht"},
      {{"info", Fixture("small.txt")}, "von keiner bekannten Art"},
      {{"sample", FFolder / "a.kvrx", "--students", "viele"}, "„viele“ der Option --students"},
      {{"sample", FFolder / "a.kvrx", "--edition=9"}, "8 oder 10"},
      {{"sample", FFolder / "a.png"}, "gehört zu keiner bekannten Art"},
      {{"check", "--", "--help"}, "--help"},
      {{"info", "--seed", "1", Fixture("small.kvrx")}, "--seed gehört nicht zum Befehl info"},
      {{"convert", Fixture("small.kvrx"), FFolder / "a.txt"}, "gehört zu keiner bekannten Art"},
  };
  for (const auto& [arguments, text] : cases) {
    EXPECT_EQ(Run(arguments), 2) << text;
    EXPECT_THAT(Err(), HasSubstr(text));
    EXPECT_THAT(Out(), IsEmpty());
  }
  EXPECT_EQ(Run({"info", "--help"}), 0);
  EXPECT_THAT(Out(), HasSubstr("Aufruf"));
}

TEST_F(CommandsTest, InfoTellsWhatAFileIs) {
  for (const auto& [name, kind] :
       {std::pair("small.kvrx", "XML, verschlüsselt (.kvrx)"), std::pair("small.kvr7", "binär (.kvr7)"),
        std::pair("small.kvrxr", "XML im Klartext (.kvrxr)")}) {
    EXPECT_EQ(Run({"info", Fixture(name)}), 0);
    for (const char* text :
         {kind, "10.2.1", "Mandant:        7\n", "MUE Müller, Jürgen, ID = 42", "2. Halbjahr 2025/26, ID = leer",
          "Beschreibung\n                mit zwei Zeilen\n", "Klassen:        5\n", "Schüler:        12\n",
          "Kurse:          60\n", "Noten 1-5: 114, Endnote 1: 26, Endnote 2: 32"})
      EXPECT_THAT(Out(), HasSubstr(text));
  }
}

TEST_F(CommandsTest, ProtectedFilesNeedTheirPassword) {
  const auto good = FFolder / "gut";
  const auto wrong = FFolder / "falsch";
  WriteFileText(good, "Geheim-Ä1\r\nmehr\n");
  WriteFileText(wrong, "geheim-Ä1\n");
  const auto file = Fixture("protected.kvrx");
  const auto target = FFolder / "ziel.kvrxr";
  for (const std::vector<std::string>& command :
       {std::vector<std::string>{"info", file}, {"check", file}, {"diff", file, file}, {"convert", file, target}}) {
    auto with = [&](const std::string& passwordFile) {
      auto arguments = command;
      arguments.insert(arguments.end(), {"--password-file", passwordFile});
      return Run(arguments);
    };
    FAskPassword = nullptr;
    EXPECT_EQ(Run(command), 2);
    EXPECT_THAT(Err(), HasSubstr("mit einem Kennwort geschützt"));
    EXPECT_EQ(with(wrong), 2);
    EXPECT_EQ(Err(), "Das angegebene Passwort ist nicht korrekt. Datei wird geschlossen.\n");
    EXPECT_THAT(Out(), IsEmpty());
    EXPECT_FALSE(fs::exists(target));
    EXPECT_NE(with(good), 2);
    fs::remove(target);
    FAskPassword = [](const std::string&) { return "Geheim-Ä1"; };
    EXPECT_NE(Run(command), 2);
    FAskPassword = [](const std::string&) { return "falsch"; };
    fs::remove(target);
    EXPECT_EQ(Run(command), 2);
  }
}

TEST_F(CommandsTest, WhatExistsIsReplacedByForceAlone) {
  WriteFileText(FFolder / "brief.txt", "wertvoll");
  EXPECT_EQ(Run({"texts", FFolder / "brief.txt"}), 2);
  EXPECT_EQ(Run({"texts", FFolder / "fehlt/texte.ini"}), 2);
  for (const char* kind : {"kvrx", "kvrxr", "kvr7", "kvr", "json"}) {
    const auto target = FFolder / (std::string("ziel.") + kind);
    const auto missing = FFolder / (std::string("fehlt/ziel.") + kind);
    WriteFileText(target, "wertvoll");
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"sample"}, {"convert", Fixture("small.kvrx")}}) {
      const auto to = [&](std::vector<std::string> end) {
        end.insert(end.begin(), command.begin(), command.end());
        return Run(end);
      };
      EXPECT_EQ(to({target}), 2);
      EXPECT_THAT(Err(), HasSubstr("--force"));
      EXPECT_EQ(ReadFileText(target), "wertvoll");
      EXPECT_EQ(to({missing, "--force"}), 2);
      EXPECT_THAT(Err(), HasSubstr("Der Pfad der Datei"));
    }
    EXPECT_EQ(Run({"convert", "--force", Fixture("small.kvrx"), target}), 0);
    EXPECT_NE(ReadFileText(target), "wertvoll");
  }
  fs::create_symlink("nirgends", FFolder / "verweis.kvrx");
  EXPECT_EQ(Run({"sample", FFolder / "verweis.kvrx"}), 2);
  EXPECT_EQ(ReadFileText(FFolder / "brief.txt"), "wertvoll");
  EXPECT_FALSE(fs::exists(FFolder / "fehlt"));
  EXPECT_EQ(Run({"texts", "--force", FFolder / "brief.txt"}), 0);
}

TEST_F(CommandsTest, NothingThatIsShownHarmsTheTerminal) {
  const std::string name = "a\x1b[2J\n\xff\xc2\x9b\xed\xa0\x80.kvr7";
  auto project = Project();
  project->TeacherName = project->Description = Anna(*project).Nachname = name;
  const auto file = Save(std::move(project), name);
  const auto missing = FFolder / ("x" + name);
  const std::vector<std::string> commands[] = {{"info", file},
                                               {"info", missing},
                                               {"check", file, missing},
                                               {"check", "-" + name},
                                               {"diff", file, Fixture("small.kvrx")},
                                               {"convert", file, missing},
                                               {"sample", file},
                                               {name, file},
                                               {"info", file, "--password-file", missing},
                                               {"sample", FFolder / ("y" + name)},
                                               {"texts", file}};
  for (const auto& command : commands) {
    Run(command);
    const auto shown = Out() + Err();
    EXPECT_THAT(shown, HasSubstr("a␛[2J"));
    EXPECT_EQ(shown, RepairUtf8(shown));
    EXPECT_TRUE(std::ranges::none_of(shown, [](unsigned char c) { return c != '\n' && (c < ' ' || c == 0x7F); }));
    for (const char* ill : {"\xc2\x9b", "\xed\xa0\x80"}) EXPECT_THAT(shown, testing::Not(HasSubstr(ill)));
  }
}

TEST_F(CommandsTest, ConvertMakesNothingMoreReadableAndTakesAnyName) {
  const auto source = FFolder / "f\xFCr 12:30\\a.kvr7";
  fs::copy_file(Fixture("small.kvr7"), source);
  fs::permissions(source, fs::perms(0600));
  for (const char* name : {"\xFC.kvrx", "b.kvrxr", "c.json"}) {
    const auto target = FFolder / name;
    EXPECT_EQ(Run({"convert", source, target}), 0) << Err();
    EXPECT_EQ(static_cast<int>(fs::status(target).permissions()), 0600) << name;
  }
  EXPECT_EQ(Run({"info", FFolder / "\xFC.kvrx"}), 0) << Err();
}

TEST_F(CommandsTest, ConvertTellsWhatTheTargetCannotHold) {
  auto project = Project();
  Anna(*project).Vorname = "An\x02na";
  Anna(*project).Geschlecht = u'\xD800';
  Anna(*project).Geburtsdatum.SetAsDateTime(39000.25);
  Maths(*project).Beurteilung = "Łukasz/\x9F";
  const auto source = Save(std::move(project), "quelle.kvr7");
  const std::string date = "  Geburtsdatum: 10.10.2006 06:00:00 -> 10.10.2006 00:00:00\n",
                    heading = "“ kann nicht alles halten, was die Quelle hat:\n";
  const std::pair<const char*, std::string> cases[] = {
      {"kvr", ""},
      {"kvrxr", heading + "Anna Beck (10a)\n  Vorname: „An␂na“ -> „Anna“\n  Geschlecht: „\uFFFD“ -> „\uFFFD“\n" + date},
      {"json", heading + "An␂na Beck (10a)\n  Geschlecht: „\uFFFD“ -> „?“\n" + date +
                   "  Mathematik (Ma), Beurteilung: „Łukasz/\uFFFD“ -> „?ukasz\\/?“\n"}};
  for (const auto& [kind, losses] : cases) {
    EXPECT_EQ(Run({"convert", source, FFolder / ("ziel." + std::string(kind))}), 0);
    EXPECT_TRUE(Err().ends_with(losses)) << Err();
    EXPECT_EQ(Err().empty(), losses.empty());
  }
}

TEST_F(CommandsTest, ConvertLeavesTheTargetWhereItCannotDoItsWork) {
  const auto target = FFolder / "ziel.kvrx";
  const auto damaged = FFolder / "kaputt.kvr7";
  WriteFileText(target, "alt");
  WriteFileText(damaged, ReadFileText(Fixture("small.kvr7")).substr(0, 10000));
  EXPECT_EQ(Run({"convert", "--force", damaged, target}), 2);
  EXPECT_THAT(Err(), HasSubstr("beschädigt"));
  EXPECT_THAT(Err(), HasSubstr("von 10000"));

  auto unwritable = Project();
  unwritable->Password = "\x01";
  EXPECT_EQ(Run({"convert", Save(std::move(unwritable), "steuerzeichen.kvr7"), target, "--force"}), 2);
  EXPECT_THAT(Err(), HasSubstr("Kennwort"));
  EXPECT_EQ(ReadFileText(target), "alt");
}

}  // namespace
