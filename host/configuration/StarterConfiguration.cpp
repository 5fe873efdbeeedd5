#include "configuration/StarterConfiguration.h"

#include <QFile>

// Outside of namespaces, as the macro wants it.
static void InitResources()
{
    Q_INIT_RESOURCE(morvane_starter);
}

QByteArray StarterConfiguration()
{
    InitResources();
    QFile file(QStringLiteral(":/morvane/starter/Morvane.cfg"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
