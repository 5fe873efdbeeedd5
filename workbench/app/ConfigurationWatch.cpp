#include "app/ConfigurationWatch.h"

#include <QFileInfo>

namespace {

// An editor may empty a file before it writes it; milliseconds.
constexpr int SettlingTime = 200;

}

ConfigurationWatch::ConfigurationWatch(const QString& fileName)
    : FFileName(fileName)
{
    FSettling.setSingleShot(true);
    FSettling.setInterval(SettlingTime);
    connect(&FSettling, &QTimer::timeout, this, &ConfigurationWatch::Changed);
    connect(&FWatcher, &QFileSystemWatcher::directoryChanged, this, &ConfigurationWatch::Follow);
    connect(&FWatcher, &QFileSystemWatcher::fileChanged, this, &ConfigurationWatch::Follow);
    if (const auto folder = QFileInfo(FFileName).absolutePath(); QFileInfo::exists(folder))
        FWatcher.addPath(folder);
    Follow();
    FSettling.stop();
}

// A file that takes another's place is another file.
void ConfigurationWatch::Follow()
{
    if (!FWatcher.files().contains(FFileName) && QFileInfo::exists(FFileName))
        FWatcher.addPath(FFileName);
    FSettling.start();
}
