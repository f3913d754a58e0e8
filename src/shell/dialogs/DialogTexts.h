#pragma once

/// The user texts of the dialogs and of the spelling check. Those with placeholders go through fmt.
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
inline constexpr const char* EMails = " E-Mails ignorieren (name@schule.de) ";
inline constexpr const char* WebAddresses = " Web-Adressen ignorieren (www.schule.de) ";

// Batch dialog
inline constexpr const char* BatchTitle = "Sammelzuweisung \"Zeugnisdaten\"";
inline constexpr const char* SelectStudentsTitle = "Schüler auswählen";
inline constexpr const char* SelectStudentsText =
    "Wählen Sie die Schüler aus und klicken Sie auf \"Weiter\", um fortzufahren.";
inline constexpr const char* SelectDataTitle = "Daten auswählen";
inline constexpr const char* SelectDataText =
    "Wählen Sie die Felder aus und tragen Sie die Werte für die Sammelzuweisung ein. Klicken Sie auf Fertigstellen, um "
    "die Sammelzuweisung auszuführen.";
inline constexpr const char* WizardBack = "&Zurück";
inline constexpr const char* WizardNext = "&Weiter";
inline constexpr const char* WizardFinish = "&Fertigstellen";
inline constexpr const char* WizardClose = "&Schließen";
inline constexpr const char* BatchNotice =
    "ACHTUNG: \r\nDas Leeren von Feldwerten (Häkchen setzen und keinen Wert eintragen) \r\n"
    "betrifft nur Ihre MyTESSARON-Datei und wird nicht nach TESSARON übernommen!";
inline constexpr const char* BatchCleared = "wird geleert";
inline constexpr const char* BatchStudents = "Es werden {} Schüler geändert.";
inline constexpr const char* BatchOneStudent = "Es wird 1 Schüler geändert.";
inline constexpr const char* BatchNoRights =
    "Sie besitzen nicht die erforderlichen Rechte auf die Daten, die per Sammelzuweisung gesetzt werden können.";
inline constexpr const char* BatchNoValue =
    "Was im Feld „{}“ steht, kann nicht gespeichert werden. Es wurde nichts zugewiesen.";
inline constexpr const char* BatchTooSmall =
    "Im Feld „{}“ kann kein Wert unter {} gespeichert werden. Es wurde nichts zugewiesen.";
inline constexpr const char* BatchDone =
    "Die Sammelzuweisung wurde erfolgreich beendet.\r\nMöchten Sie weitere Sammelzuweisungen durchführen?";
}  // namespace DialogTexts
