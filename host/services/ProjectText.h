#pragma once

#include "designer/UndoStack.h"
#include "files/SourceFile.h"
#include "projects/ProjectEdits.h"

struct ProjectDescription;

// The text of a project's own files as they are edited: the project file, the program's source, what stands beside it
// of the two, and the desktop file. They are read when a change first needs them; what nobody edits keeps every byte.
// Owned by its project.
class ProjectText : public UndoPart {
public:
    explicit ProjectText(const ProjectDescription& description)
        : FDescription(description)
    {
    }

    // Reads the files, or, while nothing in them is unsaved, reads them again. Fails when one of them cannot be read,
    // or was changed on disk while it has unsaved changes here.
    Failure Refresh();
    // An edit of all files or of none, after Refresh.
    Failure RenameForm(const FormRename& rename);
    bool IsModified() const { return FFiles != FOnDisk; }
    QList<FileContent> ChangedFiles() const;
    void NoteSaved() { FOnDisk = FFiles; }
    // What was not saved is gone.
    void Revert() { FFiles = FOnDisk; }

    // The files as they stand in memory and on disk, and those files with a module under other names.
    const QList<FileContent>& Files() const { return FFiles; }
    const QList<FileContent>& OnDisk() const { return FOnDisk; }
    Failure WithRenamedModule(QList<FileContent>& files, const ProjectEdits::ModuleFiles& module) const;
    void Take(const QList<FileContent>& files, const QList<FileContent>& onDisk);

    // UndoPart
    UndoState Capture() override { return { 0, FFiles }; }
    void Restore(const UndoState& state, const QList<FormTouch>&) override { FFiles = state.Unit; }

private:
    QStringList FileNames() const;

    const ProjectDescription& FDescription;
    QList<FileContent> FFiles;
    QList<FileContent> FOnDisk;
};
