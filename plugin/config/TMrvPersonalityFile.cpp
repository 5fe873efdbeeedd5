#include "config/ConfigurationSource.h"
#include "config/TBindableControlInfo.h"
#include "config/TMrvConfigurationService.h"
#include "config/TMrvPersonality.h"
#include "config/XmlTextWriter.h"
#include "rtl/TResourceStream.h"
#include "support/MrvConst.h"

#include <array>
#include <vector>

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

// Fills a list, empty at first, from the sections that a file has for it; most have one.
//
// The pseudo-controls come last whatever the number of sections, so they are added at the end; until then the list is
// asked for them no more than needed, and a file of a million controls is read in linear time.
class ListFiller {
public:
    explicit ListFiller(TBindableControlInfoList& list)
        : FList(list)
    {
    }

    // DefaultClass finds only what was added before it, so it must stand last, as the writer puts it.
    void Add(const QList<TMrvPersonality::TAttribute>& attributes)
    {
        FHasSection = true;
        for (const auto& attribute : attributes) {
            if (SameText(attribute.Name, DefaultClass))
                FList.SetDefaultItem(New<TBindableControlInfo>(attribute.Value.mid(1), attribute.Value));
            else
                Add(New<TBindableControlInfo>(attribute.Name, attribute.Value), attribute.Value);
        }
    }
    void AddPseudoControls(std::initializer_list<QString> names)
    {
        if (FHasSection)
            for (const auto& name : names)
                FList.AddPseudoControl(name);
    }

private:
    void Add(const TBindableControlInfoList::TItem& item, const QString& className)
    {
        if (FHasPseudoControl)
            FList.Add(item);
        else
            FList.Insert(FList.Count(), item);
        FHasPseudoControl = FHasPseudoControl || IsPseudoControl(className);
    }

    TBindableControlInfoList& FList;
    bool FHasSection = false;
    bool FHasPseudoControl = false;
};

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
    ListFiller dataSetFiller(*FDataSetBindControlList);
    std::vector<ListFiller> groupFillers;
    for (const auto& list : *FFieldBindControlList)
        groupFillers.emplace_back(*list);
    for (const auto& section : sections) {
        if (section.GroupName.isEmpty())
            dataSetFiller.Add(section.Attributes);
        else if (const int group = IndexOfGroup(section.GroupName); group >= 0)
            groupFillers[size_t(group)].Add(section.Attributes);
    }
    dataSetFiller.AddPseudoControls({ NoneClassName, DetailsClassName });
    for (auto& filler : groupFillers)
        filler.AddPseudoControls({ NoneClassName });
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
