#include "toolsapi/OTAServices.h"

#include "rtl/SysUtils.h"

InterfacePtr<IInterface> BorlandIDEServices;

namespace {

WizardRegistrar GRegistrar;

}

InterfacePtr<IOTAProject> GetActiveProject()
{
    const auto modules = InterfaceCast<IOTAModuleServices>(BorlandIDEServices);
    return modules ? modules->GetActiveProject() : nullptr;
}

void SetWizardRegistrar(WizardRegistrar registrar)
{
    GRegistrar = std::move(registrar);
}

void RegisterPackageWizard(const InterfacePtr<IOTAWizard>& wizard)
{
    if (!GRegistrar)
        throw EInvalidOperation(QStringLiteral("No IDE takes wizards"));
    GRegistrar(wizard);
}
