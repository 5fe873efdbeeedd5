#pragma once

// The tools API: everything of the IDE that is reached by interfaces. One door for its parts.

#include "toolsapi/OTAModules.h"
#include "toolsapi/OTANotifiers.h"
#include "toolsapi/OTAPalette.h"
#include "toolsapi/OTAServices.h"
