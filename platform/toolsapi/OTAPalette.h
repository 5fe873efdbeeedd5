#pragma once

#include "rtl/InterfacePtr.h"

#include <QString>

// An entry of the component palette.
class IOTABasePaletteItem : public IInterface {
public:
    static constexpr TGUID IID = Guid("{5A1A13FF-48B6-4A76-BA4D-54A1F2B8D101}");
    virtual QString GetName() = 0;
    // Makes sure that the package behind the entry is loaded and its class registered. Nothing happens for a group.
    virtual void EnsurePackageLoaded() = 0;
};

// A group of entries; groups nest.
class IOTAPaletteGroup : public IOTABasePaletteItem {
public:
    using Parent = IOTABasePaletteItem;
    static constexpr TGUID IID = Guid("{5A1A13FF-48B6-4A76-BA4D-54A1F2B8D102}");
    virtual int GetCount() = 0;
    virtual InterfacePtr<IOTABasePaletteItem> GetItem(int index) = 0;
};

// An entry that makes a component.
class IOTAComponentPaletteItem : public IOTABasePaletteItem {
public:
    using Parent = IOTABasePaletteItem;
    static constexpr TGUID IID = Guid("{5A1A13FF-48B6-4A76-BA4D-54A1F2B8D103}");
    virtual QString GetClassName() = 0;
};
