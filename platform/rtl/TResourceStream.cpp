#include "rtl/TResourceStream.h"

#include "rtl/SysUtils.h"

#include <QFile>

QString ResourcePath(const QString& name, TResourceType type)
{
    return QStringLiteral(":/package/%1/%2").arg(int(type)).arg(name);
}

TResourceStream::TResourceStream(const QString& name, TResourceType type)
{
    QFile file(ResourcePath(name, type));
    if (!file.open(QIODevice::ReadOnly))
        throw EResNotFound(QStringLiteral("Resource %1 not found").arg(name));
    setData(file.readAll());
    open(QIODevice::ReadOnly);
}
