// What leaves the library by name. The host runs MorvaneInitialize, then Register, and at the end MorvaneFinalize;
// other design packages call ShowMorvane and CreateDefaultControl. Texts are zero-terminated and of 16-bit characters.

#include "ide/MrvExpert.h"
#include "package/MrvPackage.h"
#include "rtl/Guard.h"
#include "toolwindow/MrvToolWindowUnit.h"

#define MORVANE_EXPORT extern "C" __attribute__((visibility("default")))

MORVANE_EXPORT void MorvaneInitialize()
{
    MrvPackage::Initialize();
}

MORVANE_EXPORT void Register()
{
    MrvExpert::Register();
}

MORVANE_EXPORT void MorvaneFinalize()
{
    MrvPackage::Finalize();
}

MORVANE_EXPORT void ShowMorvane(const char16_t* formName, const char16_t* componentName)
{
    AtEventBorder([&] { MrvToolWindow::ShowMorvane(QString::fromUtf16(formName), QString::fromUtf16(componentName)); });
}

MORVANE_EXPORT void CreateDefaultControl(const char16_t* formName, const char16_t* componentName)
{
    AtEventBorder(
        [&] { MrvToolWindow::CreateDefaultControl(QString::fromUtf16(formName), QString::fromUtf16(componentName)); });
}
