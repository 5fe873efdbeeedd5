#include "config/ConfigurationSource.h"
#include "config/TBindableControlInfo.h"
#include "config/TMrvConfigurationService.h"
#include "config/TMrvPersonality.h"
#include "config/XmlTextWriter.h"
#include "rtl/TResourceStream.h"
#include "support/MrvConst.h"

#include <array>

namespace {

// The names of the enumeration values are part of the file's format.
const std::array<QString, 3> PersonalityNames { u"prVCL"_qs, u"prCLR"_qs, u"prCLX"_qs };
const auto DatasetSection = QStringLiteral("DatasetSection");
const auto FieldSection = QStringLiteral("FieldSection");
const auto CtrlClassNames = QStringLiteral("CtrlClassNames");
const auto DefaultClass = QStringLiteral("DefaultClass");

bool IsStartOf(const XmlTextReader& reader, const QString& name)
{
    return reader.IsStart() && SameText(reader.GetFullName(), name);
}

bool IsEndOf(const XmlTextReader& reader, const QString& name)
{
    return reader.IsEnd() && SameText(reader.GetFullName(), name);
}

QList<TMrvPersonality::TAttribute> Attributes(XmlTextReader& reader)
{
    QList<TMrvPersonality::TAttribute> attributes;
    for (int i = 0; i < reader.GetAttributeCount(); ++i) {
        reader.MoveToAttribute(i);
        attributes.append({ reader.GetFullName().toString(), reader.GetValue().toString() });
    }
    return attributes;
}

// DefaultClass finds only what was added before it, so it must stand last, as the writer puts it.
void AddAttributes(TBindableControlInfoList& list, const QList<TMrvPersonality::TAttribute>& attributes)
{
    for (const auto& attribute : attributes) {
        if (SameText(attribute.Name, DefaultClass))
            list.SetDefaultItem(New<TBindableControlInfo>(attribute.Value.mid(1), attribute.Value));
        else
            list.Add(New<TBindableControlInfo>(attribute.Name, attribute.Value));
    }
}

// The pseudo-controls are known by their captions here.
void WriteControls(XmlTextWriter& writer, TBindableControlInfoList& list)
{
    for (const auto& item : list)
        if (const auto caption = CaptionOf(item); !IsPseudoControl(caption))
            writer.WriteAttributeString(caption, ClassNameOf(item));
    if (const auto item = list.GetDefItem())
        writer.WriteAttributeString(DefaultClass, ClassNameOf(item));
    writer.WriteEndElement();
}

void WriteGroupControls(XmlTextWriter& writer, TBindableControlInfoList& list)
{
    writer.WriteStartElement(CtrlClassNames);
    if (list.GetCount() > 0)
        return WriteControls(writer, list);
    writer.WriteEndElement();
}

// The groups of one field section, up to its end. What stands behind a group's start is its CtrlClassNames.
void ReadGroups(XmlTextReader& reader, TMrvPersonality::TSections& sections)
{
    while (reader.Read() && !IsEndOf(reader, FieldSection)) {
        if (!reader.IsStart())
            continue;
        const auto name = reader.GetFullName().toString();
        reader.Read();
        sections.append({ name, Attributes(reader) });
    }
}

}

QString TMrvPersonality::PersonalityName() const
{
    return PersonalityNames.at(FPersonality);
}

void TMrvPersonality::Load()
{
    InternalLoad(nullptr);
}

void TMrvPersonality::LoadDefault()
{
    TResourceStream stream(DefaultConfigurationName, RT_RCDATA);
    InternalLoad(&stream);
    // So that the reset is saved.
    FModified = true;
}

void TMrvPersonality::InternalLoad(QIODevice* stream)
{
    Take(Read(stream));
}

TMrvPersonality::TSections TMrvPersonality::Read(QIODevice* stream) const
{
    ConfigurationSource source(stream, FConfigurationService->FileName());
    auto& reader = source.Reader();
    const auto name = PersonalityName();
    TSections sections;
    bool found = false;
    while (reader.Read()) {
        if (IsStartOf(reader, name))
            found = true;
        if (!found)
            continue;
        if (IsStartOf(reader, DatasetSection))
            sections.append({ QString(), Attributes(reader) });
        else if (IsStartOf(reader, FieldSection))
            ReadGroups(reader, sections);
        else if (IsEndOf(reader, name))
            break;
    }
    return sections;
}

void TMrvPersonality::Take(const TSections& sections)
{
    LoadFieldGroup();
    FDataSetBindControlList->Clear();
    for (const auto& section : sections) {
        if (section.GroupName.isEmpty()) {
            AddAttributes(*FDataSetBindControlList, section.Attributes);
            FDataSetBindControlList->AddPseudoControl(NoneClassName);
            FDataSetBindControlList->AddPseudoControl(DetailsClassName);
        } else if (const int group = IndexOfGroup(section.GroupName); group >= 0) {
            AddAttributes(FieldList(group), section.Attributes);
            FieldList(group).AddPseudoControl(NoneClassName);
        }
    }
    FModified = false;
}

void TMrvPersonality::InternalSave(QObject* writer)
{
    auto& xml = AsXmlTextWriter(writer);
    xml.WriteStartElement(PersonalityName());
    xml.WriteStartElement(DatasetSection);
    WriteControls(xml, *FDataSetBindControlList);
    xml.WriteStartElement(FieldSection);
    for (int group = 0; group < FieldGroupCount(); ++group) {
        xml.WriteStartElement(Group(group).Name);
        WriteGroupControls(xml, FieldList(group));
        xml.WriteFullEndElement();
    }
    xml.WriteFullEndElement();
    xml.WriteFullEndElement();
    FModified = false;
}
