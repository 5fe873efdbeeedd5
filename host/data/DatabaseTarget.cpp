#include "data/DatabaseTarget.h"

#include "data/SqlDriver.h"
#include "rtl/SysUtils.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUrl>

namespace {

QString ProviderOfScheme(const QString& scheme)
{
    static const QHash<QString, QString> names { { QStringLiteral("sqlite"), QStringLiteral("SQLite") },
        { QStringLiteral("postgresql"), QStringLiteral("PostgreSQL") },
        { QStringLiteral("postgres"), QStringLiteral("PostgreSQL") },
        { QStringLiteral("mysql"), QStringLiteral("MySQL") }, { QStringLiteral("mariadb"), QStringLiteral("MySQL") },
        { QStringLiteral("odbc"), QStringLiteral("ODBC") } };
    return names.value(scheme.toLower());
}

TConnectionParameters FromUrl(const QString& provider, const QString& target)
{
    const QUrl url(target);
    TConnectionParameters parameters;
    parameters.Provider = provider;
    parameters.Server = url.host();
    parameters.Port = std::max(url.port(), 0);
    parameters.UserName = url.userName(QUrl::FullyDecoded);
    parameters.Password = url.password(QUrl::FullyDecoded);
    parameters.Database = url.path(QUrl::FullyDecoded);
    const bool isServer = SqlDriver::Find(provider) && !SqlDriver::Find(provider)->IsFile();
    if (isServer && parameters.Database.startsWith(u'/'))
        parameters.Database.remove(0, 1);
    return parameters;
}

bool IsSqliteFile(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) && file.read(15) == "SQLite format 3";
}

TConnectionParameters WithFile(TConnectionParameters parameters)
{
    const auto* driver = SqlDriver::Find(parameters.Provider);
    if (driver && driver->IsFile())
        parameters.Database = DatabaseFile(parameters.Database, QDir::currentPath());
    return parameters;
}

}

TConnectionParameters Retargeted(const TConnectionParameters& stored, const QString& target)
{
    // One letter before a colon is a drive.
    static const QRegularExpression form(QStringLiteral("^([A-Za-z][A-Za-z0-9+]+):(//)?(.*)$"));
    const auto match = form.match(target);
    if (match.hasMatch()) {
        const auto provider = ProviderOfScheme(match.captured(1));
        if (provider.isEmpty())
            throw EConvertError(QStringLiteral("'%1' is no database that can be reached: %2")
                                    .arg(match.captured(1), SqlDriver::Providers().join(QLatin1String(", "))));
        if (!match.captured(2).isEmpty())
            return WithFile(FromUrl(provider, target));
        TConnectionParameters parameters;
        parameters.Provider = provider;
        parameters.Database = match.captured(3);
        return WithFile(parameters);
    }
    auto parameters = stored;
    if (IsSqliteFile(DatabaseFile(target, QDir::currentPath())))
        parameters.Provider = QStringLiteral("SQLite");
    parameters.Database = target;
    return WithFile(parameters);
}

namespace {

QString SpelledAsOnDisk(const QString& fileName)
{
    const QFileInfo file(fileName);
    if (file.exists())
        return fileName;
    for (const auto& entry : file.dir().entryList(QDir::Files))
        if (SameText(entry, file.fileName()))
            return file.dir().filePath(entry);
    return fileName;
}

}

QString DatabaseFile(const QString& name, const QString& folder)
{
    if (name.isEmpty() || name == QLatin1String(":memory:"))
        return name;
    auto path = name.trimmed();
    path.replace(u'\\', u'/');
    const bool hasDrive = path.size() > 1 && path[1] == u':';
    if (!hasDrive && QDir::isRelativePath(path))
        path = QDir(folder).filePath(path);
    return SpelledAsOnDisk(QDir::cleanPath(path));
}
