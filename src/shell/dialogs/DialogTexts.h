#pragma once

/// The user texts of the text dialogs and of the spelling check. Those with placeholders go through fmt.
namespace DialogTexts {
// Both text dialogs
inline constexpr const char* SaveAndClose = "Speichern und Schließen";
inline constexpr const char* Close = "Schließen";
inline constexpr const char* Add = "&Hinzufügen";
inline constexpr const char* SpellCheck = "&Rechtschreibung prüfen...";
inline constexpr const char* OK = "OK";
inline constexpr const char* Cancel = "Abbrechen";
inline constexpr const char* Confirm = "Bestätigen";
inline constexpr const char* DiscardQuestion = "Änderungen verwerfen?";
inline constexpr const char* TextCount = "Zeichen: {}, Zeilen: {}";
inline constexpr const char* Token = "Kürzel";
inline constexpr const char* Position = "Position";
inline constexpr const char* Attribute = "Merkmal";
inline constexpr const char* Description = "Text";

// Remark
inline constexpr const char* RemarkTitle = "Zeugnisbemerkung";
inline constexpr const char* RemarkGroup = "Zeugnisbemerkungen des Schülers";
inline constexpr const char* RemarkText = "Text";
inline constexpr const char* RemarkCatalog = "Katalog der Zeugnisbemerkungen";

// Assessment; the misspelling is what users of the central system know.
inline constexpr const char* AssessmentTitle = "Zeugnisbeurteilung editieren";
inline constexpr const char* AssessmentGroup = "Zeugsnisbeurteilung des Schülers";
inline constexpr const char* AssessmentSubject = "Fach";
inline constexpr const char* AssessmentText = "Beurteilung";
inline constexpr const char* AssessmentCatalog = "Katalog der Zeugnisbeurteilungen";

// Spelling
inline constexpr const char* Spelling = "Rechtschreibung";
inline constexpr const char* NoDictionary = "Kein Wörterbuch geladen; der Text wurde nicht geprüft.";
inline constexpr const char* CheckComplete = "Die Rechtschreibprüfung ist abgeschlossen.";
inline constexpr const char* Change = "Än&dern";
inline constexpr const char* ChangeAll = "Alle ä&ndern";
inline constexpr const char* Ignore = "&Ignorieren";
inline constexpr const char* IgnoreAll = "Alle i&gnorieren";
inline constexpr const char* AddWord = "&Hinzufügen";
inline constexpr const char* WordNotSaved =
    "„{}“ gilt in diesem Dialog als richtig, konnte aber nicht gespeichert "
    "werden.\r\n\r\n{}";

// Options of spelling
inline constexpr const char* SpellingExplanation =
    "Legen Sie hier fest, ob und mit welchen Optionen die Rechtschreibprüfung bei Beurteilungstexten und "
    "Zeugnisbemerkungen verwendet werden soll. ";
inline constexpr const char* Active = " Rechtschreibprüfung aktiv  ";
inline constexpr const char* AsYouType = " Rechtschreibkorrektur während der Eingabe ";
inline constexpr const char* UpperCaseWords = " Wörter in GROSSBUCHSTABEN ignorieren ";
inline constexpr const char* MixedCaseWords = " Wörter in MiScHfÄlLeN ignorieren ";
inline constexpr const char* WordsWithNumbers = " Wörter mit Zahlen ignorieren ";
inline constexpr const char* RepeatedWords = " Wiederholte Wörter ignorieren ";
inline constexpr const char* EMails = "E-Mails ignorieren (name@schule.de)";
inline constexpr const char* WebAddresses = "Web-Adressen ignorieren (www.schule.de)";
}  // namespace DialogTexts
