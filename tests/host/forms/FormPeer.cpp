#include "host/forms/FormPeer.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

const QString program = QStringLiteral(MORVANE_BIN_DIR "/formpeer");

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(path);
    file.write(bytes);
}

std::optional<QByteArray> readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? std::optional(file.readAll()) : std::nullopt;
}

}

bool FormPeer::isThere()
{
    return QFile::exists(program);
}

QList<std::optional<QByteArray>> FormPeer::convert(const QList<QByteArray>& inputs)
{
    const QTemporaryDir folder;
    const auto place = [&folder](const char* kind, qsizetype i) {
        return folder.filePath(QStringLiteral("%1%2").arg(QLatin1StringView(kind)).arg(i));
    };
    QByteArray list;
    for (qsizetype i = 0; i < inputs.size(); ++i) {
        write(place("in", i), inputs[i]);
        list += place("in", i).toUtf8() + '\t' + place("out", i).toUtf8() + '\n';
    }
    write(folder.filePath(QStringLiteral("list")), list);
    QProcess peer;
    peer.start(program, { QStringLiteral("convert"), folder.filePath(QStringLiteral("list")) });
    EXPECT_TRUE(peer.waitForFinished(-1)) << qPrintable(peer.errorString());
    QList<std::optional<QByteArray>> outputs;
    for (qsizetype i = 0; i < inputs.size(); ++i)
        outputs << readAll(place("out", i));
    return outputs;
}
