#pragma once

#include "config/MrvCfgIntf.h"
#include "config/XmlTextReader.h"
#include "rtl/TRegistry.h"
#include "support/MrvConst.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "support/PrintQt.h"

#include <gtest/gtest.h>

#include <optional>

// A configuration directory and a registry of the test's own: the registry value names the directory.
class ConfigurationFixture : public testing::Test {
protected:
    ConfigurationFixture()
    {
        TRegistryStore::SetDefault(&Registry);
        SetConfigFilePath(Directory());
    }
    ~ConfigurationFixture() override
    {
        MrvConfigurationService.Clear();
        TRegistryStore::SetDefault(nullptr);
    }

    // With its trailing separator.
    QString Directory() const { return Folder.path() + u'/'; }
    QString FileName() const { return Directory() + u"Morvane.cfg"_qs; }
    void SetConfigFilePath(const QString& path)
    {
        Registry.Write(IDEInfos[IDEVer].MorvaneRegistryKey, u"ConfigFilePath"_qs, path);
    }

    static void Write(const QString& fileName, const QByteArray& content)
    {
        QFile file(fileName);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    static QByteArray Read(const QString& fileName)
    {
        QFile file(fileName);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
    }
    void WriteFile(const QByteArray& content) const { Write(FileName(), content); }
    QByteArray ReadFile() const { return Read(FileName()); }

    // A configuration with these preferences and this content of prVCL.
    static QByteArray Configuration(const QByteArray& preferences, const QByteArray& vcl = {})
    {
        return "<Morvane><Preferences>" + preferences + "</Preferences><CustomizeSection><prVCL>" + vcl
            + "</prVCL></CustomizeSection></Morvane>";
    }

    static InterfacePtr<TMrvConfigurationService> Service() { return New<TMrvConfigurationService>(); }
    InterfacePtr<TMrvConfigurationService> ServiceOver(const QByteArray& content) const
    {
        WriteFile(content);
        return Service();
    }
    InterfacePtr<TMrvConfigurationService> ServiceOverVcl(const QByteArray& vcl) const
    {
        return ServiceOver(Configuration({}, vcl));
    }

    // In memory where the machine offers that: a save waits for its disk.
    QTemporaryDir Folder { QDir(u"/dev/shm"_qs).exists() ? u"/dev/shm/morvane-XXXXXX"_qs
                                                         : QDir::tempPath() + u"/morvane-XXXXXX"_qs };
    TRegistryStore Registry { Folder.filePath(u"registry.ini"_qs) };
};

inline InterfacePtr<IMrvPersonalityUISettings> Current(const InterfacePtr<TMrvConfigurationService>& service)
{
    InterfacePtr<IMrvPersonalityUISettings> personality;
    service->GetCurrentPersonality(personality);
    return personality;
}

inline InterfacePtr<IMrvPersonalityUISettings> Personality(
    const InterfacePtr<TMrvConfigurationService>& service, TPersonality which)
{
    const auto active = service->GetActivePersonality();
    service->SetAcitvePersonality(which);
    const auto personality = Current(service);
    service->SetAcitvePersonality(active);
    return personality;
}

inline InterfacePtr<IMrvPreferences> Preferences(const InterfacePtr<TMrvConfigurationService>& service)
{
    InterfacePtr<IMrvPreferences> preferences;
    service->GetPreferences(preferences);
    return preferences;
}

inline QString Value(const InterfacePtr<TMrvConfigurationService>& service, const QString& name)
{
    QString value = u"(untouched)"_qs;
    Preferences(service)->GetValueByName(name, value);
    return value;
}

inline InterfacePtr<IMrvBindableControlInfoList> DataSetList(const InterfacePtr<TMrvConfigurationService>& service)
{
    InterfacePtr<IMrvBindableControlInfoList> list;
    Current(service)->GetDataSetBindCtrlInfoList(list);
    return list;
}

inline InterfacePtr<IMrvBindableControlInfoList> GroupList(
    const InterfacePtr<IMrvPersonalityUISettings>& personality, const QString& group)
{
    InterfacePtr<IMrvBindableControlInfoList> list;
    personality->GetFieldBindCtrlInfoList(list, personality->GetFieldGroupIndex(group));
    return list;
}

inline InterfacePtr<IMrvBindableControlInfoList> GroupList(
    const InterfacePtr<TMrvConfigurationService>& service, const QString& group)
{
    return GroupList(Current(service), group);
}

// "Caption=Class Caption=Class", or "Class" alone where the caption is the class without its first letter. Looks at no
// default, so that it fixes none.
inline QString Text(const InterfacePtr<IMrvBindableControlInfoList>& list)
{
    QStringList words;
    for (int i = 0; i < list->GetCount(); ++i) {
        InterfacePtr<IMrvBindableControlInfo> item;
        list->GetItem(i, item);
        const auto className = ClassNameOf(item);
        const auto caption = CaptionOf(item);
        const bool plain = IsPseudoControl(className) ? caption == className : caption == className.mid(1);
        words << (plain ? className : caption + u'=' + className);
    }
    return words.join(u' ');
}

// The class name of the default, with the mark "member" or "detached"; "nil" without one.
inline QString DefaultText(const InterfacePtr<IMrvBindableControlInfoList>& list)
{
    InterfacePtr<IMrvBindableControlInfo> standard;
    list->GetDefaultItem(standard);
    if (!standard)
        return u"nil"_qs;
    for (int i = 0; i < list->GetCount(); ++i) {
        InterfacePtr<IMrvBindableControlInfo> item;
        list->GetItem(i, item);
        if (item == standard)
            return ClassNameOf(standard) + u" member"_qs;
    }
    return ClassNameOf(standard) + u" detached"_qs;
}

// The message of the exception E that the work raises; empty when it raises none.
template <class E, class Work>
QString MessageOf(Work&& work)
{
    try {
        work();
    } catch (const E& exception) {
        return exception.Message();
    }
    return {};
}
