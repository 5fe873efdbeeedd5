#include "config/TMrvPersonality.h"

#include "config/TBindableControlInfo.h"
#include "config/TMrvConfigurationService.h"
#include "data/TFieldType.h"
#include "support/MrvConst.h"

#include <algorithm>
#include <array>

namespace {

const auto UnitName = QStringLiteral("MrvCfgIntf");

// The field types of the maker's data access library that TFieldType lacks. ftMSXML shares its value with ftObject, so
// that a look-up by value reaches one of the two; that is how the table stands.
struct ExtraGroup {
    const char* Name;
    int Value;
};
constexpr std::array<ExtraGroup, 8> ExtraGroups { {
    { "ftBFile", 100 },
    { "ftIntervalYM", 103 },
    { "ftIntervalDS", 104 },
    { "ftTimeStampTZ", 105 },
    { "ftTimeStampLTZ", 106 },
    { "ftNumber", 107 },
    { "ftXML", 108 },
    { "ftMSXML", 50 },
} };

}

TMrvPersonality::TMrvPersonality(TMrvConfigurationService* service, TPersonality personality)
    : FConfigurationService(service)
    , FPersonality(personality)
    , FDataSetBindControlList(New<TBindableControlInfoList>())
    , FFieldBindControlList(New<TInterfaceList<TBindableControlInfoList>>())
{
    FDataSetBindControlList->SetGroupName(QStringLiteral("DatasetSection"));
}

void TMrvPersonality::Clear()
{
    FFieldGroupList.clear();
    FFieldBindControlList->Clear();
}

void TMrvPersonality::AddGroup(const QVariantList& args)
{
    ::Assert(args.size() % 2 == 0, UnitName, QStringLiteral("Invalid Args count in AddGroup"));
    for (qsizetype i = 0; i < args.size(); i += 2) {
        FFieldGroupList.append({ args.at(i).toString(), args.at(i + 1).toInt() });
        FFieldBindControlList->Add(New<TBindableControlInfoList>());
    }
}

void TMrvPersonality::LoadFieldGroup()
{
    Clear();
    const auto& types = FieldTypeInfo().EnumNames;
    for (int type = 0; type < int(types.size()); ++type)
        AddGroup({ types.at(type), type });
    for (const auto& extra : ExtraGroups)
        AddGroup({ QString::fromLatin1(extra.Name), extra.Value });
    // The lists are all empty and stay where they are. Groups of one value stay in their order.
    std::stable_sort(FFieldGroupList.begin(), FFieldGroupList.end(),
        [](const TGroup& a, const TGroup& b) { return b.Value - a.Value < 0; });
    for (int group = 0; group < FieldGroupCount(); ++group)
        FieldList(group).SetGroupName(Group(group).Name);
}

int TMrvPersonality::IndexOfGroup(QStringView name) const
{
    for (int group = 0; group < int(FFieldGroupList.size()); ++group)
        if (SameText(FFieldGroupList.at(group).Name, name))
            return group;
    return -1;
}

int TMrvPersonality::IndexOfValue(int value) const
{
    const auto found = std::lower_bound(FFieldGroupList.begin(), FFieldGroupList.end(), value,
        [](const TGroup& group, int wanted) { return group.Value > wanted; });
    return found != FFieldGroupList.end() && found->Value == value ? int(found - FFieldGroupList.begin()) : -1;
}

const TMrvPersonality::TGroup& TMrvPersonality::Group(int group) const
{
    if (group < 0 || group >= int(FFieldGroupList.size()))
        throw EListError(QStringLiteral("Field group index out of bounds (%1)").arg(group));
    return FFieldGroupList.at(group);
}

int TMrvPersonality::GroupValue(int group) const
{
    return Group(group).Value;
}

TBindableControlInfoList& TMrvPersonality::FieldList(int group)
{
    return *FFieldBindControlList->Items(group);
}

void TMrvPersonality::GetFieldGroup(int group, QString& name)
{
    name = Group(group).Name;
}

int TMrvPersonality::GetFieldGroupIndex(const QString& name)
{
    const int index = IndexOfGroup(name);
    ::Assert(index >= 0, UnitName, QStringLiteral("TMrvPersonality.GetFieldGroupIndex: Unknown field group: ") + name);
    return index;
}

InterfacePtr<IMrvBindableControlInfoList> TMrvPersonality::FindFieldList(IInterface* attr)
{
    const auto field = InterfaceCast<IMrvCommonFieldAttr>(attr);
    if (!field)
        return nullptr;
    const int group = IndexOfValue(int(field->GetFieldType()));
    return group < 0 ? nullptr : InterfacePtr<IMrvBindableControlInfoList>(FFieldBindControlList->Items(group));
}

void TMrvPersonality::GetDefaultBindClassName(
    const InterfacePtr<IMrvCustomComponentAttr>& attr, InterfacePtr<IMrvBindableControlInfo>& item)
{
    item = nullptr;
    if (!InterfaceCast<IMrvDataSetAttr>(attr)) {
        if (const auto list = FindFieldList(attr.get()))
            list->GetDefaultItem(item);
        return;
    }
    if (!attr->IntfInheritsFrom(TCustomZASQLClassName) && !attr->IntfInheritsFrom(TZASctiptClassName))
        return FDataSetBindControlList->GetDefaultItem(item);
    // A statement or script is no dataset, though it stands among them: it is served by its own class.
    QString className;
    attr->IntfComponentClassName(className);
    item = New<TBindableControlInfo>(QString(), className);
}

void TMrvPersonality::EnumBindClassList(
    const InterfacePtr<IMrvCustomComponentAttr>& attr, InterfacePtr<IMrvBindableControlInfoList>& list)
{
    list = InterfaceCast<IMrvDataSetAttr>(attr) ? InterfacePtr<IMrvBindableControlInfoList>(FDataSetBindControlList)
                                                : FindFieldList(attr.get());
}

int TMrvPersonality::GetDataSetCtrlCount()
{
    return FDataSetBindControlList->GetCount();
}

int TMrvPersonality::GetFieldCtrlCount(const InterfacePtr<IMrvFieldAttr>& attr)
{
    const auto list = FindFieldList(attr.get());
    return list ? list->GetCount() : 0;
}

void TMrvPersonality::GetDataSetBindCtrlInfoList(InterfacePtr<IMrvBindableControlInfoList>& list)
{
    list = FDataSetBindControlList;
}

void TMrvPersonality::GetFieldBindCtrlInfoList(InterfacePtr<IMrvBindableControlInfoList>& list, int group)
{
    list = nullptr;
    list = FFieldBindControlList->Items(group);
}

void TMrvPersonality::DeleteDataSetInfo(const QString& className)
{
    FDataSetBindControlList->Delete(className);
    FModified = true;
}

void TMrvPersonality::DeleteFieldInfo(int group, const QString& className)
{
    FieldList(group).Delete(className);
    FModified = true;
}

void TMrvPersonality::AddDataSetInfo(const QString& caption, const QString& className)
{
    FDataSetBindControlList->Add(New<TBindableControlInfo>(caption, className));
    FModified = true;
}

void TMrvPersonality::AddFieldInfo(int group, const QString& caption, const QString& className)
{
    FieldList(group).Add(New<TBindableControlInfo>(caption, className));
    FModified = true;
}

void TMrvPersonality::SetDefaultDataSetInfo(const QString& className)
{
    InterfacePtr<IMrvBindableControlInfo> item;
    FDataSetBindControlList->ItemByClassName(className, item);
    FDataSetBindControlList->SetDefaultItem(item);
    FModified = true;
}

void TMrvPersonality::SetDefaultFieldInfo(int group, const QString& className)
{
    auto& list = FieldList(group);
    InterfacePtr<IMrvBindableControlInfo> item;
    list.ItemByClassName(className, item);
    list.SetDefaultItem(item);
    FModified = true;
}
