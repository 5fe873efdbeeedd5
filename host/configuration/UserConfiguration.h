#pragma once

#include "files/Problem.h"

#include <QString>

#include <optional>

class TRegistryStore;

// A user's configuration of the plug-in, as files: Morvane.cfg, and beside it the last copy that loaded.
//
// The plug-in reads the file when it is loaded and may write it when it is unloaded. So whoever changes it here does
// that while the plug-in is not loaded: unload, change, load. What goes wrong is given as a value; nothing is raised.
class UserConfiguration {
public:
    // The file name follows the directory with nothing between them, as in the plug-in.
    explicit UserConfiguration(const QString& directory);

    // The directory that the registry names, or else the user's own, which is not made or registered yet.
    static UserConfiguration Find(const TRegistryStore& registry);
    // The user's own directory, with its trailing separator.
    static QString UsersDirectory();

    const QString& Directory() const { return FDirectory; }
    QString FileName() const;
    // The last file that loaded, as Morvane.cfg.good.
    QString GoodCopyName() const;
    // What the last file was before it was replaced here, as Morvane.cfg.before.
    QString ReplacedName() const;
    // The log of the plug-in, where its preferences put it.
    QString LogFileName() const;

    // Before the plug-in is loaded: makes the directory, names it in the registry where that names none, and writes
    // the starter configuration where there is no file. A file that is there is never touched.
    Failure Prepare(TRegistryStore& registry) const;

    // What is wrong with the file; empty when it loads. A file that cannot be read is one Error.
    Problems Check() const;
    // The first Error of Check, for a message.
    std::optional<Problem> FindError() const;
    // Whether the file loads and offers a control for native projects: without one every drag is refused.
    bool OffersControls() const;

    // After a load that went well: keeps the file as the good copy. Does nothing for a file that has an Error.
    Failure KeepGoodCopy() const;
    bool HasGoodCopy() const;
    // Puts the good copy in the file's place; what was there is kept under ReplacedName.
    Failure RestoreGoodCopy() const;
    // Puts the starter configuration in the file's place, with the file's own preferences where it has them; what was
    // there is kept under ReplacedName.
    Failure ReplaceByStarter() const;

    // Turns the plug-in's log on or off. On: sets the preferences and makes the file, which the plug-in does not do.
    // A log that is there is appended to.
    Failure EnableLog() const;
    Failure DisableLog() const;
    bool IsLogEnabled() const;
    // The entries of the log, oldest first; empty where there is none.
    QStringList Log() const;

private:
    Failure SetPreference(const QString& name, const QString& value) const;
    Failure Replace(const QByteArray& content) const;
    QString Preference(const QString& name) const;

    QString FDirectory;
};
