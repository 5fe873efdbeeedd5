#include "config/TMrvPreferences.h"

#include "config/ConfigurationSource.h"
#include "config/TMrvConfigurationService.h"
#include "config/XmlTextWriter.h"
#include "rtl/TResourceStream.h"

namespace {

const auto SectionName = QStringLiteral("Preferences");
const auto ScanAllForms = QStringLiteral("ScanAllForms");

TMrvPreferences::TParam Line(const QString& name, const QString& value)
{
    const auto line = Format(QStringLiteral("%s=%s"), { name, value });
    const auto split = line.indexOf(u'=');
    return { line.left(split), line.mid(split + 1) };
}

// ScanAllForms lives for one refresh: a file written in the middle of one does not start the next session in it.
QString Loaded(const QString& name, QStringView value)
{
    return SameText(name, ScanAllForms) ? BoolToStr(false, true) : value.toString();
}

}

TMrvPreferences::TMrvPreferences(TMrvConfigurationService* service)
    : FConfigurationService(service)
{
}

qsizetype TMrvPreferences::IndexOfName(const QString& name) const
{
    for (qsizetype i = 0; i < FParamList.size(); ++i)
        if (SameText(FParamList.at(i).Name, name))
            return i;
    return -1;
}

void TMrvPreferences::GetValueByName(const QString& name, QString& value)
{
    const auto index = IndexOfName(name);
    if (index >= 0)
        value = FParamList.at(index).Value;
    else
        value.clear();
}

void TMrvPreferences::SetValueByName(const QString& name, const QString& value)
{
    const auto index = IndexOfName(name);
    if (value.isEmpty()) {
        if (index >= 0)
            FParamList.removeAt(index);
    } else if (index >= 0) {
        FParamList[index] = Line(name, value);
    } else {
        FParamList.append(Line(name, value));
    }
    FModified = true;
}

void TMrvPreferences::Load()
{
    InternalLoad(nullptr);
}

void TMrvPreferences::LoadDefault()
{
    TResourceStream stream(DefaultConfigurationName, RT_RCDATA);
    InternalLoad(&stream);
    FModified = true;
}

void TMrvPreferences::InternalLoad(QIODevice* stream)
{
    Take(Read(stream));
}

TMrvPreferences::TParamList TMrvPreferences::Read(QIODevice* stream) const
{
    ConfigurationSource source(stream, FConfigurationService->FileName());
    auto& reader = source.Reader();
    TParamList params;
    bool inside = false;
    while (reader.Read()) {
        // Three tests, one after the other on the node that is then current: the first key follows the start at once.
        if (reader.IsStart() && reader.GetFullName() == SectionName) {
            inside = true;
            reader.Read();
        }
        if (inside && reader.IsEnd() && reader.GetFullName() == SectionName)
            break;
        if (inside && reader.IsStart()) {
            const auto name = reader.GetFullName().toString();
            reader.Read();
            if (reader.GetNodeType() == ntText)
                params.append(Line(name, Loaded(name, reader.GetValue())));
        }
    }
    return params;
}

void TMrvPreferences::Take(TParamList params)
{
    FParamList = std::move(params);
    FModified = false;
}

void TMrvPreferences::InternalSave(QObject* writer)
{
    auto& xml = AsXmlTextWriter(writer);
    xml.WriteStartElement(SectionName);
    for (const auto& param : std::as_const(FParamList))
        xml.WriteElementString(param.Name, param.Value);
    xml.WriteFullEndElement();
    FModified = false;
}
