#pragma once

#include "ProductNames.h"

/// The user texts of this folder. Those with placeholders go through fmt.
namespace ShellTexts {
inline constexpr const char* ApplicationTitle = ProductNames::OwnTitle;
inline constexpr const char* NoProject = "Keine Projektdatei geladen.";

// Ribbon
inline constexpr const char* ApplicationButton = "Datei";
inline constexpr const char* StartTab = "Start";
inline constexpr const char* HelpTab = "Hilfe";
inline constexpr const char* ViewsBar = "Ansichten";
inline constexpr const char* NavigationBar = "Navigation";
inline constexpr const char* BeurteilungBar = "Beurteilungsart";
inline constexpr const char* ExtrasBar = "Extras";
inline constexpr const char* HelpMenu = "Hilfe";

// Commands
inline constexpr const char* OpenFile = "Öff&nen...";
inline constexpr const char* SaveFile = "Sp&eichern";
inline constexpr const char* SaveFileAs = "Speichern &unter...";
inline constexpr const char* CloseApplication = "Beenden";
inline constexpr const char* Undo = "Rückgängig";
inline constexpr const char* Redo = "Wiederholen";
inline constexpr const char* UndoHint = "{} zurücknehmen";
inline constexpr const char* RedoHint = "{} wiederholen";
inline constexpr const char* Undone = "Zurückgenommen: {}";
inline constexpr const char* Redone = "Wiederholt: {}";
inline constexpr const char* StudentsView = "&Schüler anzeigen";
inline constexpr const char* SubjectsView = "&Fächer anzeigen";
inline constexpr const char* ClassesView = "&Kontrolle nach Klassen";
inline constexpr const char* GotoFirst = "Erster Datensatz";
inline constexpr const char* GotoPrev = "Vorheriger Datensatz";
inline constexpr const char* GotoNext = "Nächster Datensatz";
inline constexpr const char* GotoLast = "Letzter Datensatz";
inline constexpr const char* AlleNichtEditierbar = "Alle (nicht editierbar!)";
inline constexpr const char* Noten = "Noten/Füllwerte";
inline constexpr const char* Punkte = "Punkte/Füllwert";
inline constexpr const char* Beurteilungstexte = "Beurteilungstexte";
inline constexpr const char* GotoOpenGrade = "Nächste offene Note";
inline constexpr const char* EditZeugnisbeurteilungen = "Zeugnisbeurteilungen bearbeiten";
inline constexpr const char* BatchCertificateData = "Sammelzuweisung...";
inline constexpr const char* ExportToExcel = "Export nach Excel";
inline constexpr const char* WelcomeView = "Willkommen";
inline constexpr const char* Manual = "&Handbuch";
inline constexpr const char* SpellCheckOptions = "&Rechtschreibung...";
inline constexpr const char* Version = "&Info...";

// Files
inline constexpr const char* OpenTitle = "Datei öffnen";
inline constexpr const char* OpenFilter =
    "MyTessaron 8 - Binärformat (*.kvr7)|*.kvr7|MyTessaron 8 - Binärformat (*.kvr, veraltet)|*.kvr|"
    "MyTessaron - XML-Format (*.kvrx, verschlüsselt)|*.kvrx|Alle Dateien|*.*";
inline constexpr const char* SaveTitle = "Datei speichern unter";
inline constexpr const char* SaveFilter = "MyTessaron-Dateien|*.kvrx|Alle Dateien|*.*";
inline constexpr const char* SaveUnknownKind =
    "„{}“ ist kein Dateityp von MyTessaron. Bitte wählen Sie einen Namen mit der Endung kvrx.";
inline constexpr const char* OpenUnknownKind =
    "„{}“ ist kein Dateityp von MyTessaron. Bitte wählen Sie eine Datei mit der Endung kvrx, kvrxr, kvr7 oder kvr.";
inline constexpr const char* IllFormedName =
    "Der Name „{}“ enthält ungültige Zeichen. Bitte benennen Sie die Datei um und öffnen Sie sie dann.";
inline constexpr const char* OverwriteQuestion =
    "Die Datei „{}“ ist bereits vorhanden.\r\nMöchten Sie sie durch die geöffnete ersetzen?";
inline constexpr const char* ChangedQuestion =
    "Ein anderes Programm hat die Datei „{0}“ seit dem Öffnen geändert oder ersetzt.\r\n\r\n"
    "Ja: Ihre Fassung wird gespeichert, die andere bleibt als „{0}.andere“ erhalten.\r\n"
    "Nein: Ihre Fassung wird unter einem anderen Namen gespeichert, die andere bleibt unverändert.";
inline constexpr const char* ChangedCancel =
    "\r\nAbbrechen: Es wird nichts gespeichert, Ihre Eingaben bleiben geöffnet.";
inline constexpr const char* WriteProtectedKind =
    "{}\r\nDie Datei ist {}. Dateien dieser Art öffnet MyTessaron nur, wenn sie beschrieben werden dürfen; bitte "
    "öffnen Sie eine Kopie.";
inline constexpr const char* NoteCaption = "Hinweis";
inline constexpr const char* SaveQuestion = "Möchten Sie die aktuelle MyTESSARON-Datei speichern?";
inline constexpr const char* WrongPassword = "Das angegebene Passwort ist nicht korrekt. Datei wird geschlossen.";
inline constexpr const char* LoadError =
    "Die MyTESSARON-Datei \"{}\" konnte nicht geladen werden.\r\nSystem-Fehlermeldung: {}";
inline constexpr const char* FileNotFound = "Die angegebene MyTESSARON-Datei konnte nicht gefunden werden.";
inline constexpr const char* DamagedKeepsEntries =
    "Die Datei ließ sich nicht vollständig lesen. Die geöffnete Datei bleibt mit ihren nicht gespeicherten Eingaben "
    "geöffnet.";
inline constexpr const char* LoadReport = "In der Datei „{}“ stimmt etwas nicht:\r\n\r\n{}\r\n\r\n{}";
inline constexpr const char* DamageAt = "Die Datei ist beschädigt: {} ({})";
inline constexpr const char* MoreDefects = "und {} weitere";
inline constexpr const char* DefectsOpened = "Die Datei ist geöffnet. Bitte melden Sie das der Schulverwaltung.";
inline constexpr const char* DamagedOpened =
    "Geöffnet ist, was sich lesen ließ. Beim ersten Speichern bleibt die Datei, wie sie jetzt ist, daneben erhalten "
    "(mit der Endung „.beschaedigt“).";
inline constexpr const char* RecoveryRests = "{} - die Eingaben können gerade nicht gesichert werden";
inline constexpr const char* RecoveryCaption = "Wiederherstellung";
inline constexpr const char* RecoveryQuestion =
    "Eingaben zu dieser Datei, die nicht gespeichert wurden: {} (begonnen {}).\r\n\r\n"
    "Ja stellt sie wieder her; sie können danach gespeichert oder zurückgenommen werden.\r\n"
    "Nein verwirft sie.\r\nAbbrechen lässt sie bis zum nächsten Öffnen liegen.";
inline constexpr const char* RecoveryDiffers =
    "In der Datei steht inzwischen etwas anderes: {} der Eingaben wurden deshalb nicht übernommen.";
inline constexpr const char* TodayAt = "heute, {:02}:{:02} Uhr";
inline constexpr const char* DayAt = "am {:02}.{:02}.{}, {:02}:{:02} Uhr";
inline constexpr const char* NotSaved = "Nicht gespeichert";
inline constexpr const char* NotSavedSince = "Nicht gespeichert (zuletzt um {:02}:{:02} Uhr)";
inline constexpr const char* SavedAt = "Gespeichert um {:02}:{:02} Uhr";
inline constexpr const char* SaveError = "Fehler beim Speichern der Datei.\r\n{}";
inline constexpr const char* OriginalNotKept =
    "{}\r\n\r\nDie vorgefundene Fassung kann nicht daneben aufgehoben werden; deshalb wurde nichts gespeichert. "
    "Speichern "
    "Sie Ihre Eingaben unter einem anderen Namen, wenn nötig in einem anderen Ordner.";
inline constexpr const char* OpenHere = "Diese Datei ist hier bereits geöffnet.";

// Version
inline constexpr const char* SplashVersion = "Version {}.{}.{}";
inline constexpr const char* AboutVersion = "Version {}.{}.{}.{} ";
inline constexpr const char* DefaultCopyright = "Copyright © {}";
}  // namespace ShellTexts
