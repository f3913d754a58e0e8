#pragma once

/// The user texts of this folder. "%1" is filled by QString::arg.
namespace DesktopTexts {
inline constexpr const char* FoldRibbon = "Menüband ein- oder ausklappen (Strg+F1)";
inline constexpr const char* Ribbon = "Menüband";
inline constexpr const char* StatusBar = "Statusleiste";
inline constexpr const char* HintWithShortcut = "%1 (%2)";
inline constexpr const char* FileInFolder = "%1 in %2";

inline constexpr const char* SortAscending = "Aufsteigend sortieren";
inline constexpr const char* SortDescending = "Absteigend sortieren";
inline constexpr const char* SortOff = "Sortierung aufheben";
inline constexpr const char* GroupBy = "Nach dieser Spalte gruppieren";
inline constexpr const char* Ungroup = "Gruppierung aufheben";
inline constexpr const char* FilterByCell = "Nach „%1“ filtern";
inline constexpr const char* FilterOff = "Filter aufheben";
inline constexpr const char* FilterItem = "%1: %2";
inline constexpr const char* FilterLine = "%1, %2 von %3";
inline constexpr const char* UserFilterLine = "Filter: %1, %2 von %3";
inline constexpr const char* HideColumn = "Spalte ausblenden";
inline constexpr const char* ChooseColumns = "Spalten auswählen...";
inline constexpr const char* ColumnChooser = "Spalten auswählen";
inline constexpr const char* BestFit = "Spaltenbreite anpassen";
inline constexpr const char* BestFitAll = "Alle Spaltenbreiten anpassen";
inline constexpr const char* GroupHeading = "%1: %2 (%3)";
inline constexpr const char* EmptyValue = "(leer)";
inline constexpr const char* InvalidValue = "ungültiger Wert";
inline constexpr const char* Search = "Suche: %1";

inline constexpr const char* LookupToken = "Kürzel";
inline constexpr const char* LookupDescription = "Beschreibung";
inline constexpr const char* OpenList = "Liste öffnen";
inline constexpr const char* OpenCalendar = "Kalender öffnen";
inline constexpr const char* Today = "Heute";
inline constexpr const char* ClearDate = "Leeren";

inline constexpr const char* UnexpectedError =
    "Ein unerwarteter Fehler ist aufgetreten: %1\n\nIhre Eingaben sind noch da. Speichern Sie sie, bevor Sie "
    "weiterarbeiten.";

inline constexpr const char* BoxOK = "OK";
inline constexpr const char* BoxCancel = "Abbrechen";
inline constexpr const char* BoxYes = "&Ja";
inline constexpr const char* BoxNo = "&Nein";
inline constexpr const char* BoxRetry = "&Wiederholen";
inline constexpr const char* BoxAbort = "&Abbrechen";
inline constexpr const char* BoxIgnore = "&Ignorieren";
inline constexpr const char* BoxHelp = "&Hilfe";

inline constexpr const char* PasswordTitle = "Kennwort - Eingabe";
inline constexpr const char* PasswordText =
    "Die Datei ist kennwortgeschützt. Bitte geben Sie das korrekte Kennwort ein.";
inline constexpr const char* PasswordEdit = "Kennwort";
inline constexpr const char* AboutTitle = "Info";
inline constexpr const char* Close = "Schließen";

inline constexpr const char* SearchCatalog = "Im Katalog suchen (Strg+F)";
inline constexpr const char* NotFound = "nicht gefunden";
inline constexpr const char* CorrectionTitle = "Rechtschreibung prüfen";
inline constexpr const char* NotInDictionary = "Nicht im Wörterbuch:";
inline constexpr const char* ReplaceBy = "&Ersetzen durch:";
inline constexpr const char* Suggestions = "&Vorschläge:";
}  // namespace DesktopTexts
