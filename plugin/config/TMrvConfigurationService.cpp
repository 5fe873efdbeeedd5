#include "config/TMrvConfigurationService.h"

#include "config/StreamWriter.h"
#include "config/XmlTextWriter.h"
#include "rtl/TRegistry.h"
#include "rtl/TResourceStream.h"
#include "support/MrvConst.h"

#include <QCoreApplication>
#include <QFileInfo>

const QString DefaultConfigurationName = QStringLiteral("#101");

namespace {

const auto ConfigFileName = QStringLiteral("Morvane.cfg");

QStringList ReadLines(QIODevice& stream)
{
    QStringList lines;
    while (!stream.atEnd()) {
        auto line = stream.readLine();
        while (line.endsWith('\n') || line.endsWith('\r'))
            line.chop(1);
        lines << QString::fromUtf8(line);
    }
    return lines;
}

}

// A resource of a static library is linked in by being named; outside of namespaces, as the macro wants it.
static void InitResources()
{
    Q_INIT_RESOURCE(mrv_configuration);
}

TMrvConfigurationService::TMrvConfigurationService()
{
    InitResources();
    FindDirectory();
    if (!QFileInfo::exists(FileName()))
        CreateFileFromDefault();
    FPersonalityList = New<TInterfaceList<TMrvPersonality>>();
    FPreferences = New<TMrvPreferences>(this);
    for (const auto personality : { prVCL, prCLR, prCLX })
        FPersonalityList->Add(New<TMrvPersonality>(this, personality));
    Load();
}

void TMrvConfigurationService::FindDirectory()
{
    TRegistry registry(KEY_READ);
    registry.RootKey = HKEY_CURRENT_USER;
    if (registry.OpenKey(IDEInfos[IDEVer].MorvaneRegistryKey, false))
        FConfigFilePath = registry.ReadString(QStringLiteral("ConfigFilePath"));
    if (FConfigFilePath.isEmpty())
        FConfigFilePath = IncludeTrailingPathDelimiter(QCoreApplication::applicationDirPath());
}

void TMrvConfigurationService::CreateFileFromDefault() const
{
    TResourceStream resource(DefaultConfigurationName, RT_RCDATA);
    StreamWriter file(FileName());
    for (const auto& line : ReadLines(resource))
        file.Write(line + QStringLiteral("\r\n"));
    file.Close();
}

QString TMrvConfigurationService::FileName() const
{
    return FConfigFilePath + ConfigFileName;
}

TMrvPersonality* TMrvConfigurationService::CurrentPersonality() const
{
    return FActivePersonality < FPersonalityList->Count() ? FPersonalityList->Items(FActivePersonality).get() : nullptr;
}

void TMrvConfigurationService::GetPreferences(InterfacePtr<IMrvPreferences>& preferences)
{
    preferences = FPreferences;
}

void TMrvConfigurationService::GetCurrentPersonality(InterfacePtr<IMrvPersonalityUISettings>& personality)
{
    personality = CurrentPersonality();
}

void TMrvConfigurationService::Clear()
{
    for (const auto& personality : *FPersonalityList)
        personality->Clear();
    FPreferences->Clear();
}

void TMrvConfigurationService::Load()
{
    // All is read before anything is cleared: a file that does not load takes nothing away.
    auto params = FPreferences->Read(nullptr);
    QList<TMrvPersonality::TSections> sections;
    for (const auto& personality : *FPersonalityList)
        sections << personality->Read(nullptr);
    Clear();
    FPreferences->Take(std::move(params));
    for (int i = 0; i < FPersonalityList->Count(); ++i)
        FPersonalityList->Items(i)->Take(sections.at(i));
}

void TMrvConfigurationService::LoadDefault()
{
    if (auto* personality = CurrentPersonality())
        personality->LoadDefault();
    FPreferences->LoadDefault();
}

WordBool TMrvConfigurationService::Modified()
{
    auto* personality = CurrentPersonality();
    return (personality && personality->Modified()) || FPreferences->Modified();
}

void TMrvConfigurationService::Save()
{
    QList<bool> modified { FPreferences->Modified() };
    for (const auto& personality : *FPersonalityList)
        modified << personality->Modified();
    try {
        StreamWriter file(FileName());
        XmlTextWriter writer(file);
        writer.WriteStartElement(QStringLiteral("Morvane"));
        FPreferences->InternalSave(&writer);
        writer.WriteStartElement(QStringLiteral("CustomizeSection"));
        for (const auto& personality : *FPersonalityList)
            personality->InternalSave(&writer);
        writer.WriteFullEndElement();
        writer.WriteFullEndElement();
        file.Close();
    } catch (...) {
        // Nothing stands in the file yet, so that everything is as modified as it was.
        FPreferences->SetModified(modified.first());
        for (int i = 0; i < FPersonalityList->Count(); ++i)
            FPersonalityList->Items(i)->SetModified(modified.at(i + 1));
        throw;
    }
}
