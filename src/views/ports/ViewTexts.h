#pragma once

#include "ProductNames.h"

/// The user texts of the views and their windows. Those with placeholders go through fmt.
namespace ViewTexts {
inline constexpr const char* WindowTitle = ProductNames::OwnName;
inline constexpr const char* AbstractCall = "Die Ansicht {} kennt den Vorgang {} nicht.";
inline constexpr const char* Count = "Anzahl: {}";

// Students
inline constexpr const char* StudentsLabel = "Schüler";
inline constexpr const char* StudentsTitle = "Fachdaten nach Schüler";
inline constexpr const char* NobodyShown = "Kein Schüler entspricht dem Filter";
inline constexpr const char* AchievementSheet = "Leistungen";
inline constexpr const char* CertificateDataSheet = "Zeugnisdaten";
inline constexpr const char* CertificateCommentsSheet = "Zeugnisbemerkungen";
inline constexpr const char* StudentId = "ID";
inline constexpr const char* StudentClass = "Klasse";
inline constexpr const char* StudentFirstName = "Vorname";
inline constexpr const char* StudentLastName = "Nachname";
inline constexpr const char* StudentBirthday = "Geburtsdatum";
inline constexpr const char* FitColumns = "Spaltenbreiten anpassen";
inline constexpr const char* SelectAll = "Alle auswählen";

// Remarks
inline constexpr const char* RemarkPosition = "Position";
inline constexpr const char* RemarkAttribute = "Merkmal";
inline constexpr const char* RemarkText = "Bemerkung";
inline constexpr const char* AddRemark = "Hinzufügen";
inline constexpr const char* EditRemark = "Bearbeiten";
inline constexpr const char* DeleteRemark = "Löschen";
inline constexpr const char* DeleteAllRemarks = "Alle Löschen";
inline constexpr const char* ConfirmCaption = "Bestätigen";
inline constexpr const char* DeleteRemarks = "Möchten Sie die ausgewählten Zeugnisbemerkungen wirklich löschen?";
inline constexpr const char* DeleteEveryRemark = "Möchten Sie wirklich alle Zeugnisbemerkungen löschen?";

// Export
inline constexpr const char* NoteCaption = "Hinweis";
inline constexpr const char* ExportTitle = "Liste exportieren nach";
inline constexpr const char* ExportFilter =
    "Excel-Format (*.xls)|*.xls|HTML-Format (*.html)|*.html|Excel-Format ab 2007 (*.xlsx)|*.xlsx";
inline constexpr const char* ExportOverwrite =
    "Die Datei „{}“ ist bereits vorhanden.\r\nMöchten Sie sie durch die Liste ersetzen?";
inline constexpr const char* ExportFailed = "Die Liste konnte nicht nach „{}“ exportiert werden.\r\n\r\n{}";
inline constexpr const char* Exported = "Exportiert: {}";

// Subjects
inline constexpr const char* SubjectsLabel = "Fächer";
inline constexpr const char* SubjectsTitle = "Fachdaten nach Fächer";
inline constexpr const char* SubjectId = "ID";
inline constexpr const char* SubjectToken = "Fach";
inline constexpr const char* SubjectName = "Name";
inline constexpr const char* SubjectOpen = "Offen";
inline constexpr const char* FilteredByGrades = "Gefiltert nach Noten";
inline constexpr const char* FilteredByPoints = "Gefiltert nach Punkten";
inline constexpr const char* FilteredByTexts = "Gefiltert nach Beurteilungstexten";
inline constexpr const char* FilteredByClass = "Gefiltert nach Klasse";
inline constexpr const char* ChooseGradeType = "Zum Bearbeiten oben eine Beurteilungsart wählen.";
inline constexpr const char* NoGradesToEnter = "In dieser Datei sind keine Noten zum Eingeben freigegeben.";
inline constexpr const char* NoGradesOpen = "Alle Noten dieser Beurteilungsart sind eingegeben.";
inline constexpr const char* OpenGradesHidden =
    "Ihr Filter verbirgt offene Noten dieses Faches. Mit „Filter aufheben“ werden sie wieder angezeigt.";
inline constexpr const char* NoRowOfGradeType = "In dieser Datei hat kein Schüler diese Beurteilungsart.";
inline constexpr const char* GradesEntered = "{}: {} von {} eingegeben";
inline constexpr const char* GradesAverage = "Durchschnitt {}";
inline constexpr const char* GradesShare = "{}: {}";

// Classes
inline constexpr const char* ClassesLabel = "Klassen";
inline constexpr const char* ClassesTitle = "Fachdaten nach Klassen";
inline constexpr const char* ClassId = "ID";
inline constexpr const char* ClassToken = "Kürzel";
inline constexpr const char* ClassGradeType = "Beurteilungsart";
inline constexpr const char* ClassOverview = "Übersicht der Klasse";

// Welcome
inline constexpr const char* InfoGroup = "Version";
inline constexpr const char* FileGroup = "Aktuelle Datei";
inline constexpr const char* DescriptionGroup = "Bemerkung";
inline constexpr const char* ProgramVersion = "Sie arbeiten mit MyTessaron in der Version {}";
inline constexpr const char* FileVersion = "Die Datei wurde mit folgender Version erstellt: {}";
inline constexpr const char* Filepath = "Verzeichnis: {}";
inline constexpr const char* WriteProtected = "schreibgeschützt: Speichern nur unter anderem Namen";
inline constexpr const char* CreatedOn = "Erstellt: {}";
inline constexpr const char* ChangedOn = "Geändert: {}";
inline constexpr const char* Signature = "Signatur: {}, ID = {}";
inline constexpr const char* Period = "Zeitraum: {}, ID = {}";
inline constexpr const char* Tenant = "Mandant: {}";
inline constexpr const char* StudentCount = "Anzahl der Schüler: {}";
inline constexpr const char* HowToOpen =
    "Mit Strg+O öffnen Sie eine Datei, ebenso mit „Öffnen...“ im Menü „Datei“. Sie können sie auch auf dieses Fenster "
    "ziehen.";
inline constexpr const char* RecentFiles = "Zuletzt geöffnete Dokumente";
inline constexpr const char* NoGradesMissing = "Keine Noten einzugeben";
inline constexpr const char* GradesMissing = "Folgende Noten sind noch einzugeben:";
inline constexpr const char* MissingNoten = "  Noten 1-5:         {}";
inline constexpr const char* MissingEndnoten = "  Endnoten:          {}";
inline constexpr const char* MissingEndnotenGesamt = "  Endnoten (Gesamt): {}";
}  // namespace ViewTexts
