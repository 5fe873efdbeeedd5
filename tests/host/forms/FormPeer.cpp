#include "host/forms/FormPeer.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

const QString Program = QStringLiteral(MORVANE_BIN_DIR "/formpeer");

void Write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(path);
    file.write(bytes);
}

std::optional<QByteArray> ReadAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? std::optional(file.readAll()) : std::nullopt;
}

}

bool FormPeer::IsThere()
{
    return QFile::exists(Program);
}

QList<std::optional<QByteArray>> FormPeer::Convert(const QList<QByteArray>& inputs)
{
    const QTemporaryDir folder;
    const auto place = [&folder](const char* kind, qsizetype i) {
        return folder.filePath(QStringLiteral("%1%2").arg(QLatin1StringView(kind)).arg(i));
    };
    QByteArray list;
    for (qsizetype i = 0; i < inputs.size(); ++i) {
        Write(place("in", i), inputs[i]);
        list += place("in", i).toUtf8() + '\t' + place("out", i).toUtf8() + '\n';
    }
    Write(folder.filePath(QStringLiteral("list")), list);
    QProcess peer;
    peer.start(Program, { QStringLiteral("convert"), folder.filePath(QStringLiteral("list")) });
    EXPECT_TRUE(peer.waitForFinished(-1)) << qPrintable(peer.errorString());
    QList<std::optional<QByteArray>> outputs;
    for (qsizetype i = 0; i < inputs.size(); ++i)
        outputs << ReadAll(place("out", i));
    return outputs;
}
