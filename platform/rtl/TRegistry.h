#pragma once

#include <QString>
#include <QStringList>

#include <memory>

class QSettings;

// Where the registry is kept on this platform: a settings file. Keys are paths with "\"; values are strings; neither
// tells case apart.
class TRegistryStore {
public:
    // The store in that file; it is made at the first write.
    explicit TRegistryStore(const QString& fileName);
    ~TRegistryStore();

    bool KeyExists(const QString& key) const;
    bool ValueExists(const QString& key, const QString& name) const;
    // Empty for a value that does not exist.
    QString Read(const QString& key, const QString& name) const;
    void Write(const QString& key, const QString& name, const QString& value);
    QString FileName() const;

    // The store that TRegistry reads: `registry.ini` in the user's configuration directory for the application, or the
    // one that was put in its place. The caller of SetDefault owns the store and puts nil back.
    static TRegistryStore& Default();
    static void SetDefault(TRegistryStore* store);

private:
    QString StoredName(const QString& key, const QString& name) const;

    std::unique_ptr<QSettings> FSettings;
};

enum TRegistryRoot { HKEY_CURRENT_USER };
constexpr unsigned KEY_READ = 131097;

// Reads the registry. Raises nothing: a key that does not open says so by false, an absent value is empty.
class TRegistry {
public:
    explicit TRegistry(unsigned access = KEY_READ);

    TRegistryRoot RootKey = HKEY_CURRENT_USER;
    // False when there is no such key (`canCreate` makes one on a store opened for writing; the reader never asks).
    bool OpenKey(const QString& key, bool canCreate);
    void CloseKey() { FKey.clear(); }
    bool ValueExists(const QString& name) const;
    QString ReadString(const QString& name) const;

private:
    unsigned FAccess;
    QString FKey;
};
