#include "support/ToolWindowFixture.h"

#include "data/TDataSet.h"
#include "data/TextFields.h"
#include "ide/MrvExpert.h"
#include "package/MrvPackage.h"
#include "rtl/TRegistry.h"
#include "support/MrvConst.h"

#include <QCoreApplication>
#include <QStatusBar>

namespace {

InterfacePtr<TMrvConfigurationService> MakeConfiguration()
{
    const auto service = New<TMrvConfigurationService>();
    service->SetAcitvePersonality(prVCL);
    InterfacePtr<IMrvPersonalityUISettings> vcl;
    service->GetCurrentPersonality(vcl);
    for (const auto& name : { QStringLiteral("DBGrid"), QStringLiteral("DBCtrlGrid") })
        vcl->AddDataSetInfo(name, u'T' + name);
    const int strings = vcl->GetFieldGroupIndex(QStringLiteral("ftString"));
    vcl->AddFieldInfo(strings, QStringLiteral("DBEdit"), QStringLiteral("TDBEdit"));
    vcl->AddFieldInfo(strings, QStringLiteral("DBMemo"), QStringLiteral("TDBMemo"));
    vcl->AddFieldInfo(
        vcl->GetFieldGroupIndex(QStringLiteral("ftInteger")), QStringLiteral("DBEdit"), QStringLiteral("TDBEdit"));
    return service;
}

}

ToolWindowFixture::ToolWindowFixture()
    : HostFixture(Catalogues::Installed)
{
    Registry.Write(IDEInfos[IDEVer].MorvaneRegistryKey, QStringLiteral("ConfigFilePath"), Folder.path() + u'/');
    TRegistryStore::SetDefault(&Registry);
    MakeConfiguration()->Save();
}

ToolWindowFixture::~ToolWindowFixture()
{
    StopPlugin();
    TheHost.reset();
    TRegistryStore::SetDefault(nullptr);
}

void ToolWindowFixture::StartPlugin()
{
    FRuns = true;
    MrvPackage::Initialize();
    MrvExpert::Register();
}

void ToolWindowFixture::StopPlugin()
{
    if (std::exchange(FRuns, false))
        MrvPackage::Finalize();
}

void ToolWindowFixture::StartShown()
{
    StartPlugin();
    Window().show();
}

void ToolWindowFixture::OpenShop()
{
    Shop.DataModule(QStringLiteral("Data"),
        QStringLiteral("object Shop: TZAConnection\nend\nobject Archive: TZAConnection\nend\n"
                       "object Books: TZAQuery\nConnection = Shop\n"
                       "object BooksId: TIntegerField\nFieldName = 'Id'\nend\n"
                       "object BooksTitle: TStringField\nFieldName = 'Title'\nSize = 80\nend\nend\n"
                       "object BooksSource: TDataSource\nDataSet = Books\nend\n"
                       "object Authors: TZAQuery\nConnection = Shop\nMasterSource = BooksSource\nend\n"
                       "object Loose: TZAQuery\nend\n"
                       "object Memory: TClientDataSet\nend"));
    Shop.Form(QStringLiteral("MainForm"), QStringLiteral("object Local: TZATable\nConnection = Data.Archive\nend"));
    Open(Shop);
    Settle();
}

TDataSetList& ToolWindowFixture::List()
{
    return *static_cast<TDataSetList*>(MrvApiProxy->GetDataSetList().get());
}

InterfacePtr<IMrvPreferences> ToolWindowFixture::Preferences()
{
    InterfacePtr<IMrvPreferences> preferences;
    MrvConfigurationService->GetPreferences(preferences);
    return preferences;
}

void ToolWindowFixture::SetPreference(const QString& name, const QString& value)
{
    Preferences()->SetValueByName(name, value);
}

QString ToolWindowFixture::Preference(const QString& name)
{
    QString value;
    Preferences()->GetValueByName(name, value);
    return value;
}

void ToolWindowFixture::Group(TGroupMode mode)
{
    TAction* actions[] = { Window().acGroupByNone, Window().acGroupByForm, Window().acGroupByConnection };
    actions[mode]->Execute();
}

std::string ToolWindowFixture::Text()
{
    QString text;
    for (const auto* node = Tree().Items().GetFirstNode(); node; node = node->GetNext())
        text += QString(node->Level() * 2, u' ') + node->Text() + u'\n';
    return text.toStdString();
}

std::string ToolWindowFixture::MarkedText()
{
    QString text;
    for (const auto* node = Tree().Items().GetFirstNode(); node; node = node->GetNext())
        text += QString(node->Level() * 2, u' ') + node->Text() + (node->Expanded() ? u" >"_qs : u""_qs)
            + (node->Selected() ? u" *\n"_qs : u"\n"_qs);
    return text.toStdString();
}

std::string ToolWindowFixture::FreshText()
{
    auto* own = FormInstance;
    const InterfacePtr<IMrvEvents> events = MrvApiProxy->FEvents;
    std::string text;
    {
        TMrvToolWindow fresh;
        FormInstance = &fresh;
        fresh.DrawDataSetView(dmLoad);
        text = Text();
    }
    FormInstance = own;
    MrvApiProxy->RegisterForm(own);
    return text;
}

TTreeNode* ToolWindowFixture::Node(const QString& path)
{
    auto* node = Tree().Items().GetFirstNode();
    for (const auto& step : path.split(u'/', Qt::SkipEmptyParts)) {
        auto* child = node ? node->GetFirstChild() : nullptr;
        while (child && child->Text() != step)
            child = child->GetNextSibling();
        node = child;
    }
    return node;
}

QString ToolWindowFixture::StatusText()
{
    return Window().twStatusBar->currentMessage();
}

void ToolWindowFixture::Settle()
{
    QCoreApplication::sendPostedEvents();
    Clock.Advance(200);
    QCoreApplication::sendPostedEvents();
}

TDataSet& ToolWindowFixture::DataSet(const QString& formDotName)
{
    auto* dataSet = dynamic_cast<TDataSet*>(Component(formDotName));
    if (!dataSet)
        qFatal("no dataset %s", qPrintable(formDotName));
    return *dataSet;
}

void ToolWindowFixture::AddField(const QString& formDotName, const QString& fieldName)
{
    auto& dataSet = DataSet(formDotName);
    DesignerOf(formDotName.section(u'.', 0, 0))
        .CreateField(&dataSet, TStringField::Class(), dataSet.Name() + fieldName, [&](TField* field) {
            field->SetFieldName(fieldName);
            field->SetDataSet(&dataSet);
        });
}

void ToolWindowFixture::Delete(const QStringList& formDotNames)
{
    QList<TComponent*> components;
    for (const auto& name : formDotNames)
        components << Component(name);
    DesignerOf(formDotNames.first().section(u'.', 0, 0)).DeleteComponents(components);
}

void ToolWindowFixture::Rename(const QString& formDotName, const QString& newName)
{
    DesignerOf(formDotName.section(u'.', 0, 0)).RenameComponent(*Component(formDotName), newName);
}

void ToolWindowFixture::StartLog()
{
    const auto service = MrvConfigurationService
        ? MrvConfigurationService
        : InterfacePtr<IMrvConfigurationService>(New<TMrvConfigurationService>());
    InterfacePtr<IMrvPreferences> preferences;
    service->GetPreferences(preferences);
    preferences->SetValueByName(QStringLiteral("DebugMode"), QStringLiteral("True"));
    preferences->SetValueByName(QStringLiteral("DebugPath"), Folder.path());
    service->Save();
    QFile file(LogFile());
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
}

std::string ToolWindowFixture::TakeLog()
{
    const auto text = LogText::Read(LogFile());
    QFile::resize(LogFile(), 0);
    return text;
}
