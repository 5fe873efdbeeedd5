#include "config/MrvCfgIntf.h"
#include "rtl/SysUtils.h"
#include "support/MrvConst.h"
#include "support/MrvUtils.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>

namespace {

InterfacePtr<IMrvPreferences> Preferences()
{
    InterfacePtr<IMrvPreferences> preferences;
    if (MrvConfigurationService)
        MrvConfigurationService->GetPreferences(preferences);
    return preferences;
}

QString LogFileName(IMrvPreferences& preferences)
{
    QString path;
    preferences.GetValueByName(QStringLiteral("DebugPath"), path);
    if (path.isEmpty())
        path = QCoreApplication::applicationDirPath();
    return IncludeTrailingPathDelimiter(path) + sErrorEventFileName;
}

void Append(const QString& fileName, const QString& line)
{
    QFile file(fileName);
    // The user makes the file to start the log: opening must not.
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered))
        return;
    file.seek(file.size());
    // The count is of characters and the text has two bytes for each: the first half of the line is written. Readers
    // of the log know its form.
    file.write(reinterpret_cast<const char*>(line.utf16()), line.size());
}

}

void TMrvUtils::AddLogMessage(const QString& message)
{
    try {
        const auto preferences = Preferences();
        if (!preferences)
            return;
        QString mode;
        preferences->GetValueByName(QStringLiteral("DebugMode"), mode);
        if (!SameText(mode, u"True"))
            return;
        const auto stamp = QDateTime::currentDateTime().toString(QStringLiteral("dd.MM.yyyy hh:mm:ss -"));
        Append(LogFileName(*preferences), Format(QStringLiteral("%s\t\t%s\r\n"), { stamp, message }));
    } catch (...) {
        // The log is where failures go; its own go nowhere.
    }
}

void TMrvUtils::LogFailure(const QString& text, const std::exception& exception)
{
    AddLogMessage(text);
    AddLogMessage(QStringLiteral("Exception.Message is '%1'").arg(QString::fromUtf8(exception.what())));
}
