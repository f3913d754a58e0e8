#pragma once

/// The user texts of this folder. Those with placeholders go through fmt.
namespace ProjectTexts {
inline constexpr const char* GradeTypeValue = "Noten";
inline constexpr const char* GradeTypePoints = "Punkte";
inline constexpr const char* GradeTypeFill = "Text";

inline constexpr const char* CourseWithoutStudent = "Der Kurs {} ({}) hat in der Datei keinen Schüler.";
inline constexpr const char* StudentWithoutClass = "Die Klasse von {} ist in der Datei nicht vorhanden.";
inline constexpr const char* BeyondSmallInt = "Der Wert {} passt nicht in das Feld „{}“ der Datei (-32768 bis 32767).";
inline constexpr const char* OrdinalNotFound = "{} not found";
inline constexpr const char* TokenLabel = "Kürzel";
inline constexpr const char* PasswordNotStorable =
    "Das Kennwort der Datei enthält Zeichen, die das XML-Format nicht aufnehmen kann. Die Datei wurde nicht "
    "gespeichert, weil sie sich danach nicht mehr öffnen ließe.";

inline constexpr const char* CipherNotInitialized = "Cipher not initialized";
inline constexpr const char* CipherInvalidKeySize = "Invalid key size";
inline constexpr const char* CipherDigest = "Unable to allocate sufficient memory for hash digest";
inline constexpr const char* CipherLibrary = "Die Verschlüsselung AES steht nicht zur Verfügung.";
}  // namespace ProjectTexts
