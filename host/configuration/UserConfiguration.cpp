#include "configuration/UserConfiguration.h"

#include "configuration/ConfigurationCheck.h"
#include "configuration/PluginLog.h"
#include "configuration/PreferenceText.h"
#include "configuration/StarterConfiguration.h"
#include "files/SaveTogether.h"
#include "rtl/SysUtils.h"
#include "rtl/TRegistry.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

// Where the plug-in of this release looks for the directory.
const auto RegistryKey = QStringLiteral("Software\\Bravik\\Morvane\\BDS\\23.0");
const auto RegistryValue = QStringLiteral("ConfigFilePath");

const auto DebugMode = QStringLiteral("DebugMode");
const auto DebugPath = QStringLiteral("DebugPath");

std::optional<QByteArray> Read(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

Failure MakeDirectory(const QString& directory)
{
    // A path without a separator at its end is the begin of the file's name.
    const auto folder = QFileInfo(directory + u'x').absolutePath();
    if (QDir().mkpath(folder))
        return {};
    return FileError(folder, QStringLiteral("cannot be made; choose another place for the configuration"));
}

}

UserConfiguration::UserConfiguration(const QString& directory)
    : FDirectory(directory)
{
}

UserConfiguration UserConfiguration::Find(const TRegistryStore& registry)
{
    const auto named = registry.Read(RegistryKey, RegistryValue);
    return UserConfiguration(named.isEmpty() ? UsersDirectory() : named);
}

QString UserConfiguration::UsersDirectory()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
        .filePath(QStringLiteral("morvane/"));
}

QString UserConfiguration::FileName() const
{
    return FDirectory + QStringLiteral("Morvane.cfg");
}

QString UserConfiguration::GoodCopyName() const
{
    return FileName() + QStringLiteral(".good");
}

QString UserConfiguration::ReplacedName() const
{
    return FileName() + QStringLiteral(".before");
}

Failure UserConfiguration::Prepare(TRegistryStore& registry) const
{
    if (const auto problem = MakeDirectory(FDirectory))
        return problem;
    if (registry.Read(RegistryKey, RegistryValue).isEmpty())
        registry.Write(RegistryKey, RegistryValue, FDirectory);
    if (QFileInfo::exists(FileName()))
        return {};
    return SaveTogether({ { FileName(), StarterConfiguration() } });
}

Problems UserConfiguration::Check() const
{
    QFile file(FileName());
    if (!file.open(QIODevice::ReadOnly))
        return { FileError(FileName(), QStringLiteral("cannot be read: ") + file.errorString()) };
    return CheckConfiguration(file.readAll(), FileName());
}

std::optional<Problem> UserConfiguration::FindError() const
{
    for (const auto& problem : Check())
        if (problem.Severity == Problem::Error)
            return problem;
    return {};
}

bool UserConfiguration::OffersControls() const
{
    const auto content = Read(FileName());
    return content && ::OffersControls(*content);
}

Failure UserConfiguration::KeepGoodCopy() const
{
    const auto content = Read(FileName());
    if (!content || FindError() || Read(GoodCopyName()) == content)
        return {};
    return SaveTogether({ { GoodCopyName(), *content } });
}

bool UserConfiguration::HasGoodCopy() const
{
    return QFileInfo::exists(GoodCopyName());
}

Failure UserConfiguration::RestoreGoodCopy() const
{
    if (const auto good = Read(GoodCopyName()))
        return Replace(*good);
    return FileError(GoodCopyName(), QStringLiteral("cannot be read"));
}

Failure UserConfiguration::ReplaceByStarter() const
{
    const auto starter = StarterConfiguration();
    const auto content = Read(FileName());
    const bool keepsPreferences = content && !FindError();
    return Replace(keepsPreferences ? WithPreferencesOf(starter, *content).value_or(starter) : starter);
}

Failure UserConfiguration::Replace(const QByteArray& content) const
{
    QList<FileContent> files { { FileName(), content } };
    if (const auto before = Read(FileName()))
        files.prepend({ ReplacedName(), *before });
    return SaveTogether(files);
}

QString UserConfiguration::Preference(const QString& name) const
{
    return PreferenceIn(Read(FileName()).value_or(QByteArray()), name).value_or(QString());
}

Failure UserConfiguration::SetPreference(const QString& name, const QString& value) const
{
    if (const auto problem = FindError())
        return problem;
    const auto content = WithPreference(Read(FileName()).value_or(QByteArray()), name, value);
    if (!content)
        return FileError(FileName(), QStringLiteral("has no place for the preference %1").arg(name));
    return SaveTogether({ { FileName(), *content } });
}

QString UserConfiguration::LogFileName() const
{
    const auto path = Preference(DebugPath);
    return IncludeTrailingPathDelimiter(path.isEmpty() ? QCoreApplication::applicationDirPath() : path)
        + QStringLiteral("Morvane_ErrorEvents.log");
}

Failure UserConfiguration::EnableLog() const
{
    if (Preference(DebugPath).isEmpty())
        if (const auto problem = SetPreference(DebugPath, QFileInfo(FileName()).absolutePath()))
            return problem;
    if (const auto problem = SetPreference(DebugMode, BoolToStr(true, true)))
        return problem;
    QFile log(LogFileName());
    if (log.open(QIODevice::Append))
        return {};
    return FileError(log.fileName(), QStringLiteral("cannot be made: ") + log.errorString());
}

Failure UserConfiguration::DisableLog() const
{
    return IsLogEnabled() ? SetPreference(DebugMode, BoolToStr(false, true)) : std::nullopt;
}

bool UserConfiguration::IsLogEnabled() const
{
    return SameText(Preference(DebugMode), u"True") && QFileInfo::exists(LogFileName());
}

QStringList UserConfiguration::Log() const
{
    return ReadPluginLog(Read(LogFileName()).value_or(QByteArray()));
}
