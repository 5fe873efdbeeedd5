#include "config/MrvCfgIntf.h"

#include "rtl/Guard.h"

InterfacePtr<IMrvConfigurationService> MrvConfigurationService;

void MrvCfgIntf::Initialization()
{
    MrvConfigurationService = New<TMrvConfigurationService>();
}

void MrvCfgIntf::Finalization()
{
    const Finally drop([] { MrvConfigurationService.Clear(); });
    if (MrvConfigurationService && MrvConfigurationService->Modified())
        MrvConfigurationService->Save();
}
