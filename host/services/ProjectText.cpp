#include "services/ProjectText.h"

#include "files/FileFinder.h"
#include "projects/ProjectDescription.h"

#include <QFileInfo>

QStringList ProjectText::FileNames() const
{
    const QFileInfo project(FDescription.FileName);
    const auto suffix = project.suffix().toLower();
    QStringList names { FDescription.FileName };
    const auto add = [&names](const QString& fileName) {
        if (!fileName.isEmpty() && !names.contains(fileName))
            names << fileName;
    };
    add(FDescription.MainSource);
    const auto beside = [&project](const char* extension) {
        return FindFileIgnoringCase(project.path() + u'/' + project.completeBaseName() + QLatin1String(extension));
    };
    if (suffix == u"dpr" || suffix == u"dpk") {
        const auto xml = beside(".dproj");
        add(xml.isEmpty() ? beside(".bdsproj") : xml);
    }
    add(beside(FDescription.IsLazarus() ? ".lps" : ".dsk"));
    return names;
}

Failure ProjectText::Refresh()
{
    QList<FileContent> read;
    Failure failure;
    for (const auto& name : FileNames()) {
        if (!QFileInfo::exists(name))
            continue;
        const auto file = SourceFile::Read(name, failure);
        if (!file)
            return failure;
        read << file->Content();
    }
    if (!IsModified()) {
        FFiles = read;
    } else if (read != FOnDisk) {
        return FileError(FDescription.FileName,
            QStringLiteral("the project's files were changed on disk since they were read; save or undo first"));
    }
    FOnDisk = read;
    return {};
}

QList<FileContent> ProjectText::ChangedFiles() const
{
    QList<FileContent> changed;
    for (qsizetype i = 0; i < FFiles.size(); ++i)
        if (FFiles[i] != FOnDisk.value(i))
            changed << FFiles[i];
    return changed;
}

Failure ProjectText::RenameForm(const FormRename& rename)
{
    auto files = FFiles;
    for (auto& content : files) {
        SourceFile file(content.FileName, content.Bytes);
        if (auto failure = ProjectEdits::RenameForm(file, FDescription.FileName, rename))
            return failure;
        content = file.Content();
    }
    FFiles = files;
    return {};
}

Failure ProjectText::WithRenamedModule(QList<FileContent>& files, const ProjectEdits::ModuleFiles& module) const
{
    auto renamed = files;
    for (auto& content : renamed) {
        SourceFile file(content.FileName, content.Bytes);
        if (auto failure = ProjectEdits::RenameModule(file, FDescription.FileName, module))
            return failure;
        content = file.Content();
    }
    files = renamed;
    return {};
}

void ProjectText::Take(const QList<FileContent>& files, const QList<FileContent>& onDisk)
{
    FFiles = files;
    FOnDisk = onDisk;
}
