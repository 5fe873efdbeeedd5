#include "rtl/Modules.h"

#include <QDir>
#include <QHash>

namespace {

QHash<QString, HMODULE>& Modules()
{
    static QHash<QString, HMODULE> modules;
    return modules;
}

}

HMODULE GetModuleHandle(const QString& packageName)
{
    return Modules().value(packageName.toLower());
}

void SetModuleHandle(const QString& packageName, const HMODULE& folder)
{
    if (folder.isEmpty())
        Modules().remove(packageName.toLower());
    else
        Modules().insert(packageName.toLower(), folder);
}

QString ResourceFolder(const HMODULE& module, TResourceType type)
{
    return QStringLiteral("%1/%2").arg(module).arg(int(type));
}

bool FindResource(const HMODULE& module, const QString& name, TResourceType type)
{
    if (module.isEmpty())
        return false;
    const QDir folder(ResourceFolder(module, type));
    return folder.exists(name) || !folder.entryList({ name + QLatin1String(".*") }, QDir::Files).isEmpty();
}
