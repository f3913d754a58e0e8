#pragma once

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "ErrorOf.h"
#include "TempFolder.h"
#include "VantrelExceptions.h"

/// What nearly every test asks for.

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
