#include "toolsapi/OTANotifiers.h"

const TTypeInfo& TOTAFileNotificationInfo()
{
    static const TTypeInfo info { tkEnumeration, QStringLiteral("TOTAFileNotification"),
        { QStringLiteral("ofnFileOpening"), QStringLiteral("ofnFileOpened"), QStringLiteral("ofnFileClosing"),
            QStringLiteral("ofnDefaultDesktopLoad"), QStringLiteral("ofnDefaultDesktopSave"),
            QStringLiteral("ofnProjectDesktopLoad"), QStringLiteral("ofnProjectDesktopSave"),
            QStringLiteral("ofnPackageInstalled"), QStringLiteral("ofnPackageUninstalled"),
            QStringLiteral("ofnActiveProjectChanged"), QStringLiteral("ofnProjectOpenedFromTemplate"),
            QStringLiteral("ofnBeginProjectGroupOpen"), QStringLiteral("ofnEndProjectGroupOpen"),
            QStringLiteral("ofnBeginProjectGroupClose"), QStringLiteral("ofnEndProjectGroupClose") } };
    return info;
}
