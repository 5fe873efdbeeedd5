#include "files/SaveTogether.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QUuid>

#include <memory>
#include <vector>

#include <unistd.h>

namespace {

// One file on its way: written beside its target, with the old content kept under a second name until all are done.
// A second name takes no room, so going back works on a full disk.
class PendingFile {
public:
    explicit PendingFile(const FileContent& content)
        : FTarget(LinkTarget(content.FileName))
        , FSave(FTarget)
        , FContent(content)
    {
    }

    // Unbuffered, so that a write that fails tells why.
    Failure Write()
    {
        if (!FSave.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            return Refused(FSave.errorString());
        for (qsizetype done = 0; done < FContent.Bytes.size();) {
            const auto written = FSave.write(FContent.Bytes.constData() + done, FContent.Bytes.size() - done);
            if (written <= 0)
                return Refused(FSave.errorString());
            done += written;
        }
        if (::fsync(FSave.handle()) != 0 && errno != EINVAL && errno != ENOTSUP)
            return Refused(qt_error_string(errno));
        return KeepOld();
    }

    Failure Commit()
    {
        if (!FSave.commit())
            return Refused(FSave.errorString());
        FCommitted = true;
        return {};
    }

    // Puts the old content back; false when that could not be done.
    bool Restore()
    {
        if (!FCommitted)
            return true;
        if (FOld.isEmpty())
            return QFile::remove(FTarget);
        return ::rename(QFile::encodeName(FOld).constData(), QFile::encodeName(FTarget).constData()) == 0;
    }

    void DropOld()
    {
        if (!FOld.isEmpty())
            QFile::remove(FOld);
    }

    const QString& OldName() const { return FOld; }

private:
    // A link stays a link: the file it leads to is the one that is replaced.
    static QString LinkTarget(const QString& fileName)
    {
        const auto target = QFileInfo(fileName).canonicalFilePath();
        return target.isEmpty() ? fileName : target;
    }

    Problem Refused(const QString& reason) const
    {
        return FileError(FContent.FileName, QStringLiteral("cannot be saved: ") + reason);
    }

    Failure KeepOld()
    {
        const QFileInfo target(FTarget);
        if (!target.exists())
            return {};
        const auto tag = QUuid::createUuid().toString(QUuid::Id128).left(8);
        const auto name
            = target.path() + QStringLiteral("/.") + target.fileName() + u'.' + tag + QStringLiteral(".old");
        // A second name of somebody else's file might not be ours to remove.
        const bool linked = target.ownerId() == ::geteuid()
            && ::link(QFile::encodeName(FTarget).constData(), QFile::encodeName(name).constData()) == 0;
        QFile source(FTarget);
        if (!linked && !source.copy(name)) {
            QFile::remove(name);
            return Refused(source.errorString());
        }
        FOld = name;
        return {};
    }

    QString FTarget;
    QSaveFile FSave;
    const FileContent& FContent;
    QString FOld;
    bool FCommitted = false;
};

using PendingFiles = std::vector<std::unique_ptr<PendingFile>>;

Failure writeAll(const PendingFiles& pending)
{
    for (const auto& file : pending) {
        if (const auto failure = file->Write())
            return failure;
    }
    return {};
}

Failure commitAll(const PendingFiles& pending)
{
    for (const auto& file : pending) {
        if (auto failure = file->Commit())
            return failure;
    }
    return {};
}

// Goes back to the old content of all files and says where a copy is left when that fails.
void restoreAll(const PendingFiles& pending, Problem& failure)
{
    for (const auto& file : pending) {
        if (file->Restore())
            file->DropOld();
        else
            failure.Text += QStringLiteral("; the former content is kept in ") + file->OldName();
    }
}

}

Failure SaveTogether(const QList<FileContent>& files)
{
    PendingFiles pending;
    for (const auto& file : files)
        pending.push_back(std::make_unique<PendingFile>(file));
    auto failure = writeAll(pending);
    if (!failure)
        failure = commitAll(pending);
    if (failure) {
        restoreAll(pending, *failure);
        return failure;
    }
    for (const auto& file : pending)
        file->DropOld();
    return {};
}
