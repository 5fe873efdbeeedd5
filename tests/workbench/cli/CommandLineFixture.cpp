#include "cli/CommandLineFixture.h"

QString CommandLineFixture::CopyExample(const QString& name)
{
    const QDir source(QStringLiteral(MORVANE_SOURCE_DIR "/examples/") + name);
    FCopy = Folder.filePath(name);
    QDir().mkpath(FCopy);
    for (const auto& file : source.entryList(QDir::Files))
        EXPECT_TRUE(QFile::copy(source.filePath(file), FCopy + u'/' + file)) << qPrintable(file);
    for (const auto& file : QDir(FCopy).entryList(QDir::Files))
        QFile::setPermissions(FCopy + u'/' + file, QFile::ReadOwner | QFile::WriteOwner);
    return FCopy;
}

QByteArray CommandLineFixture::Content(const QString& name) const
{
    QFile file(InCopy(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(name);
    return file.readAll();
}

Ran CommandLineFixture::Run(const QString& program, const QStringList& arguments, int seconds) const
{
    QProcess process;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), Folder.path());
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), Folder.filePath(QStringLiteral(".config")));
    environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    if (!process.waitForFinished(seconds * 1000))
        process.kill();
    Ran ran;
    ran.Status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    ran.Output = QString::fromUtf8(process.readAllStandardOutput());
    ran.Errors = QString::fromUtf8(process.readAllStandardError());
    return ran;
}

Ran CommandLineFixture::Morvane(const QStringList& arguments) const
{
    return Run(QStringLiteral(MORVANE_BIN_DIR "/morvane"), arguments);
}

QByteArray TestData(const QString& name)
{
    QFile file(QStringLiteral(MORVANE_SOURCE_DIR "/tests/data/cli/") + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(name);
    return file.readAll();
}
