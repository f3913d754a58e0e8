#pragma once

#include <string>

/// Version of the installed central product, for instance "10.2.1": the stamp of a new document.
inline std::string ProductVersion = "10.x";
