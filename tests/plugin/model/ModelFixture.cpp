#include "ModelFixture.h"

#include "classes/Controls.h"
#include "classes/TClassBuilder.h"
#include "support/MrvConst.h"

namespace {

QString FullName(const InterfacePtr<IMrvDataSetAttr>& attr)
{
    QString name;
    InterfaceCast<IMrvCustomComponentAttr>(attr)->IntfComponentName(true, name);
    return name;
}

const TTypeInfo SourceType { tkClass, u"TDataSource"_qs, {} };
const TTypeInfo TextType { tkString, u"string"_qs, {} };

void DefineControl(const QString& name, TClass parent, const QList<TPropInfo>& properties, QSize size)
{
    auto info = std::make_unique<TClassInfo>();
    info->Name = name;
    info->Parent = parent;
    info->Properties = properties;
    info->Init = [size](TPersistent* made) {
        auto* control = static_cast<TControl*>(made);
        control->SetBounds(QRect(QPoint(0, 0), size));
    };
    RegisterClass(DefineClass(std::move(info)));
}

// The object through which some controls are bound.
class TestBinding : public TPersistent {
    MRV_CLASS
};

TClass TestBinding::Class()
{
    static TClassInfo info;
    static const TClass made = TClassBuilder<TestBinding>(info, u"TTestBinding"_qs, TPersistent::Class())
                                   .Stored(u"DataSource"_qs, SourceType)
                                   .Stored(u"DataField"_qs, TextType)
                                   .Made();
    return made;
}

TPropInfo BindingProperty(const QString& name)
{
    TPropInfo property { name, { tkClass, u"TTestBinding"_qs, {} }, {}, {}, {}, true };
    property.Get = [name](const TPersistent* object) {
        auto* owner = const_cast<TPersistent*>(object);
        if (!owner->SubObject(name))
            owner->AdoptSubObject(name, std::make_unique<TestBinding>());
        return QVariant::fromValue<TPersistent*>(owner->SubObject(name));
    };
    return property;
}

class TestLabel : public TCustomLabel {
    MRV_CLASS
    using TCustomLabel::TCustomLabel;
};

TClass TestLabel::Class()
{
    static TClassInfo info;
    static const TClass made = TClassBuilder<TestLabel>(info, u"TLabel"_qs, TCustomLabel::Class())
                                   .Property(u"Caption"_qs, &TestLabel::Caption, &TestLabel::SetCaption)
                                   .Made();
    return made;
}

}

void RegisterTestControls()
{
    if (GetClass(u"TUnbound"_qs))
        return;
    const auto source = StoredProperty(u"DataSource"_qs, SourceType);
    const auto field = StoredProperty(u"DataField"_qs, TextType);
    RegisterClass(TestLabel::Class());
    DefineControl(u"TDBEdit"_qs, TWinControl::Class(), { source, field }, { 121, 21 });
    DefineControl(u"TDBMemo"_qs, TWinControl::Class(), { source, field }, { 185, 89 });
    DefineControl(u"TDBGrid"_qs, TWinControl::Class(), { source }, { 320, 120 });
    DefineControl(u"TDBCtrlGrid"_qs, TWinControl::Class(), { source }, { 300, 216 });
    DefineControl(u"TUnbound"_qs, TWinControl::Class(), {}, { 75, 25 });
    DefineControl(u"TViewGrid"_qs, TWinControl::Class(), { source }, { 250, 200 });
    DefineControl(
        u"TBoundEdit"_qs, TWinControl::Class(), { source, field, BindingProperty(u"DataBinding"_qs) }, { 121, 21 });
    auto view = std::make_unique<TClassInfo>();
    view->Name = u"TGridView"_qs;
    view->Parent = TComponent::Class();
    view->Properties = { BindingProperty(u"DataController"_qs) };
    RegisterClass(DefineClass(std::move(view)));
}

void EventRecorder::Note(const QString& line)
{
    FLines << line.trimmed();
    if (OnLine)
        OnLine(FLines.last());
}

std::string EventRecorder::Take()
{
    std::string text;
    for (const auto& line : std::exchange(FLines, {}))
        text += line.toStdString() + '\n';
    return text;
}

void EventRecorder::OnComponentInsert(const InterfacePtr<IMrvCustomComponentAttr>& attr)
{
    QString name;
    attr->IntfComponentName(true, name);
    Note(u"OnComponentInsert "_qs + name);
}

void EventRecorder::OnComponentRename(
    const QString& oldName, const QString& newName, const InterfacePtr<IMrvDataSetAttr>&)
{
    Note(u"OnComponentRename %1 -> %2"_qs.arg(oldName, newName));
}

void EventRecorder::OnRefreshDatasetList(const QString& name, TMrvRefreshMode mode)
{
    static const QStringList modes { u"rmAdd"_qs, u"rmRemove"_qs, u"rmFullRefresh"_qs };
    Note(u"OnRefreshDatasetList %1 %2"_qs.arg(modes[mode], name.section(u'/', -1)));
}

void EventRecorder::OnRefershChildObject(const InterfacePtr<IMrvDataSetAttr>& attr, const QString& name, int action)
{
    Note(u"OnRefershChildObject %1 %2 %3"_qs.arg(FullName(attr)).arg(action).arg(name));
}

void EventRecorder::OnRefreshFieldDefs(const InterfacePtr<IMrvDataSetAttr>& attr)
{
    Note(u"OnRefreshFieldDefs "_qs + FullName(attr));
}

void EventRecorder::OnFieldIndexModified(
    const InterfacePtr<IMrvDataSetAttr>&, const InterfacePtr<IMrvFieldAttr>& field, int oldIndex, int newIndex)
{
    QString name;
    InterfaceCast<IMrvCustomComponentAttr>(field)->IntfComponentName(false, name);
    Note(u"OnFieldIndexModified %1 %2 -> %3"_qs.arg(name).arg(oldIndex).arg(newIndex));
}

void EventRecorder::OnFormRenamed(const QString& oldName, const QString& newName)
{
    Note(u"OnFormRenamed %1 -> %2"_qs.arg(oldName, newName));
}

void EventRecorder::OnSessionRenamed(const QString& oldName, const QString& newName)
{
    Note(u"OnSessionRenamed %1 -> %2"_qs.arg(oldName, newName));
}

ModelFixture::ModelFixture()
{
    RegisterTestControls();
    Registry.Write(IDEInfos[IDEVer].MorvaneRegistryKey, u"ConfigFilePath"_qs, Folder.path() + u'/');
    TRegistryStore::SetDefault(&Registry);
    Service = New<TMrvConfigurationService>();
    Service->SetAcitvePersonality(prVCL);
    MrvConfigurationService = Service;
    const auto vcl = Personality();
    for (const auto& name : { u"DBGrid"_qs, u"DBCtrlGrid"_qs })
        vcl->AddDataSetInfo(name, u'T' + name);
    vcl->AddDataSetInfo(NoneClassName, NoneClassName);
    vcl->AddDataSetInfo(DetailsClassName, DetailsClassName);
    const int strings = vcl->GetFieldGroupIndex(u"ftString"_qs);
    vcl->AddFieldInfo(strings, u"DBEdit"_qs, u"TDBEdit"_qs);
    vcl->AddFieldInfo(strings, u"DBMemo"_qs, u"TDBMemo"_qs);
    vcl->AddFieldInfo(vcl->GetFieldGroupIndex(u"ftInteger"_qs), u"DBEdit"_qs, u"TDBEdit"_qs);
}

ModelFixture::~ModelFixture()
{
    List.Clear();
    MrvConfigurationService = nullptr;
    TheHost.reset();
    TRegistryStore::SetDefault(nullptr);
}

InterfacePtr<IMrvPersonalityUISettings> ModelFixture::Personality()
{
    InterfacePtr<IMrvPersonalityUISettings> personality;
    Service->GetCurrentPersonality(personality);
    return personality;
}

void ModelFixture::SetPreference(const QString& name, const QString& value)
{
    InterfacePtr<IMrvPreferences> preferences;
    Service->GetPreferences(preferences);
    preferences->SetValueByName(name, value);
}

void ModelFixture::Attach()
{
    List = New<TDataSetList>();
    List->IntfRegisterConfigurationService(Service);
    List->RegisterEvents(Events);
    List->BuildDataSetList(true);
    List->IntfRegisterProjectNotifier();
    Events->Take();
}

void ModelFixture::OpenShop()
{
    Shop.DataModule(u"Data"_qs,
        u"object Shop: TZAConnection\nend\n"
        "object Books: TZAQuery\nConnection = Shop\n"
        "object BooksId: TIntegerField\nFieldName = 'Id'\nend\n"
        "object BooksTitle: TStringField\nFieldName = 'Title'\nSize = 80\nend\nend\n"
        "object Authors: TZAQuery\nend"_qs);
    Shop.Form(u"MainForm"_qs);
    Open(Shop);
    Attach();
}

TDataSetAttr* ModelFixture::DataSet(const QString& formDotName)
{
    return List->GetDataSetAttrByObj(Component(formDotName));
}

TConnectionAttr* ModelFixture::ConnectionOf(const QString& formDotName)
{
    return List->GetConnectionAttrByObj(Component(formDotName));
}

TFieldAttr* ModelFixture::Field(const QString& formDotName, const QString& field)
{
    auto* attr = DataSet(formDotName);
    return attr ? attr->FieldByName(field, smName) : nullptr;
}

std::string ModelFixture::TextOf(TDataSetList& list)
{
    QStringList lines;
    for (int i = 0; i < list.GetItemCount(); ++i) {
        auto* attr = list.GetItem(i);
        QString name;
        attr->IntfComponentName(true, name);
        QString session;
        attr->GetSessionName(session);
        auto line = u"%1: %2 in %3"_qs.arg(name, attr->GetComponentClassName(), session);
        QStringList fields;
        for (int field = 0; field < attr->GetFieldCount(); ++field)
            fields << attr->GetField(field)->GetDisplayName();
        fields.sort();
        for (int def = 0; def < attr->GetFieldDefsCount(); ++def)
            fields << u'<' + attr->GetFieldDefs(def)->FDisplayName + u'>';
        lines << line + (fields.isEmpty() ? QString() : u"; "_qs + fields.join(u", "_qs));
    }
    for (int i = 0; i < list.GetConnectionCount(); ++i) {
        QString session;
        list.GetConnection(i)->GetSessionName(session);
        lines << u"connection "_qs + session;
    }
    lines.sort();
    return (lines.join(u'\n') + u'\n').toStdString();
}

std::string ModelFixture::FreshText()
{
    const auto fresh = New<TDataSetList>();
    fresh->IntfRegisterConfigurationService(Service);
    fresh->BuildDataSetList(true);
    auto text = TextOf(*fresh);
    return text;
}
