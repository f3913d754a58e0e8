#pragma once

#include <cstddef>
#include <string>

class TMyTessaronProject;

/// The students and courses of a project as plain structs, written by cereal's binary archive: what the same data cost
/// without names, registries and owners.
std::string WriteWithCereal(const TMyTessaronProject& project);
/// Reads them into new structs; returns how many there were.
std::size_t ReadWithCereal(const std::string& bytes);
