#pragma once

/// The user texts of this folder. Those with placeholders go through fmt.
namespace ProjectTexts {
inline constexpr const char* CipherNotInitialized = "Cipher not initialized";
inline constexpr const char* CipherInvalidKeySize = "Invalid key size";
inline constexpr const char* CipherDigest = "Unable to allocate sufficient memory for hash digest";
inline constexpr const char* CipherLibrary = "Die Verschlüsselung AES steht nicht zur Verfügung.";
}  // namespace ProjectTexts
