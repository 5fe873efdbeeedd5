#pragma once

#include "files/Problem.h"
#include "files/SaveTogether.h"
#include "projects/ProjectEdits.h"

#include <vector>

class Host;
class Module;
class SourceUnit;
class UndoPart;

// Saves a module under another file name: the unit, its header and its form file are written anew, and the project's
// files and the units that use it name it so from now on. All of it or nothing; the old files stay. What is unsaved in
// other units stays unsaved: of them, the entry alone is written. What was done before can still be undone.
//
// Made for one saving.
class SaveAs {
public:
    SaveAs(Host& host, Module& module, const QString& fileName);
    ~SaveAs();
    SaveAs(const SaveAs&) = delete;
    SaveAs& operator=(const SaveAs&) = delete;

    // Files that are there already and would be written over; none of the module's own.
    QStringList Overwritten() const;
    Failure Run();

private:
    // A unit that uses the module's: as it will stand in memory and on disk.
    struct User {
        Module* Open;
        QList<FileContent> InMemory;
        QList<FileContent> OnDisk;
    };

    Failure CheckName() const;
    Failure CheckProject() const;
    Failure PrepareModule();
    Failure PrepareUsers();
    Failure PrepareUser(const QString& fileName);
    Failure PrepareProject();
    Failure Renamed(QList<FileContent>& files) const;
    void Write(const QList<FileContent>& before, const QList<FileContent>& after);
    void RewriteUndo();
    void Commit();
    bool IsLazarus() const;

    Host& FHost;
    Module& FModule;
    QString FUnitFile;
    QString FFormFile;
    ProjectEdits::ModuleFiles FNames;
    QList<FileContent> FUnit;
    std::vector<User> FUsers;
    QList<FileContent> FProjectInMemory;
    QList<FileContent> FProjectOnDisk;
    QList<FileContent> FToWrite;
};
