#pragma once

/// The user texts of this folder. Those with placeholders go through fmt.
namespace CliTexts {
inline constexpr const char* Usage =
    "Aufruf: mytessaron-cli BEFEHL ...\n"
    "\n"
    "  info DATEI              Was für eine Datei das ist und was noch einzugeben ist\n"
    "  check DATEI...          Was an den Dateien nicht stimmt\n"
    "  convert QUELLE ZIEL     Jede Art in jede andere, nach der Endung des Ziels\n"
    "  diff ALT NEU            Was sich zwischen zwei Ständen geändert hat\n"
    "  sample ZIEL             Eine Beispieldatei herstellen\n"
    "  texts ZIEL              Wörterbuch mit allen Texten des Programms zum Übersetzen;\n"
    "                          eines, das es schon gibt, wird ergänzt\n"
    "\n"
    "Arten: .kvrx (XML, verschlüsselt), .kvr7 und .kvr (binär), .kvrxr (XML im Klartext);\n"
    "als Ziel auch .json (nur zum Ansehen, wird nicht wieder gelesen).\n"
    "\n"
    "  --password-file DATEI   Kennwort geschützter Dateien, in der ersten Zeile;\n"
    "                          sonst wird am Terminal danach gefragt\n"
    "  --students N, --subjects N, --classes N, --seed N, --edition 8|10\n"
    "                          Umfang, Zufallszahl und Ausgabe einer Beispieldatei\n"
    "  --force                 Ein Ziel, das es schon gibt, wird ersetzt\n"
    "  --help                  Diese Hilfe\n"
    "\n"
    "Ergebnis: 0 in Ordnung, 1 Befunde oder Unterschiede, 2 falscher Aufruf oder nicht lesbare Datei.\n";
inline constexpr const char* SeeHelp = "Hilfe: mytessaron-cli --help";
inline constexpr const char* UnknownCommand = "Unbekannter Befehl: {}";
inline constexpr const char* UnknownOption = "Unbekannte Option: {}";
inline constexpr const char* OptionWithoutValue = "Der Option {} fehlt ihr Wert.";
inline constexpr const char* ForeignOption = "Die Option --{} gehört nicht zum Befehl {}.";
inline constexpr const char* WrongNumber = "Der Wert „{}“ der Option --{} ist nicht erlaubt ({} bis {}).";
inline constexpr const char* WrongEdition = "Die Option --edition erwartet 8 oder 10.";
inline constexpr const char* WrongFileCount = "Der Befehl {} erwartet andere Dateiangaben.";
inline constexpr const char* OutputFailed = "Die Ausgabe konnte nicht geschrieben werden.";
inline constexpr const char* UnexpectedError = "Unerwarteter Fehler: {}";

inline constexpr const char* UnknownKind =
    "Die Datei „{}“ ist von keiner bekannten Art (.kvrx, .kvr7, .kvr oder .kvrxr).";
inline constexpr const char* UnknownTarget =
    "Die Endung von „{}“ gehört zu keiner bekannten Art (.kvrx, .kvr7, .kvr, .kvrxr oder .json).";
inline constexpr const char* TargetExists =
    "Die Datei „{}“ existiert bereits. Mit der Option --force wird sie ersetzt.";
inline constexpr const char* FileNotFound = "Die Datei \"{}\" existiert nicht. Prüfen Sie Namen und Ordner.";
inline constexpr const char* PathNotFound =
    "Der Pfad der Datei „{}“ existiert nicht. Prüfen Sie ihn, oder legen Sie den Ordner an.";
inline constexpr const char* AccessDenied =
    "Der Zugriff auf die Datei \"{}\" ist nicht möglich. Prüfen Sie die Rechte an Datei und Ordner.";
inline constexpr const char* FileInUse =
    "Die Datei „{}“ ist in einem anderen Programm zum Bearbeiten geöffnet. Schließen Sie sie dort.";
inline constexpr const char* DiskFull =
    "Für die Datei „{}“ ist auf dem Datenträger nicht genügend Platz. Geben Sie dort welchen frei.";
inline constexpr const char* FileError = "Die Datei „{}“: {}";
inline constexpr const char* Damaged = "Die Datei „{}“ ist beschädigt: {}";
inline constexpr const char* AskPassword = "Kennwort für {}: ";
inline constexpr const char* WrongPassword = "Das angegebene Passwort ist nicht korrekt. Datei wird geschlossen.";
inline constexpr const char* PasswordNeeded =
    "Die Datei „{}“ ist mit einem Kennwort geschützt. Geben Sie es mit --password-file DATEI an.";
inline constexpr const char* NoPasswordFile = "Die Kennwortdatei „{}“ kann nicht gelesen werden.";
inline constexpr const char* Losses = "Die Art von „{}“ kann nicht alles halten, was die Quelle hat:";
inline constexpr const char* Converted = "„{}“ wurde als „{}“ gespeichert.";

inline constexpr const char* SampleMade = "„{}“ wurde hergestellt: {} Schüler, {} Kurse.";
inline constexpr const char* TextsWritten = "„{}“ enthält nun alle {} Texte des Programms.";
inline constexpr const char* NoDictionary = "Die Endung von „{}“ gehört zu einer Projektdatei.";

inline constexpr const char* InfoFile = "Datei";
inline constexpr const char* InfoKind = "Art";
inline constexpr const char* InfoVersion = "Version";
inline constexpr const char* InfoTenant = "Mandant";
inline constexpr const char* InfoTeacher = "Signatur";
inline constexpr const char* InfoTerm = "Zeitraum";
inline constexpr const char* InfoDescription = "Bemerkung";
inline constexpr const char* InfoPassword = "Kennwort";
inline constexpr const char* InfoClasses = "Klassen";
inline constexpr const char* InfoStudents = "Schüler";
inline constexpr const char* InfoCourses = "Kurse";
inline constexpr const char* InfoMissing = "Fehlende Noten";
inline constexpr const char* KindBinary = "binär";
inline constexpr const char* KindEncryptedXml = "XML, verschlüsselt";
inline constexpr const char* KindPlainXml = "XML im Klartext";
inline constexpr const char* NumberOfName = "ID = {}";
inline constexpr const char* MissingNotes = "Noten 1-5: {}";
inline constexpr const char* MissingEndnote1 = "Endnote 1: {}";
inline constexpr const char* MissingEndnote2 = "Endnote 2: {}";
inline constexpr const char* NothingMissing = "keine";

inline constexpr const char* CheckGood = "{}: in Ordnung";
inline constexpr const char* CheckFindings = "{}: {} {}";
inline constexpr const char* OneFinding = "Befund";
inline constexpr const char* SeveralFindings = "Befunde";
inline constexpr const char* CheckProgress = "{} von {} Dateien geprüft";
inline constexpr const char* CheckDamaged = "Die Datei ist beschädigt: {}";
inline constexpr const char* CheckHint = "Hinweis: {}";
inline constexpr const char* WorkerDied = "Die Datei „{}“ kann nicht gelesen werden: Die Prüfung wurde abgebrochen.";

inline constexpr const char* NoDifference = "Keine Unterschiede.";
inline constexpr const char* Changed = "{}: {} -> {}";
inline constexpr const char* ChangedOf = "{}, {}";
inline constexpr const char* Added = "neu: {}";
inline constexpr const char* Removed = "entfernt: {}";
inline constexpr const char* StudentAdded = "Schüler neu in der Datei";
inline constexpr const char* StudentRemoved = "Schüler nicht mehr in der Datei";
inline constexpr const char* PasswordChanged = "Das Kennwort wurde geändert.";
inline constexpr const char* Entries = "Anzahl der Einträge";
inline constexpr const char* OrderFrom = "Reihenfolge ab Platz {}";
inline constexpr const char* OptionsId = "Objektnummer der Optionen";
inline constexpr const char* Catalog = "Katalog {}";
inline constexpr const char* Grades = "Noten";
inline constexpr const char* Student = "Schüler";
inline constexpr const char* Columns = "Spalten";
inline constexpr const char* Remarks = "Katalog der Zeugnisbemerkungen";
}  // namespace CliTexts
