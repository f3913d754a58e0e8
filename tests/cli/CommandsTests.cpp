#include "CliFixture.h"

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::IsEmpty;

using CommandsTest = CliFixture;

TEST_F(CommandsTest, TellsWrongUse) {
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{}, "Aufruf: mytessaron-cli"},
      {{"nichts"}, "Unbekannter Befehl: nichts"},
      {{"info"}, "erwartet andere Dateiangaben"},
      {{"diff", "a.kvrx"}, "erwartet andere Dateiangaben"},
      {{"info", "--bunt", "a.kvrx"}, "Unbekannte Option: --bunt"},
      {{"info", "a.kvrx", "--password-file"}, "fehlt ihr Wert"},
      {{"info", "a.kvrx", "--password-file", "/nirgends"}, "/nirgends"},
      {{"info", "/nirgends/a.kvrx"}, "Pfad"},
      {{"info", FFolder / "a.kvrx"}, "existiert nicht"},
      {{"info", Fixture("small.txt")}, "von keiner bekannten Art"},
      {{"sample", FFolder / "a.kvrx", "--students", "viele"}, "\"viele\" der Option --students"},
      {{"sample", FFolder / "a.kvrx", "--edition=9"}, "8 oder 10"},
      {{"sample", FFolder / "a.png"}, "gehört zu keiner bekannten Art"},
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

TEST_F(CommandsTest, ConvertLeavesTheTargetWhereItCannotDoItsWork) {
  const auto target = FFolder / "ziel.kvrx";
  const auto damaged = FFolder / "kaputt.kvr7";
  WriteFileText(target, "alt");
  WriteFileText(damaged, ReadFileText(Fixture("small.kvr7")).substr(0, 10000));
  EXPECT_EQ(Run({"convert", damaged, target}), 2);
  EXPECT_THAT(Err(), HasSubstr("beschädigt"));
  EXPECT_THAT(Err(), HasSubstr("von 10000"));

  auto unwritable = Project();
  unwritable->Password = "\x01";
  EXPECT_EQ(Run({"convert", Save(std::move(unwritable), "steuerzeichen.kvr7"), target}), 2);
  EXPECT_THAT(Err(), HasSubstr("Kennwort"));
  EXPECT_EQ(ReadFileText(target), "alt");
}

}  // namespace
