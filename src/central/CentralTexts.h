#pragma once

#include "ProductNames.h"

/// The user texts of this folder. Those with placeholders go through fmt.
namespace CentralTexts {
inline constexpr const char* EnvironmentLoaded = "Systemumgebung erfolgreich geladen!";
inline constexpr const char* EnvironmentError = "Fehler beim Laden der Systemumgebung!\r\n{}";

inline constexpr const char* ProductTessaron = ProductNames::CentralTitle;
inline constexpr const char* ProductMyTessaron = ProductNames::OwnTitle;
inline constexpr const char* NoteCaption = "Hinweis";
inline constexpr const char* AdminOnly = "Diese Funktion darf nur von einem Administrator aufgerufen werden.";
inline constexpr const char* MandantenAdminOnly =
    "Diese Funktion darf nur von einem Administrator oder\r\neinem Mandanten-Administrator aufgerufen werden.";
inline constexpr const char* StatistikAdminOnly =
    "Diese Funktion darf nur von einem Administrator oder\r\neinem Statistik-Administrator aufgerufen werden.";
inline constexpr const char* DocumentOnly =
    "Diese Funktion darf nur von einem Administrator oder\r\nmit dem Recht für Dokumentenverwaltung aufgerufen "
    "werden.";
inline constexpr const char* ImportExportOnly =
    "Diese Funktion darf nur von einem Administrator oder\r\nmit dem Recht für den Import/Export aufgerufen werden.";
inline constexpr const char* PrintOnly =
    "Diese Funktion darf nur von einem Administrator oder\r\nmit dem Recht zu Drucken aufgerufen werden.";
inline constexpr const char* NoGroupRight =
    "Der Benutzer \"{}\" hat nicht das Recht auf das Modul {} zuzugreifen.\r\n\r\n"
    "Bitte kontaktieren Sie den Administrator.";
inline constexpr const char* GuestDenied =
    "Sie sind in TESSARON mit Gastrechten angemeldet.\r\nDiese Funktion kann nicht ausgeführt werden.";
}  // namespace CentralTexts
