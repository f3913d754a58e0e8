#pragma once

/// The user texts of this folder. Those with placeholders go through fmt.
namespace StoredTexts {
inline constexpr const char* UnknownClass = "Klasse \"{}\" wurde nicht registriert.";
inline constexpr const char* NoClassName = "Kein Klassenname gefunden.";
inline constexpr const char* NullInstance = "Objektinstanz darf nicht NIL sein.";
inline constexpr const char* NoXml = "Daten liegen nicht im XML-Format vor";
inline constexpr const char* IllFormedXml =
    "Die Daten sind beschädigt: Ab Zeile {}, Spalte {} liegt kein gültiges XML vor.";
inline constexpr const char* TagExpected = "Knoten {} konnte nicht gelesen werden: XML-Tag \"{}\" erwartet.";
inline constexpr const char* AttributeExpected = "Knoten {} konnte nicht gelesen werden: XML-Attribut \"{}\" erwartet.";
/// What the formatter says of a text with a placeholder too many.
inline constexpr const char* FormatMismatch = "Format „{}“ ist ungültig oder passt nicht zum Argument.";

inline constexpr const char* WrongClass = "Die Datei enthält ein Objekt der Klasse „{}“, wo „{}“ erwartet wird.";
inline constexpr const char* ObjectTaken =
    "Das Objekt {} kommt in der Datei an zwei Stellen vor, die es beide besitzen.";
inline constexpr const char* ObjectInItself = "Das Objekt {} enthält sich selbst.";
inline constexpr const char* TooDeep = "Die Daten der Datei sind zu tief verschachtelt.";
inline constexpr const char* TooManyNames = "Die Datei enthält zu viele verschiedene Namen für eine Projektdatei.";
inline constexpr const char* DocumentType = "Angaben zum Dokumenttyp (DOCTYPE) sind nicht erlaubt.";
inline constexpr const char* GraphicSize = "Die Größe {} eines Bildes passt nicht zu seinen Daten.";
inline constexpr const char* BeyondField = "Der Wert „{}“ passt nicht in das Feld.";
inline constexpr const char* UnknownField = "Die Klasse „{}“ hat kein Feld „{}“, das sich setzen lässt.";
inline constexpr const char* EmptyChar = "Ein Zeichen wird erwartet, der Text ist leer.";

inline constexpr const char* UnreadBytes = "Ab Byte {1} stehen {0} Byte, die nicht zum Projekt gehören.";
inline constexpr const char* NegativeCount = "Eine Liste soll {} Einträge haben ({}).";
inline constexpr const char* ForeignRoot = "Das Dokument heißt „{}“ statt „{}“.";
inline constexpr const char* NameInSection = "„{}“: ";
inline constexpr const char* MissingName = "{}„{}“ fehlt ({}-mal).";
inline constexpr const char* UnreadName = "{}„{}“ ist unbekannt und wird nicht gelesen ({}-mal, zuerst in Zeile {}).";
inline constexpr const char* OtherNames = "Und weitere {} dieser Art.";

inline constexpr const char* FileNotFound = "Die Datei \"{}\" existiert nicht.";
inline constexpr const char* PathNotFound = "Der Pfad \"{}\" ist ungültig.";
inline constexpr const char* AccessDenied =
    "Der Zugriff auf die Datei \"{}\" ist nicht möglich.\r\n\r\nEntweder Sie haben nicht die nötige Berechtigung oder "
    "auf die Datei wird durch einen anderen Prozess zugegriffen.";

inline constexpr const char* PlaceInBytes = "Byte {} von {}";
inline constexpr const char* PlaceInLines = "Zeile {}, {}";
inline constexpr const char* PlaceOfLine = "Zeile {}";
inline constexpr const char* PlaceInJson = "JSON-Pfad {}";
}  // namespace StoredTexts
