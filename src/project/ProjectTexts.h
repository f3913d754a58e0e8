#pragma once

/// The user texts of this folder. Those with placeholders go through fmt.
namespace ProjectTexts {
inline constexpr const char* GradeTypeValue = "Noten";
inline constexpr const char* GradeTypePoints = "Punkte";
inline constexpr const char* GradeTypeFill = "Text";

inline constexpr const char* CourseColumn = "Kurs";
inline constexpr const char* GradeTypeColumn = "Beurteilungsart";
inline constexpr const char* IdColumn = "ID";
inline constexpr const char* AssessmentColumn = "Beurteilung";
inline constexpr const char* LastNameColumn = "Nachname";
inline constexpr const char* FirstNameColumn = "Vorname";
inline constexpr const char* BirthdayColumn = "Geburtsdatum";
inline constexpr const char* ClassColumn = "Klasse";
inline constexpr const char* SubjectColumn = "Fach";
inline constexpr const char* PositionColumn = "Position";
inline constexpr const char* FactorColumn = "Faktor";

// Certificate
inline constexpr const char* GroupAbschlussdaten = "Abschlussdaten";
inline constexpr const char* GroupZeugnisdaten = "Versetzungs- und Zeugnisdaten";
inline constexpr const char* GroupWeitereDaten = "Weitere Daten";
inline constexpr const char* Abschluss1 = "Abschluss 1";
inline constexpr const char* Abschluss1Art = "Abschlussart 1";
inline constexpr const char* Abschluss1Datum = "Abschlussdatum 1";
inline constexpr const char* Abschluss1Note = "Abschlussnote 1";
inline constexpr const char* Abschluss2 = "Abschluss 2";
inline constexpr const char* Abschluss2Art = "Abschlussart 2";
inline constexpr const char* Abschluss2Datum = "Abschlussdatum 2";
inline constexpr const char* Abschluss2Note = "Abschlussnote 2";
inline constexpr const char* Versetzt = "Versetzt";
inline constexpr const char* Versetzungsart = "Versetzungsart";
inline constexpr const char* Zeugniskonferenz = "Zeugniskonferenz";
inline constexpr const char* Zeugnisdatum = "Zeugnisdatum";
inline constexpr const char* Leistungsanforderung = "Leistungsanforderung";
inline constexpr const char* Verhalten = "Verhalten";
inline constexpr const char* Mitarbeit = "Mitarbeit";
inline constexpr const char* Unterrichtstage = "Unterrichtstage";
inline constexpr const char* Versaeumnisse = "Versäumnisse";
inline constexpr const char* Fehltage = "Fehltage";
/// Spelled otherwise than the two that follow.
inline constexpr const char* FehltageU = "davon untentschuldigt";
inline constexpr const char* Fehlstunden = "Fehlstunden";
inline constexpr const char* FehltagePraktikum = "Fehltage Praktikum";
inline constexpr const char* Unentschuldigt = "davon unentschuldigt";
inline constexpr const char* NoDate = "-";
inline constexpr const char* NullShown = "(NULL)";

inline constexpr const char* CourseWithoutStudent = "Der Kurs {} ({}) hat in der Datei keinen Schüler.";
inline constexpr const char* BeyondSmallInt = "Der Wert {} passt nicht in das Feld „{}“ der Datei (-32768 bis 32767).";
inline constexpr const char* OrdinalNotFound = "{} not found";
inline constexpr const char* NotTheOwner =
    "In diese Liste kann nichts eingefügt werden: Ihre Einträge gehören einer anderen.";
inline constexpr const char* StepOfCourse = "{} für {}, {}";
inline constexpr const char* StepOfField = "{} für {}";
inline constexpr const char* StepOfRemarks = "Zeugnisbemerkungen für {}";
inline constexpr const char* StepOfStudent = "{} Angaben für {}";
inline constexpr const char* StepOfMany = "{} Angaben bei {} Schülern";
inline constexpr const char* NoJournal = "Die gemerkten Eingaben sind nicht lesbar.";
inline constexpr const char* TokenLabel = "Kürzel";
inline constexpr const char* PasswordNotStorable =
    "Das Kennwort der Datei enthält Zeichen, die das XML-Format nicht aufnehmen kann. Die Datei wurde nicht "
    "gespeichert, weil sie sich danach nicht mehr öffnen ließe.";

inline constexpr const char* CipherNotInitialized = "Cipher not initialized";
inline constexpr const char* CipherInvalidKeySize = "Invalid key size";
inline constexpr const char* CipherDigest = "Unable to allocate sufficient memory for hash digest";
inline constexpr const char* CipherLibrary = "Die Verschlüsselung AES steht nicht zur Verfügung.";

inline constexpr const char* Empty = "leer";
inline constexpr const char* Yes = "ja";
inline constexpr const char* No = "nein";
inline constexpr const char* NumberOnly = "Nr. {}";
inline constexpr const char* WithNumber = "{} (Nr. {})";
inline constexpr const char* UnknownNumber = "Nr. {} (unbekannt)";
inline constexpr const char* NamelessStudent = "Schüler Nr. {}";
inline constexpr const char* Header = "Kopfdaten";
inline constexpr const char* RemarkName = "Zeugnisbemerkung „{}“";
inline constexpr const char* UnknownStudent = "Unbekannter Schüler";
inline constexpr const char* NamelessCourse = "Kurs Nr. {}";
inline constexpr const char* ImpossibleValue = "{}, {}: Der Wert ist unmöglich ({}).";
inline constexpr const char* ClassGradeType = "Die Notenart {1} der Klasse „{0}“ ist unbekannt.";
inline constexpr const char* GradeGradeType = "Die Notenart {1} der Note „{0}“ ist unbekannt.";
inline constexpr const char* ForeignItem = "{}: Der Eintrag „{}“ ist von der Klasse {}, die dort nicht hingehört.";
inline constexpr const char* DateNotStorable =
    "{} Das Textformat kann ihn nicht aufnehmen; im Binärformat (.kvr7) lässt sich die Datei speichern.";
inline constexpr const char* LostStudent = "{}: Der Schüler des Kurses fehlt in der Datei.";
inline constexpr const char* NoNumber = "{}: Der Schüler hat keine Nummer.";
inline constexpr const char* NoStudent = "{}: Der Kurs hat keinen Schüler.";
inline constexpr const char* UnknownGrade = "{}, {}: Die Note Nr. {} steht nicht im Notenkatalog.";
inline constexpr const char* UnknownToken = "{}, {}: „{}“ steht nicht im Katalog.";
inline constexpr const char* UnknownClass = "{}: Die Klasse Nr. {} steht nicht in der Datei.";
inline constexpr const char* NoCaption = "Die Spalte „{}“ hat keine Beschriftung.";
inline constexpr const char* DoubleStudent = "Die Schülernummer {} kommt mehrfach vor.";
inline constexpr const char* DoubleCourse = "Die Kursnummer {} kommt mehrfach vor.";
inline constexpr const char* DoubleClass = "Die Klassennummer {} kommt mehrfach vor.";
inline constexpr const char* DoubleGrade = "Die Notennummer {} kommt mehrfach vor.";
inline constexpr const char* DoubleColumn = "Die Spalte „{}“ kommt mehrfach vor.";
inline constexpr const char* DoubleObject = "Das Objekt {} kommt mehrfach vor.";
inline constexpr const char* Quoted = "„{}“";

/// What the user calls a stored field that has no column of its own, by its key.
inline constexpr struct {
  const char* Key;
  const char* Caption;
} Captions[] = {
    {"AbsenceBehaviour", "Umgang mit Fehlzeiten"},
    {"Attribute", "Merkmal"},
    {"Birthday", "Geburtsdatum"},
    {"ClassId", "Klasse"},
    {"Customization", "Anpassbarkeit"},
    {"Customname", "Eigene Beschriftung"},
    {"Description", "Beschreibung"},
    {"Displayname", "Beschriftung"},
    {"Editable", "Änderbar"},
    {"Firstname", "Vorname"},
    {"Gender", "Geschlecht"},
    {"GradeType", "Notenart"},
    {"GradeValue", "Notenwert"},
    {"GridColumn", "Tabellenspalte"},
    {"ID", "Nummer"},
    {"Kursnr", "Kursnummer"},
    {"Lastname", "Nachname"},
    {"PasswordProtected", "Kennwortschutz"},
    {"Personalnr", "Personalnummer"},
    {"StudentId", "Schülernummer"},
    {"SubjectId", "Fachnummer"},
    {"SubjectName", "Fach"},
    {"SubjectToken", "Fachkürzel"},
    {"TeacherId", "Lehrernummer"},
    {"TeacherName", "Lehrer"},
    {"TeacherToken", "Lehrerkürzel"},
    {"TenantId", "Mandant"},
    {"TermId", "Zeitraumnummer"},
    {"TermName", "Zeitraum"},
    {"TessaronId", "Kursnummer der Zentrale"},
    {"Token", "Kürzel"},
    {"Visible", "Sichtbar"},
    {"Zuzgang", "Zugang"},
};

/// The catalogues, in the order of ProjectCatalogs.
inline constexpr const char* Catalogs[] = {
    "Abschlüsse",       "Abschlussarten",   "Empfehlungen",         "Fachstati",     "Niveaus",
    "Unterrichtsarten", "Versetzungsarten", "Zeugnisbeurteilungen", "Leistungsarten"};

/// What the user calls a value of a field. A value of digits is a number.
inline constexpr struct {
  const char* Key;
  const char* Value;
  const char* Shown;
} ValueNames[] = {
    {"Mahnung", "0", "Mahnung"},
    {"Mahnung", "1", "Nachmahnung"},
    {"Mahnung", "2", "Nachprüfung"},
    {"Bestanden", "P", "Bestanden (P)"},
    {"Bestanden", "F", "Nicht bestanden (F)"},
    {"Bestanden", "N", "Nicht belegt"},
    {"Versetzt", "J", "versetzt"},
    {"Versetzt", "N", "nicht versetzt"},
    {"Leistungsanforderung", "J", "erreicht"},
    {"Leistungsanforderung", "N", "nicht erreicht"},
};
}  // namespace ProjectTexts
