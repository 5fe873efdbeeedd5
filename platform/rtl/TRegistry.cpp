#include "rtl/TRegistry.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>

namespace {

// QSettings separates groups by "/" and takes "\" for it too, but escapes it in files of some formats.
QString Group(const QString& key)
{
    return QString(key).replace(u'\\', u'/').toLower();
}

TRegistryStore* GStore = nullptr;

}

TRegistryStore::TRegistryStore(const QString& fileName)
    : FSettings(std::make_unique<QSettings>(fileName, QSettings::IniFormat))
{
}

TRegistryStore::~TRegistryStore() = default;

bool TRegistryStore::KeyExists(const QString& key) const
{
    const auto prefix = Group(key) + u'/';
    for (const auto& name : FSettings->allKeys())
        if (name.startsWith(prefix, Qt::CaseInsensitive))
            return true;
    return false;
}

// The name under which the value stands in the file. What is written here is in lower case; a line that a person wrote
// may be in any.
QString TRegistryStore::StoredName(const QString& key, const QString& name) const
{
    const auto path = Group(key) + u'/' + name.toLower();
    if (!FSettings->contains(path))
        for (const auto& stored : FSettings->allKeys())
            if (stored.compare(path, Qt::CaseInsensitive) == 0)
                return stored;
    return path;
}

bool TRegistryStore::ValueExists(const QString& key, const QString& name) const
{
    return FSettings->contains(StoredName(key, name));
}

QString TRegistryStore::Read(const QString& key, const QString& name) const
{
    return FSettings->value(StoredName(key, name)).toString();
}

void TRegistryStore::Write(const QString& key, const QString& name, const QString& value)
{
    FSettings->setValue(StoredName(key, name), value);
    FSettings->sync();
}

QString TRegistryStore::FileName() const
{
    return FSettings->fileName();
}

TRegistryStore& TRegistryStore::Default()
{
    if (GStore)
        return *GStore;
    static TRegistryStore store(QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
                                    .filePath(QStringLiteral("morvane/registry.ini")));
    return store;
}

void TRegistryStore::SetDefault(TRegistryStore* store)
{
    GStore = store;
}

TRegistry::TRegistry(unsigned access)
    : FAccess(access)
{
}

bool TRegistry::OpenKey(const QString& key, bool canCreate)
{
    const bool mayCreate = canCreate && FAccess != KEY_READ;
    if (!mayCreate && !TRegistryStore::Default().KeyExists(key))
        return false;
    FKey = key;
    return true;
}

bool TRegistry::ValueExists(const QString& name) const
{
    return !FKey.isEmpty() && TRegistryStore::Default().ValueExists(FKey, name);
}

QString TRegistry::ReadString(const QString& name) const
{
    return FKey.isEmpty() ? QString() : TRegistryStore::Default().Read(FKey, name);
}
