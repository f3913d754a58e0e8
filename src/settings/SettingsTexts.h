#pragma once

/// The user texts of this folder. Those with placeholders go through fmt.
namespace SettingsTexts {
inline constexpr const char* Damaged =
    "Die Datei ist beschädigt. Sie bleibt unter einem Namen mit der Endung „beschaedigt“ erhalten.";
inline constexpr const char* SettingsUnreadable =
    "Die gespeicherten Einstellungen konnten nicht gelesen werden; es gelten die Voreinstellungen.\r\n\r\n{}\r\n{}";
inline constexpr const char* OptionsUnreadable =
    "Die gespeicherten Optionen konnten nicht gelesen werden; es gelten die Voreinstellungen.\r\n\r\n{}\r\n{}";
inline constexpr const char* SettingsNotSaved =
    "Die Einstellungen konnten nicht gespeichert werden; beim nächsten Start gelten die bisherigen.\r\n\r\n{}\r\n{}";
inline constexpr const char* OptionsNotSaved =
    "Die Optionen konnten nicht gespeichert werden; beim nächsten Start gelten die bisherigen.\r\n\r\n{}\r\n{}";
inline constexpr const char* NoWriteAccess = "Der Schlüssel ist nur zum Lesen geöffnet.";
}  // namespace SettingsTexts
