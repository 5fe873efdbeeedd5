#pragma once

#include <QFileSystemWatcher>
#include <QTimer>

// Tells when a file was written, replaced, made or taken away, by whomever: once for what happens together.
class ConfigurationWatch : public QObject {
    Q_OBJECT
public:
    explicit ConfigurationWatch(const QString& fileName);

Q_SIGNALS:
    void Changed();

private:
    void Follow();

    QString FFileName;
    QFileSystemWatcher FWatcher;
    QTimer FSettling;
};
