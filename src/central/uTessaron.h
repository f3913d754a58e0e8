#pragma once

#include <string>

/// Version of the installed central product, for instance "10.2.1": the stamp of a new document.
inline std::string ProductVersion = "10.x";

/// The well-known files: bare names until the environment is set up, then full paths.
inline std::string TessaronOptFileName = "Tessaron.opt";
inline std::string EnvironmentFileName = "Tessaron.evm";
