#include "ide/MrvExpert.h"
#include "model/MrvInterfacesUnit.h"
#include "package/MrvPackage.h"
#include "rtl/ControlWord.h"
#include "support/MrvConst.h"
#include "support/PrintQt.h"
#include "support/ToolWindowFixture.h"
#include "visual/TImageList.h"

#include <QDir>

namespace {

class StartingUp : public ToolWindowFixture {
protected:
    static const QStringList UnitLines;
    static const QStringList RegisterLines;
    QStringList MenuItems() const
    {
        QStringList names;
        for (int i = 0; i < ToolsMenu->Count(); ++i)
            names << ToolsMenu->Items(i)->Name() + u'=' + ToolsMenu->Items(i)->Caption();
        return names;
    }
};

const QStringList StartingUp::UnitLines { u"MrvServicesProxy.Initialization - Try create TMrvApiProxy"_qs,
    u"***** Morvane is started *****"_qs, u"Notifier TIdeNotifier.Create"_qs,
    u"MrvServicesProxy.Initialization - success"_qs, u"MrvDragAndDropIntf.Initialization - Try Register DragTarget"_qs,
    u"MrvDragAndDropIntf.Initialization - success"_qs, u"MrvExpert.Initialization - Try create TMrvToolWindow"_qs,
    u"MrvExpert.Initialization - success"_qs };

const QStringList StartingUp::RegisterLines { u"procedure Register - Enter"_qs,
    u"procedure Register - Try add product info"_qs, u"procedure Register - Try create TMrvExpert"_qs,
    u"procedure Register - Try call RegisterPackageWizard"_qs,
    u"procedure Register - Try DockFrmExpert.AddToolsMeniItem"_qs,
    u"TMrvExpert.AddToolsMenuItem - Try get IDE TMain menu object"_qs };

}

TEST_F(StartingUp, LogsEachUnitThatStarts)
{
    StartLog();
    MrvPackage::Initialize();
    const auto log = TakeLog();
    MrvPackage::Finalize();
    EXPECT_EQ(log, LogText::Of(UnitLines));
}

TEST_F(StartingUp, LogsTheStepsOfTheRegistration)
{
    StartLog();
    MrvPackage::Initialize();
    TakeLog();
    MrvExpert::Register();
    const auto log = TakeLog();
    MrvPackage::Finalize();
    EXPECT_EQ(log,
        LogText::Of(RegisterLines
            + QStringList { u"TMrvExpert.AddToolsMenuItem - try find tools menu"_qs,
                u"TMrvExpert.AddToolsMenuItem - try add Mrv icon in IDE image list"_qs,
                u"TMrvExpert.AddToolsMenuItem - Create custom menu item"_qs,
                u"TMrvExpert.AddToolsMenuItem - try insert custom menu item in IDE main menu"_qs,
                u"TMrvExpert.AddToolsMenuItem - success"_qs, u"procedure Register - success"_qs }));
}

TEST_F(StartingUp, LogsTheFloatingPointStepWhereALogIsThere)
{
    StartLog();
    MrvConfigurationService = New<TMrvConfigurationService>();
    MrvInterfaces::Initialization();
    EXPECT_EQ(TakeLog(),
        LogText::Of({ u""_qs, u"Try load Morvane...."_qs, u"MrvInterfaces.Initialization - Try call Set8087CW"_qs,
            u"MrvInterfaces.Initialization - success"_qs }));
    MrvInterfaces::Finalization();
    EXPECT_EQ(TakeLog(),
        LogText::Of(
            { u"MrvInterfaces.finalization - Try call Set8087CW"_qs, u"MrvInterfaces.finalization - success"_qs }));
    MrvConfigurationService = nullptr;
}

TEST_F(StartingUp, InitialisesTheUnitsInTheirOrderAndEndsThemAll)
{
    MrvPackage::Initialize();
    EXPECT_EQ(MrvPackage::InitializedUnits().join(u' '),
        u"MrvConst MrvInterfaces MrvCfgIntf MrvUtils MrvDataPreview MrvIDECntrlList MrvInteropServices MrvClasses "
        "MrvServicesProxy MrvDragAndDropIntf MrvTreeView MrvMenus MrvPreferences MrvImageList MrvToolWindow "
        "MrvExpert"_qs);
    MrvPackage::Finalize();
    EXPECT_EQ(MrvPackage::InitializedUnits(), QStringList());
    EXPECT_EQ(MrvApiProxy, nullptr);
    EXPECT_EQ(FormInstance, nullptr);
    EXPECT_FALSE(MrvConfigurationService);
}

TEST_F(StartingUp, EndsTheUnitsThatStartedWhenOneFails)
{
    QFile file(Folder.filePath(u"Morvane.cfg"_qs));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no configuration");
    file.close();
    EXPECT_ANY_THROW(MrvPackage::Initialize());
    EXPECT_EQ(MrvPackage::InitializedUnits(), QStringList());
    EXPECT_FALSE(MrvConfigurationService);
    EXPECT_EQ(FormInstance, nullptr);
}

TEST_F(StartingUp, LogsEachUnitThatEndsWhileThereIsALog)
{
    StartLog();
    StartPlugin();
    TakeLog();
    StopPlugin();
    const auto log = TakeLog();
    EXPECT_EQ(log,
        LogText::Of({ u""_qs, u"***** Morvane prepare to destroy *****"_qs,
            u"MrvExpert.finalization: Try remove tool window..."_qs, u"MrvExpert.finalization: success"_qs,
            u"MrvMenus.finalization: Try free popup list"_qs, u"MrvMenus.finalization: success"_qs,
            u"MrvServicesProxy.finalization: Try free MrvApiProxy object"_qs, u"Try destroy TMrvApiProxy object"_qs,
            u"Notifier TIdeNotifier.Destroy"_qs, u"MrvServicesProxy.finalization: success"_qs }));
}

TEST_F(StartingUp, AWindowThatCannotBeMadeIsLoggedAndTheRestRuns)
{
    const auto service = New<TMrvConfigurationService>();
    InterfacePtr<IMrvPreferences> preferences;
    service->GetPreferences(preferences);
    preferences->SetValueByName(u"GroupMode"_qs, u"many"_qs);
    service->Save();
    StartLog();
    MrvPackage::Initialize();
    auto lines = UnitLines;
    lines.last() = u"MrvExpert.Initialization - failed"_qs;
    EXPECT_EQ(TakeLog(), LogText::Of(lines));
    EXPECT_EQ(FormInstance, nullptr);
    EXPECT_NE(MrvApiProxy, nullptr);
    MrvPackage::Finalize();
}

TEST_F(StartingUp, PutsItsItemAtTheTopOfTheToolsMenu)
{
    auto* other = new TMenuItem(&Menu);
    other->SetName(u"Other"_qs);
    other->SetCaption(u"Other"_qs);
    ToolsMenu->Add(other);
    StartPlugin();
    EXPECT_EQ(MenuItems(), QStringList({ u"BravikMorvane=Morvane"_qs, u"Other=Other"_qs }));
    EXPECT_FALSE(Window().IsWindowVisible());
    ToolsMenu->Items(0)->Click();
    EXPECT_TRUE(Window().IsWindowVisible());
}

TEST_F(StartingUp, FindsTheToolsMenuWhateverTheCaseOfItsName)
{
    ToolsMenu->SetName(u"TOOLSMENU"_qs);
    StartPlugin();
    EXPECT_EQ(MenuItems(), QStringList(u"BravikMorvane=Morvane"_qs));
}

TEST_F(StartingUp, RunsWithoutAToolsMenu)
{
    ToolsMenu->SetName(u"Nothing"_qs);
    StartLog();
    MrvPackage::Initialize();
    TakeLog();
    MrvExpert::Register();
    const auto log = TakeLog();
    MrvPackage::Finalize();
    EXPECT_EQ(log,
        LogText::Of(RegisterLines
            + QStringList { u"TMrvExpert.AddToolsMenuItem - try find tools menu"_qs,
                u"TMrvExpert.AddToolsMenuItem - try add Mrv icon in IDE image list"_qs,
                u"TMrvExpert.AddToolsMenuItem - Create custom menu item"_qs,
                u"TMrvExpert.AddToolsMenuItem - try insert custom menu item in IDE main menu"_qs,
                u"TMrvExpert.AddToolsMenuItem - Tools menu not found!"_qs, u"procedure Register - success"_qs }));
    EXPECT_EQ(MenuItems(), QStringList());
}

TEST_F(StartingUp, RunsWithoutAMainMenu)
{
    auto parts = TheHost->Parts();
    parts.MainMenu = nullptr;
    TheHost.reset();
    TheHost = std::make_unique<Host>(parts);
    StartLog();
    MrvPackage::Initialize();
    TakeLog();
    MrvExpert::Register();
    const auto log = TakeLog();
    MrvPackage::Finalize();
    EXPECT_EQ(log,
        LogText::Of(RegisterLines
            + QStringList {
                u"TMrvExpert.AddToolsMenuItem - IDE MainMenu not found!"_qs, u"procedure Register - success"_qs }));
}

TEST_F(StartingUp, GivesItsItemAnImageOfTheMainMenus)
{
    TImageList images;
    Menu.SetImages(&images);
    const int before = images.Count();
    StartPlugin();
    EXPECT_EQ(images.Count(), before + 1);
    EXPECT_EQ(ToolsMenu->Items(0)->ImageIndex(), before);
}

TEST_F(StartingUp, MasksEveryFloatingPointExceptionUntilItEnds)
{
    const unsigned own = Get8087CW();
    const unsigned unmasked = 4927 & ~1u;
    Set8087CW(unmasked);
    MrvPackage::Initialize();
    EXPECT_EQ(Get8087CW(), 4927u);
    MrvPackage::Finalize();
    EXPECT_EQ(Get8087CW(), unmasked);
    Set8087CW(own);
}

namespace {

class AboutBox : public Facade<IOTAAboutBoxServices> {
public:
    int AddProductInfo(const QString& companyName, const QString& legalLine, const QString& title,
        const QString& description, const QImage& aboutImage, const QImage& splashImage, bool unregistered,
        const QString& licenseStatus, const QString& skuName, bool other, bool another) override
    {
        Texts << companyName << legalLine << title << description << licenseStatus << skuName;
        Images << aboutImage << splashImage;
        Flags << unregistered << other << another;
        return 0;
    }
    QStringList Texts;
    QList<QImage> Images;
    QList<bool> Flags;
};

}

TEST_F(StartingUp, TellsTheAboutBoxOfTheProductInTheAgreedOrder)
{
    MrvPackage::Initialize();
    AboutBox aboutBox;
    const auto own = std::exchange(BorlandIDEServices, InterfacePtr<IInterface>(&aboutBox));
    MrvExpert::Register();
    BorlandIDEServices = own;
    MrvPackage::Finalize();
    EXPECT_EQ(aboutBox.Texts,
        QStringList({ u"Bravik"_qs, sProductLegal, u"Bravik Morvane"_qs, sProductDesc, QString(), QString() }));
    ASSERT_EQ(aboutBox.Images.size(), 2);
    EXPECT_FALSE(aboutBox.Images[0].isNull());
    EXPECT_EQ(aboutBox.Images[0], aboutBox.Images[1]);
    EXPECT_EQ(aboutBox.Flags, (QList<bool> { false, false, false }));
}

TEST_F(StartingUp, TellsTheProductAndTheWizard)
{
    StartPlugin();
    ASSERT_EQ(TheHost->Products.size(), 1);
    EXPECT_EQ(TheHost->Products[0].CompanyName, u"Bravik"_qs);
    EXPECT_FALSE(TheHost->Products[0].AboutImage.isNull());
    ASSERT_EQ(TheHost->Wizards().size(), 1);
    auto wizard = TheHost->Wizards()[0];
    EXPECT_EQ(wizard->GetIDString(), u"Bravik.Morvane"_qs);
    EXPECT_EQ(wizard->GetName(), u"Morvane"_qs);
    EXPECT_EQ(DockFrmExpert->GetMenuText(), u"Morvane"_qs);
    EXPECT_EQ(wizard->GetState(), TWizardStates(wsEnabled));
    EXPECT_FALSE(ShowOnStart);
}

TEST_F(StartingUp, ShowsNoProjectsBeforeThereIsOne)
{
    StartPlugin();
    EXPECT_EQ(Text(), "<No active projects>\n");
    EXPECT_FALSE(Window().IsWindowVisible());
    EXPECT_EQ(MrvApiProxy->GetActiveProjectName(), u"<No active projects>"_qs);
    EXPECT_FALSE(MrvApiProxy->GetIsProjectOpened());
    EXPECT_EQ(MrvApiProxy->FProjectPersonality, u"Delphi.Personality"_qs);
}
