#include "configuration/PluginLog.h"

#include "support/PrintQt.h"

#include <gtest/gtest.h>

namespace {

// What the plug-in puts into its log for this line: as many bytes as the line has characters.
QByteArray Half(const QString& message)
{
    const QString line = u"21.11.2026 02:30:05 -\t\t"_qs + message + u"\r\n"_qs;
    return QByteArray(reinterpret_cast<const char*>(line.utf16()), line.size());
}

QString Entries(const QByteArray& content)
{
    return ReadPluginLog(content).join(u'|');
}

}

TEST(PluginLog, AnEmptyLogHasNoEntries)
{
    EXPECT_EQ(ReadPluginLog({}), QStringList());
}

TEST(PluginLog, AnEntryIsTheFirstHalfOfItsLine)
{
    EXPECT_EQ(
        Entries(Half(u"TMrvObjectList.Clear - failed! and more text"_qs)), u"21.11.2026 02:30:05 - TMrvObjectL"_qs);
}

TEST(PluginLog, EntriesEndWhereTheNextStampBegins)
{
    EXPECT_EQ(Entries(Half(QString(31, u'a')) + Half(QString(33, u'b')) + Half(QString(35, u'c'))),
        u"21.11.2026 02:30:05 - aaaaa|21.11.2026 02:30:05 - bbbbbb|21.11.2026 02:30:05 - ccccccc"_qs);
}

TEST(PluginLog, AHalfCharacterAtTheEndOfAnEntryIsLeftOut)
{
    EXPECT_EQ(Entries(Half(QString(32, u'a')) + Half(QString(32, u'日')) + Half(QString(32, u'c'))),
        u"21.11.2026 02:30:05 - aaaaa|21.11.2026 02:30:05 - 日日日日日|21.11.2026 02:30:05 - ccccc"_qs);
}

TEST(PluginLog, AShortMessageLeavesThePartOfItsStamp)
{
    EXPECT_EQ(Entries(Half(u"x"_qs) + Half(QString())), u"21.11.2026 02|21.11.2026 0"_qs);
}

TEST(PluginLog, WhatStandsBeforeTheFirstStampIsLeftOut)
{
    EXPECT_EQ(Entries("some header\n" + Half(QString(31, u'a'))), u"21.11.2026 02:30:05 - aaaaa"_qs);
    EXPECT_EQ(ReadPluginLog("no log at all"), QStringList());
}
