#pragma once

#include <string>

#include "VantrelLogs.h"

/// Sets up the log manager from a configuration file, by its rule from the one beside the program; without the file
/// nothing is added. Raises as TVantrelLogManager::SelfConfiguration, and EConvertError for a malformed number.
void ConfigureLogs(TVantrelLogManager& manager,
                   const std::string& fileName = TVantrelLogManager::ConfigurationFileName());
