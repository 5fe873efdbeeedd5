#include "menus/MrvMenus.h"

#include "support/MrvUtils.h"

void MrvMenus::Finalization()
{
    TMrvUtils::AddLogMessage(QStringLiteral("MrvMenus.finalization: Try free popup list"));
    try {
        PopupList.reset();
        TMrvUtils::AddLogMessage(QStringLiteral("MrvMenus.finalization: success"));
    } catch (...) {
        TMrvUtils::AddLogMessage(QStringLiteral("MrvMenus.finalization: failed"));
    }
}
