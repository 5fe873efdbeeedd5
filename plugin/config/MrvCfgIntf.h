#pragma once

#include "model/MrvInterfaces.h"

// The configuration of the process. Nil before the unit's Initialization and after its Finalization.
extern InterfacePtr<IMrvConfigurationService> MrvConfigurationService;
