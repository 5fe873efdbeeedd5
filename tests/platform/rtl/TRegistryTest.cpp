#include "rtl/TRegistry.h"

#include "support/PrintQt.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class RegistryStore : public testing::Test {
protected:
    RegistryStore() { TRegistryStore::SetDefault(&Store); }
    ~RegistryStore() override { TRegistryStore::SetDefault(nullptr); }

    QTemporaryDir Folder;
    TRegistryStore Store { Folder.filePath(u"registry.ini"_qs) };
};

const QString Key = uR"(Software\Bravik\Morvane\BDS\23.0)"_qs;

}

TEST_F(RegistryStore, AKeyThatIsNotThereDoesNotOpen)
{
    TRegistry registry(KEY_READ);
    EXPECT_FALSE(registry.OpenKey(Key, false));
    EXPECT_FALSE(registry.OpenKey(Key, true));
    EXPECT_EQ(registry.ReadString(u"ConfigFilePath"_qs), QString());
}

TEST_F(RegistryStore, AValueThatWasWrittenIsReadThroughItsKey)
{
    Store.Write(Key, u"ConfigFilePath"_qs, uR"(C:\Data\Morvane\)"_qs);
    TRegistry registry(KEY_READ);
    registry.RootKey = HKEY_CURRENT_USER;
    ASSERT_TRUE(registry.OpenKey(Key, false));
    EXPECT_TRUE(registry.ValueExists(u"ConfigFilePath"_qs));
    EXPECT_EQ(registry.ReadString(u"ConfigFilePath"_qs), uR"(C:\Data\Morvane\)"_qs);
}

TEST_F(RegistryStore, AKeyAboveAValueOpensAndOneThatOnlyBeginsAlikeDoesNot)
{
    Store.Write(Key, u"ConfigFilePath"_qs, u"x"_qs);
    TRegistry registry(KEY_READ);
    EXPECT_TRUE(registry.OpenKey(uR"(Software\Bravik)"_qs, false));
    EXPECT_FALSE(registry.OpenKey(uR"(Software\Brav)"_qs, false));
}

TEST_F(RegistryStore, AnAbsentValueIsEmpty)
{
    Store.Write(Key, u"Other"_qs, u"x"_qs);
    TRegistry registry(KEY_READ);
    ASSERT_TRUE(registry.OpenKey(Key, false));
    EXPECT_FALSE(registry.ValueExists(u"ConfigFilePath"_qs));
    EXPECT_EQ(registry.ReadString(u"ConfigFilePath"_qs), QString());
}

TEST_F(RegistryStore, AClosedKeyReadsNothing)
{
    Store.Write(Key, u"ConfigFilePath"_qs, u"x"_qs);
    TRegistry registry(KEY_READ);
    ASSERT_TRUE(registry.OpenKey(Key, false));
    registry.CloseKey();
    EXPECT_FALSE(registry.ValueExists(u"ConfigFilePath"_qs));
}

TEST_F(RegistryStore, KeysAndValuesAreFoundInAnyCase)
{
    Store.Write(Key, u"ConfigFilePath"_qs, u"x"_qs);
    TRegistry registry(KEY_READ);
    ASSERT_TRUE(registry.OpenKey(Key.toUpper(), false));
    EXPECT_EQ(registry.ReadString(u"CONFIGFILEPATH"_qs), u"x"_qs);
}

TEST_F(RegistryStore, WhatAPersonWroteIntoTheFileIsFoundAndReplaced)
{
    const auto name = Folder.filePath(u"hand.ini"_qs);
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[Software]\nBravik\\Morvane\\BDS\\23.0\\ConfigFilePath=/home/me/\n");
    file.close();
    TRegistryStore store(name);
    EXPECT_TRUE(store.KeyExists(Key));
    EXPECT_EQ(store.Read(Key, u"ConfigFilePath"_qs), u"/home/me/"_qs);
    store.Write(Key, u"ConfigFilePath"_qs, u"/other/"_qs);
    EXPECT_EQ(store.Read(Key, u"configfilepath"_qs), u"/other/"_qs);
}

TEST_F(RegistryStore, AnotherStoreOnTheSameFileReadsWhatWasWritten)
{
    Store.Write(uR"(Software\Bravik\Fennel)"_qs, u"InstallDirD29"_qs, u"Zäh 日"_qs);
    EXPECT_EQ(
        TRegistryStore(Store.FileName()).Read(uR"(Software\Bravik\Fennel)"_qs, u"InstallDirD29"_qs), u"Zäh 日"_qs);
}
