#include "rtl/HelpUtil.h"
#include "rtl/SysUtils.h"
#include "rtl/TRegistry.h"
#include "support/MrvConst.h"
#include "support/MrvUtils.h"

#include <QFile>

namespace {

bool HelpFileExists(const QString& installDirectory, const QString& product)
{
    auto fileName = IncludeTrailingPathDelimiter(installDirectory) + QStringLiteral("Doc\\%1.hxs").arg(product);
    return QFile::exists(fileName.replace(u'\\', u'/'));
}

}

QString TMrvUtils::FindHelpProduct()
{
    const auto valueName = QStringLiteral("InstallDirD%1").arg(IDEInfos[IDEVer].Version);
    TRegistry registry(KEY_READ);
    registry.RootKey = HKEY_CURRENT_USER;
    for (const auto& product : Products) {
        if (!registry.OpenKey(QStringLiteral("Software\\Bravik\\") + product, false))
            continue;
        if (registry.ValueExists(valueName) && HelpFileExists(registry.ReadString(valueName), product))
            return product;
        registry.CloseKey();
    }
    return {};
}

void TMrvUtils::ShowHelp(int)
{
    const auto name = FindHelpProduct();
    ::ShowHelp(QStringLiteral("ms-help://Bravik.") + name,
        Format(QStringLiteral("ms-help://Bravik.%s/%s/Work_Morvane.htm"), { name, name }));
}
