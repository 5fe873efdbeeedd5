#pragma once

#include "config/TBindableControlInfo.h"
#include "config/TMrvConfigurationService.h"

// The configuration of the process. Nil before Initialization and after Finalization, and when the configuration could
// not be loaded.
extern InterfacePtr<IMrvConfigurationService> MrvConfigurationService;

namespace MrvCfgIntf {

// Creates the service. Raises what its constructor raises: a file that is no XML, a directory that is missing.
void Initialization();
// Saves what was modified, without a question, and drops the service, also when saving raises.
void Finalization();

}
