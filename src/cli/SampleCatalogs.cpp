#include "SampleCatalogs.h"

namespace SampleCatalogs {

namespace {

using enum TGradeTypes;
using TProject = TMyTessaronProject;

constexpr TEntry EntryTable[] = {{&TProject::Abschluesse, "HSA9", "Hauptschulabschluss nach Klasse 9"},
                                 {&TProject::Abschluesse, "HSA10", "Sekundarabschluss I - Hauptschulabschluss"},
                                 {&TProject::Abschluesse, "MSA", "Sekundarabschluss I - Realschulabschluss"},
                                 {&TProject::Abschluesse, "EMSA", "Erweiterter Sekundarabschluss I"},
                                 {&TProject::Abschluesse, "FHR", "Fachhochschulreife, schulischer Teil"},
                                 {&TProject::Abschluesse, "AHR", "Allgemeine Hochschulreife"},
                                 {&TProject::Abschlussarten, "P", "durch Abschlussprüfung"},
                                 {&TProject::Abschlussarten, "V", "durch Versetzung"},
                                 {&TProject::Abschlussarten, "G", "durch Gleichstellung"},
                                 {&TProject::Empfehlungen, "GY", "Gymnasium"},
                                 {&TProject::Empfehlungen, "RS", "Realschule"},
                                 {&TProject::Empfehlungen, "HS", "Hauptschule"},
                                 {&TProject::Empfehlungen, "GES", "Gesamtschule"},
                                 {&TProject::Fachstati, "B", "belegt"},
                                 {&TProject::Fachstati, "A", "abgewählt"},
                                 {&TProject::Fachstati, "F", "vom Unterricht befreit"},
                                 {&TProject::Fachstati, "E", "epochal erteilt"},
                                 {&TProject::Niveaus, "G", "Grundkurs"},
                                 {&TProject::Niveaus, "E", "Erweiterungskurs"},
                                 {&TProject::Niveaus, "Z", "Zusatzkurs"},
                                 {&TProject::Unterrichtsarten, "PF", "Pflichtunterricht"},
                                 {&TProject::Unterrichtsarten, "WP", "Wahlpflichtunterricht"},
                                 {&TProject::Unterrichtsarten, "AG", "Arbeitsgemeinschaft"},
                                 {&TProject::Unterrichtsarten, "GK", "Grundkurs"},
                                 {&TProject::Unterrichtsarten, "LK", "Leistungskurs"},
                                 {&TProject::Versetzungsarten, "VR", "versetzt in den nächsten Schuljahrgang"},
                                 {&TProject::Versetzungsarten, "VA", "versetzt durch Ausgleich"},
                                 {&TProject::Versetzungsarten, "VP", "versetzt nach Nachprüfung"},
                                 {&TProject::Versetzungsarten, "FW", "freiwilliger Rücktritt"},
                                 {&TProject::Leistungsarten, "S", "schriftlich"},
                                 {&TProject::Leistungsarten, "M", "mündlich"},
                                 {&TProject::Leistungsarten, "P", "praktisch"}};

constexpr TGradeEntry GradeTable[] = {{"1+", "sehr gut (plus)", 0.7F, gtValue},
                                      {"1", "sehr gut", 1.0F, gtValue},
                                      {"1-", "sehr gut (minus)", 1.3F, gtValue},
                                      {"2+", "gut (plus)", 1.7F, gtValue},
                                      {"2", "gut", 2.0F, gtValue},
                                      {"2-", "gut (minus)", 2.3F, gtValue},
                                      {"3+", "befriedigend (plus)", 2.7F, gtValue},
                                      {"3", "befriedigend", 3.0F, gtValue},
                                      {"3-", "befriedigend (minus)", 3.3F, gtValue},
                                      {"4+", "ausreichend (plus)", 3.7F, gtValue},
                                      {"4", "ausreichend", 4.0F, gtValue},
                                      {"4-", "ausreichend (minus)", 4.3F, gtValue},
                                      {"5+", "mangelhaft (plus)", 4.7F, gtValue},
                                      {"5", "mangelhaft", 5.0F, gtValue},
                                      {"5-", "mangelhaft (minus)", 5.3F, gtValue},
                                      {"6", "ungenügend", 6.0F, gtValue},
                                      {"15", "15 Punkte", 15, gtPoints},
                                      {"14", "14 Punkte", 14, gtPoints},
                                      {"13", "13 Punkte", 13, gtPoints},
                                      {"12", "12 Punkte", 12, gtPoints},
                                      {"11", "11 Punkte", 11, gtPoints},
                                      {"10", "10 Punkte", 10, gtPoints},
                                      {"09", "9 Punkte", 9, gtPoints},
                                      {"08", "8 Punkte", 8, gtPoints},
                                      {"07", "7 Punkte", 7, gtPoints},
                                      {"06", "6 Punkte", 6, gtPoints},
                                      {"05", "5 Punkte", 5, gtPoints},
                                      {"04", "4 Punkte", 4, gtPoints},
                                      {"03", "3 Punkte", 3, gtPoints},
                                      {"02", "2 Punkte", 2, gtPoints},
                                      {"01", "1 Punkt", 1, gtPoints},
                                      {"00", "0 Punkte", 0, gtPoints},
                                      {"t", "teilgenommen", -1, gtFill},
                                      {"nb", "nicht beurteilbar", -1, gtFill},
                                      {"nt", "nicht teilgenommen", -1, gtFill},
                                      {"bf", "befreit", -1, gtFill},
                                      {"--", "nicht erteilt", -1, gtFill}};

constexpr TColumnEntry ColumnTable[] = {{"Personalnr", "Personalnummer", "", false, false, true},
                                        {"Position", "Position", "", false, true, true},
                                        {"Faktor", "Faktor", "", false, false, true},
                                        {"Unterrichtsart", "Unterrichtsart", "Unt.-Art", false, true, true},
                                        {"Fachstatus", "Fachstatus", "", true, true, true},
                                        {"Schwerpunkt", "Schwerpunkt", "", false, false, true},
                                        {"Niveau", "Niveau", "", true, true, true},
                                        {"Note1", "Note 1", "1. Klassenarbeit", true, true, true},
                                        {"Note2", "Note 2", "2. Klassenarbeit", true, true, true},
                                        {"Note3", "Note 3", "Sonstige Mitarbeit", true, true, true},
                                        {"Note4", "Note 4", "", true, false, true},
                                        {"Note5", "Note 5", "", true, false, true},
                                        {"Endnote1", "Endnote 1", "Zeugnisnote", true, true, true},
                                        {"Endnote2", "Endnote 2", "", true, false, true},
                                        {"Beurteilung", "Beurteilung", "", true, true, true},
                                        {"Merkmal", "Merkmal", "", true, true, true},
                                        {"Mahnung", "Mahnung", "", true, true, true},
                                        {"Tutor", "Tutor", "", false, false, true},
                                        {"Fachlehrer", "Fachlehrer", "", false, true, true},
                                        {"Zusatznote1", "Zusatznote 1", "Heftführung", true, true, true},
                                        {"Zusatznote2", "Zusatznote 2", "", true, false, true},
                                        {"Zusatznote3", "Zusatznote 3", "", true, false, true},
                                        {"Zusatznote4", "Zusatznote 4", "", true, false, true},
                                        {"Zusatznote5", "Zusatznote 5", "", true, false, true},
                                        {"Zusatznote6", "Zusatznote 6", "", true, false, true},
                                        {"Zusatznote7", "Zusatznote 7", "", true, false, true},
                                        {"Zusatznote8", "Zusatznote 8", "", true, false, true},
                                        {"Zusatznote9", "Zusatznote 9", "", true, false, true},
                                        {"Vornote", "Vornote", "", false, true, true},
                                        {"VergesseneHA", "Vergessene Hausaufgaben", "Verg. HA", true, true, true},
                                        {"VergesseneAM", "Vergessene Arbeitsmittel", "Verg. AM", true, true, true},
                                        {"Leistungsart", "Leistungsart", "", true, true, true},
                                        {"Bestanden", "Bestanden", "", true, true, true},
                                        {"Abschluss1", "Abschluss 1", "", true, true, false},
                                        {"Abschluss1Art", "Abschlussart 1", "", true, true, false},
                                        {"Abschluss1Datum", "Abschlussdatum 1", "", true, true, false},
                                        {"Abschluss1Note", "Abschlussnote 1", "", true, true, false},
                                        {"Abschluss2", "Abschluss 2", "", true, true, false},
                                        {"Abschluss2Art", "Abschlussart 2", "", true, true, false},
                                        {"Abschluss2Datum", "Abschlussdatum 2", "", true, true, false},
                                        {"Abschluss2Note", "Abschlussnote 2", "", false, true, false},
                                        {"Versetzt", "Versetzt", "", true, true, false},
                                        {"Versetzungsart", "Versetzungsart", "", true, true, false},
                                        {"ZeugniskonferenzAm", "Zeugniskonferenz", "", false, true, false},
                                        {"Zeugnisdatum", "Zeugnisdatum", "", false, true, false},
                                        {"Leistungsanforderungen", "Leistungsanforderung", "", true, true, false},
                                        {"Verhalten", "Verhalten", "", true, true, false},
                                        {"Mitarbeit", "Mitarbeit", "", true, true, false},
                                        {"Unterrichtstage", "Unterrichtstage", "", false, true, false},
                                        {"Versaeumnisse", "Versäumnisse", "", true, false, false},
                                        {"Fehltage", "Fehltage", "", true, true, false},
                                        {"FehltageU", "davon unentschuldigt", "", true, true, false},
                                        {"Fehlstunden", "Fehlstunden", "", true, true, false},
                                        {"FehlstundenU", "davon unentschuldigt", "", true, true, false},
                                        {"FehltagePraktikum", "Fehltage Praktikum", "", true, true, false},
                                        {"FehltagePraktikumU", "davon unentschuldigt", "", true, true, false}};

}  // namespace

std::span<const TEntry> Entries() {
  return EntryTable;
}

std::span<const TGradeEntry> Grades() {
  return GradeTable;
}

std::span<const TColumnEntry> Columns() {
  return ColumnTable;
}

}  // namespace SampleCatalogs
