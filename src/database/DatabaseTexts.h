#pragma once

/// The user texts of this folder. Those with placeholders go through fmt.
namespace DatabaseTexts {
inline constexpr const char* WrongLogon = "Benutzer bzw. Kennwort sind falsch.";
inline constexpr const char* LogonError = "Es ist ein Fehler bei der Anmeldung an die Datenbank aufgetreten.\r\n{}";
inline constexpr const char* DatabaseError = "Die Datenbank meldet einen Fehler.\r\n{}";
inline constexpr const char* NotConnected = "Es besteht keine Verbindung zur Datenbank.";
inline constexpr const char* UnknownParam = "Die Abfrage hat keinen Parameter „{}“.";
inline constexpr const char* UnknownColumn = "Die Abfrage hat keine Spalte „{}“.";
inline constexpr const char* ParamType = "Der Parameter „{}“ kann keinen Wert dieser Art aufnehmen.";
inline constexpr const char* ColumnType = "Die Spalte „{}“ ist von einer Art, die nicht gelesen werden kann.";
inline constexpr const char* NoRow = "Die Abfrage steht auf keinem Datensatz.";
inline constexpr const char* NoClient =
    "Auf diesem Rechner fehlt die Programmbibliothek „{}“ von Firebird. Lassen Sie sie von der Systembetreuung "
    "einrichten.";
}  // namespace DatabaseTexts
