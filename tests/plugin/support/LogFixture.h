#pragma once

#include "plugin/config/ConfigurationFixture.h"

#include <QFile>
#include <QStringList>

#include <gtest/gtest.h>

// A log of the test's own, switched on. A line of the log is cut in its middle: what the tests compare is each line's
// length, which is that of the whole text, and as much of the text as is there.
class LogFixture : public ConfigurationFixture {
protected:
    LogFixture()
    {
        const auto service = Service();
        MrvConfigurationService = service;
        InterfacePtr<IMrvPreferences> preferences;
        service->GetPreferences(preferences);
        preferences->SetValueByName(u"DebugMode"_qs, u"True"_qs);
        preferences->SetValueByName(u"DebugPath"_qs, Directory());
        QFile file(LogName());
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    }

    QString LogName() const { return Directory() + u"Morvane_ErrorEvents.log"_qs; }
    void ClearLog() const { QFile::resize(LogName(), 0); }

    // Whether the log holds exactly these messages.
    testing::AssertionResult LogHolds(const QStringList& messages) const
    {
        QFile file(LogName());
        if (!file.open(QIODevice::ReadOnly))
            return testing::AssertionFailure() << "no log";
        auto log = file.readAll();
        for (const auto& message : messages) {
            const auto length = StampLength + message.size() + 2;
            if (log.size() < length)
                return testing::AssertionFailure() << "missing: " << message.toStdString();
            const QString line(reinterpret_cast<const QChar*>(log.constData()), length / 2);
            if (!message.startsWith(line.mid(StampLength)))
                return testing::AssertionFailure() << line.toStdString() << " is not " << message.toStdString();
            log.remove(0, length);
        }
        return log.isEmpty() ? testing::AssertionSuccess()
                             : testing::AssertionFailure() << log.size() << " bytes more than expected";
    }

private:
    static constexpr qsizetype StampLength = 23;
};
