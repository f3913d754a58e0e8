#pragma once

/// The user texts of this folder. Those with placeholders go through fmt.
namespace ToolkitTexts {
inline constexpr const char* FieldNotFound = "Feld „{}“ nicht gefunden.";
inline constexpr const char* TableClosed = "Die Tabelle ist nicht geöffnet.";
inline constexpr const char* TableOpen = "Die Tabelle ist bereits geöffnet.";
inline constexpr const char* TableNotInEdit = "Die Tabelle ist nicht im Bearbeitungsmodus.";
inline constexpr const char* TableNoRecord = "Die Tabelle hat keinen aktuellen Datensatz.";

inline constexpr const char* SheetName = "Tabelle";
inline constexpr const char* SheetTooLarge =
    "Die Liste ist für dieses Format zu groß: Es fasst {} Zeilen, {} Spalten und {} Zeichen je Zelle. Bitte wählen Sie "
    "beim Exportieren das HTML-Format.";
inline constexpr const char* SheetNotMade =
    "Die Tabelle konnte nicht erstellt werden (Fehler {}). Bitte prüfen Sie, ob im Ordner für temporäre Dateien noch "
    "Platz ist, oder wählen Sie beim Exportieren ein anderes Format.";

inline constexpr const char* MsgBoxError = "Fehler";

inline constexpr const char* LaunchError = "Systemfehler (Fehlercode: {}).\r\n{}";
inline constexpr const char* LaunchAccessDenied = "The operating system denied access to the specified file.";
inline constexpr const char* LaunchMemory = "There was not enough memory to complete the operation.";
inline constexpr const char* LaunchExeFormat = "The .exe file is invalid (non-Win32 .exe or error in .exe image).";
inline constexpr const char* LaunchSharing = "A sharing violation occurred.";
inline constexpr const char* LaunchAssociation = "The file name association is incomplete or invalid.";
inline constexpr const char* LaunchDdeTimeout =
    "The DDE transaction could not be completed because the request timed out.";
inline constexpr const char* LaunchDdeFail = "The DDE transaction failed.";
inline constexpr const char* LaunchDdeBusy =
    "The DDE transaction could not be completed because other DDE transactions were being processed.";
inline constexpr const char* LaunchNoAssociation =
    "There is no application associated with the given file name extension.";
inline constexpr const char* LaunchLibrary = "The specified DLL was not found.";
}  // namespace ToolkitTexts
