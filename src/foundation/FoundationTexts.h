#pragma once

/// The user texts of this folder. Those with placeholders go through fmt.
namespace FoundationTexts {
inline constexpr const char* SystemError = "Systemfehler (Fehlercode: {}).\r\n{}";
inline constexpr const char* FileNotFound =
    "Das System kann die angegebene Datei nicht finden. Prüfen Sie Namen und Ordner.";
inline constexpr const char* PathNotFound =
    "Das System kann den angegebenen Pfad nicht finden. Prüfen Sie, ob es den Ordner gibt und das Laufwerk verbunden "
    "ist.";
inline constexpr const char* AccessDenied =
    "Zugriff verweigert. Wählen Sie einen anderen Ordner, oder lassen Sie sich das Recht an Datei und Ordner geben.";
inline constexpr const char* NotEnoughMemory =
    "Der Arbeitsspeicher reicht nicht aus. Schließen Sie andere Programme, und versuchen Sie es noch einmal.";
inline constexpr const char* SharingViolation =
    "Der Prozess kann nicht auf die Datei zugreifen, da sie von einem anderen Prozess verwendet wird. Schließen Sie "
    "sie dort, und versuchen Sie es noch einmal.";
inline constexpr const char* DiskFull =
    "Auf dem Datenträger ist nicht genügend Speicherplatz vorhanden. Löschen Sie dort, was Sie nicht mehr brauchen, "
    "oder wählen Sie einen anderen Datenträger.";
inline constexpr const char* DeviceFailed =
    "Der Datenträger hat einen Fehler gemeldet. Speichern Sie auf einem anderen, und lassen Sie diesen prüfen.";
inline constexpr const char* DeviceMissing =
    "Der Datenträger ist nicht bereit. Schließen Sie ihn wieder an, und versuchen Sie es noch einmal.";
inline constexpr const char* TooManyFiles =
    "Es sind zu viele Dateien geöffnet. Schließen Sie andere Programme, und versuchen Sie es noch einmal.";
inline constexpr const char* FileTooBig =
    "Die Datei ist für den Datenträger zu groß. Wählen Sie einen anderen Datenträger.";
inline constexpr const char* AlreadyThere =
    "Die Datei oder der Ordner ist schon vorhanden. Wählen Sie einen anderen Namen.";
inline constexpr const char* OtherDevice =
    "Die Datei liegt auf einem anderen Datenträger. Wählen Sie einen Ordner auf demselben Datenträger.";
inline constexpr const char* NotAccepted =
    "Der Datenträger nimmt die Anforderung oder den Namen nicht an. Wählen Sie einen anderen Namen oder Ordner.";
inline constexpr const char* Interrupted = "Der Vorgang wurde unterbrochen. Versuchen Sie es noch einmal.";
inline constexpr const char* NetworkFailed =
    "Das Laufwerk im Netz antwortet nicht. Prüfen Sie die Verbindung, und versuchen Sie es noch einmal.";
inline constexpr const char* UnknownError =
    "Das System meldet einen unerwarteten Fehler (Code {}). Versuchen Sie es noch einmal; bleibt der Fehler, geben Sie "
    "seinen Code an die Systembetreuung weiter.";

inline constexpr const char* NotSupported =
    "Die Anforderung wird nicht unterstützt. Wählen Sie einen anderen Ordner oder Datenträger.";
inline constexpr const char* NoRegistryPaths =
    "Auf diesem System stehen keine Pfade in einer Registrierung. Geben Sie den Pfad selbst an.";
inline constexpr const char* NoDeletionAtReboot =
    "Auf diesem System lässt sich keine Datei zum Löschen beim nächsten Start vormerken. Löschen Sie sie selbst.";
inline constexpr const char* NoCreationTime =
    "Auf diesem System lässt sich die Erstellungszeit nicht ändern. Ändern Sie die Zeit der letzten Änderung.";

inline constexpr const char* AssignNotSupported = "Inhaltszweisung wird nicht unterstützt.";
inline constexpr const char* StaticClass = "Eine Instanz der Klasse \"{}\" darf nicht abgelegt werden.";
inline constexpr const char* SecondInstance = "Eine zweite Instanz der Klasse \"{}\" ist nicht erlaubt.";

inline constexpr const char* ListIndex = "Listenindex überschreitet das Maximum ({})";
inline constexpr const char* ListCapacity = "Kapazität der Liste ist erschöpft ({})";
inline constexpr const char* ListDuplicate = "Keine Duplikate in der Liste erlaubt.";

inline constexpr const char* ShortRead = "Es konnten nicht alle Daten gelesen werden.";
inline constexpr const char* ShortWrite = "Es konnten nicht alle Daten geschrieben werden.";
inline constexpr const char* NoBinary = "Die Datei ist keine Programmdatei dieses Systems oder beschädigt.";
inline constexpr const char* HashFailed = "Die Prüfsumme konnte nicht gebildet werden.";
inline constexpr const char* RandomFailed = "Das System liefert keine Zufallszahlen.";
inline constexpr const char* UuidVersion = "Version must be either 3 or 5.";

inline constexpr const char* NoInteger = "„{}“ ist keine gültige Ganzzahl.";
inline constexpr const char* NoFloat = "„{}“ ist keine gültige Gleitkommazahl.";
inline constexpr const char* NoDate = "„{}“ ist kein gültiges Datum.";
inline constexpr const char* ShownNoDate = "ungültiges Datum";
inline constexpr const char* NoGuid = "„{}“ ist kein gültiger GUID-Wert.";
inline constexpr const char* VariantKind = "Variante vom Typ {} kann nicht in Typ {} umgewandelt werden.";
/// In the order of TVariantKind.
inline constexpr const char* VariantKinds[] = {"Unbelegt",       "Null",  "Wahrheitswert", "Ganzzahl",
                                               "Gleitkommazahl", "Datum", "Text"};
}  // namespace FoundationTexts
