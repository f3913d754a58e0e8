#pragma once

/// The user texts of this folder. Those with placeholders go through fmt.
namespace ClasslibTexts {
inline constexpr const char* ListItemNotFound = "Angefordertes Listenelement nicht gefunden.";
inline constexpr const char* MapCapacity = "InitialCapacity muss größer oder gleich 0 sein.";
inline constexpr const char* MapLoadFactor = "LoadFactor muss größer 0 sein.";
inline constexpr const char* NoDriveLetters =
    "Auf diesem System gibt es keine Laufwerksbuchstaben. Geben Sie einen Ordner an.";
inline constexpr const char* NoVolumeLabels =
    "Auf diesem System lässt sich der Name eines Datenträgers nicht ändern. Nehmen Sie dafür das Werkzeug des Systems.";
inline constexpr const char* NotStorable = "Der Wert kann nicht gespeichert werden.";
inline constexpr const char* PropertyNotFound = "Eigenschaft wurde nicht gefunden.";
inline constexpr const char* PropertyAccess = "Auf die Eigenschaft kann so nicht zugegriffen werden.";
}  // namespace ClasslibTexts
