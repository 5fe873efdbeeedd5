#include "package/MrvPackage.h"

#include "config/MrvCfgIntf.h"
#include "ide/MrvDragAndDropIntf.h"
#include "ide/MrvExpert.h"
#include "ide/MrvServicesProxy.h"
#include "menus/MrvMenus.h"
#include "model/MrvInterfacesUnit.h"
#include "toolwindow/MrvToolWindowUnit.h"

#include <array>
#include <exception>

namespace {

struct Unit {
    const char* Name;
    void (*Initialization)();
    void (*Finalization)();
};

constexpr std::array Units {
    Unit { "MrvConst", nullptr, nullptr },
    Unit { "MrvInterfaces", MrvInterfaces::Initialization, MrvInterfaces::Finalization },
    Unit { "MrvCfgIntf", MrvCfgIntf::Initialization, MrvCfgIntf::Finalization },
    Unit { "MrvUtils", nullptr, nullptr },
    Unit { "MrvDataPreview", nullptr, nullptr },
    Unit { "MrvIDECntrlList", nullptr, nullptr },
    Unit { "MrvInteropServices", nullptr, nullptr },
    Unit { "MrvClasses", nullptr, nullptr },
    Unit { "MrvServicesProxy", MrvServicesProxy::Initialization, MrvServicesProxy::Finalization },
    Unit { "MrvDragAndDropIntf", MrvDragAndDropIntf::Initialization, nullptr },
    Unit { "MrvTreeView", nullptr, nullptr },
    Unit { "MrvMenus", nullptr, MrvMenus::Finalization },
    Unit { "MrvPreferences", nullptr, nullptr },
    Unit { "MrvImageList", nullptr, nullptr },
    Unit { "MrvToolWindow", MrvToolWindow::Initialization, nullptr },
    Unit { "MrvExpert", MrvExpert::Initialization, MrvExpert::Finalization },
};

size_t GInitialized = 0;

}

void MrvPackage::Initialize()
{
    try {
        for (; GInitialized < Units.size(); ++GInitialized)
            if (Units[GInitialized].Initialization)
                Units[GInitialized].Initialization();
    } catch (...) {
        const auto failure = std::current_exception();
        try {
            Finalize();
        } catch (...) {
            // The first failure is the one to tell.
        }
        std::rethrow_exception(failure);
    }
}

void MrvPackage::Finalize()
{
    std::exception_ptr failure;
    while (GInitialized > 0) {
        const auto& unit = Units[--GInitialized];
        try {
            if (unit.Finalization)
                unit.Finalization();
        } catch (...) {
            if (!failure)
                failure = std::current_exception();
        }
    }
    if (failure)
        std::rethrow_exception(failure);
}

QStringList MrvPackage::InitializedUnits()
{
    QStringList names;
    for (size_t i = 0; i < GInitialized; ++i)
        names << QString::fromLatin1(Units[i].Name);
    return names;
}
