#include "rtl/SysUtils.h"
#include "support/MrvUtils.h"
#include "toolsapi/OTAPalette.h"
#include "toolsapi/OTAServices.h"

namespace {

// Depth first, in item order.
InterfacePtr<IOTABasePaletteItem> FindPaletteItem(IOTAPaletteGroup& group, const QString& className)
{
    for (int i = 0; i < group.GetCount(); ++i) {
        const auto item = group.GetItem(i);
        if (const auto inner = InterfaceCast<IOTAPaletteGroup>(item)) {
            if (const auto found = FindPaletteItem(*inner, className))
                return found;
            continue;
        }
        const auto component = InterfaceCast<IOTAComponentPaletteItem>(item);
        if (component && SameText(component->GetClassName(), className))
            return item;
    }
    return nullptr;
}

}

void TMrvUtils::EnsurePackageLoaded(const QString& className)
{
    const auto palette = InterfaceCast<IOTAPaletteServices>(BorlandIDEServices);
    const auto group = palette ? palette->GetBaseGroup() : nullptr;
    if (!group)
        return;
    if (const auto item = FindPaletteItem(*group, className))
        item->EnsurePackageLoaded();
}

bool TMrvUtils::ClassIsPresent(const QString&)
{
    return true;
}
