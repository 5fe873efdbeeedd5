#pragma once

#include <QByteArray>
#include <QStringList>

// The plug-in's diagnostic log as texts, an entry each, "dd.mm.yyyy hh:mm:ss - message". The file holds the first half
// of each line, as UTF-16 and without line ends, so that an entry ends where the stamp of the next begins, and may end
// in half a character, which is left out. What stands before the first stamp is left out too.
QStringList ReadPluginLog(const QByteArray& content);
