#include "config/MrvCfgIntf.h"

InterfacePtr<IMrvConfigurationService> MrvConfigurationService;
