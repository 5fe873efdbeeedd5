#include "support/HostFixture.h"

#include "rtl/SysUtils.h"

namespace {

class RenamingRoots : public PackagedHostFixture {
protected:
    void OpenExample(const QString& example, const QString& project)
    {
        ExampleFolder = Folder.filePath(example);
        QDir().mkpath(ExampleFolder);
        const QDir source(QStringLiteral(MORVANE_SOURCE_DIR "/examples/") + example);
        for (const auto& file : source.entryList(QDir::Files))
            QFile::copy(source.filePath(file), ExampleFolder + u'/' + file);
        ASSERT_TRUE(TheHost->Open(ExampleFolder + u'/' + project));
        for (const auto& file : QDir(ExampleFolder).entryList(QDir::Files))
            Before.insert(file, ScriptedProject::Read(ExampleFolder + u'/' + file));
    }
    void Rename(const QString& form, const QString& newName)
    {
        DesignerOf(form).RenameComponent(*DesignerOf(form).Root(), newName);
    }
    std::string Refusal(const QString& form, const QString& newName)
    {
        try {
            Rename(form, newName);
        } catch (const EComponentError& error) {
            return QString(error.Message()).remove(Shop.Path() + u'/').toStdString();
        }
        return "done";
    }
    // What saving everything changes on disk, file by file.
    std::string Saved()
    {
        if (const auto failure = TheHost->SaveAll())
            return failure->ToString().toStdString();
        std::string text;
        for (auto file = Before.cbegin(); file != Before.cend(); ++file)
            if (const auto now = ScriptedProject::Read(ExampleFolder + u'/' + file.key()); now != *file)
                text += file.key().toStdString() + '\n' + LineDifference(*file, now);
        return text;
    }

    QString ExampleFolder;
    QMap<QString, QByteArray> Before;
    ScriptedProject Shop;
    HostRecorder Recorder { *TheHost };
};

}

TEST_F(RenamingRoots, TakesClassVariableMethodsAndProjectAlong)
{
    OpenExample(QStringLiteral("bookshop-lazarus"), QStringLiteral("shop.lpi"));
    Rename(u"frmMain"_qs, u"frmShop"_qs);
    EXPECT_EQ(Saved(),
        "mainform.lfm\n"
        "-object frmMain: TfrmMain\n"
        "+object frmShop: TfrmShop\n"
        "mainform.pas\n"
        "-{ TfrmMain }\n"
        "+{ TfrmShop }\n"
        "-TfrmMain = class(TForm)\n"
        "+TfrmShop = class(TForm)\n"
        "-frmMain: TfrmMain;\n"
        "+frmShop: TfrmShop;\n"
        "-{ TfrmMain }\n"
        "+{ TfrmShop }\n"
        "-procedure TfrmMain.btnOrdersClick(Sender: TObject);\n"
        "+procedure TfrmShop.btnOrdersClick(Sender: TObject);\n"
        "shop.lpi\n"
        "-<ComponentName Value=\"frmMain\"/>\n"
        "+<ComponentName Value=\"frmShop\"/>\n"
        "shop.lpr\n"
        "-Application.CreateForm(TfrmMain, frmMain);\n"
        "+Application.CreateForm(TfrmShop, frmShop);\n"
        "shop.lps\n"
        "-<ComponentName Value=\"frmMain\"/>\n"
        "+<ComponentName Value=\"frmShop\"/>\n");
    EXPECT_EQ(Problems(), "");
}

TEST_F(RenamingRoots, OpensWhatRefersToTheFormAndTakesItAlong)
{
    OpenExample(QStringLiteral("bookshop-lazarus"), QStringLiteral("shop.lpi"));
    ASSERT_EQ(TheHost->FormModule(u"frmOrders"_qs), nullptr);
    Rename(u"dmShop"_qs, u"dmBooks"_qs);
    ASSERT_NE(TheHost->FormModule(u"frmOrders"_qs), nullptr);
    const auto changes = Saved();
    EXPECT_NE(changes.find("ordersform.lfm\n-DataSource = dmShop.dsOrders\n+DataSource = dmBooks.dsOrders\n"),
        std::string::npos)
        << changes;
    for (const auto* file : { "mainform.lfm", "ordersform.lfm", "mainform.pas", "ordersform.pas", "shop.lpr" })
        EXPECT_FALSE(ScriptedProject::Read(ExampleFolder + u'/' + QLatin1String(file)).contains("dmShop")) << file;
    EXPECT_EQ(GetObjectProp(Component(u"frmMain.grdBooks"_qs), u"DataSource"_qs), Component(u"dmBooks.dsBooks"_qs));
}

TEST_F(RenamingRoots, ADelphiProjectNamesTheFormInProgramAndProjectFile)
{
    OpenExample(QStringLiteral("bookshop"), QStringLiteral("bookshop.dproj"));
    Rename(u"MainForm"_qs, u"ShopWindow"_qs);
    EXPECT_EQ(Saved(),
        "Main.dfm\n"
        "-object MainForm: TMainForm\n"
        "+object ShopWindow: TShopWindow\n"
        "Main.pas\n"
        "-TMainForm = class(TForm)\n"
        "+TShopWindow = class(TForm)\n"
        "-MainForm: TMainForm;\n"
        "+ShopWindow: TShopWindow;\n"
        "-procedure TMainForm.actCustomersExecute(Sender: TObject);\n"
        "+procedure TShopWindow.actCustomersExecute(Sender: TObject);\n"
        "-procedure TMainForm.actOrdersExecute(Sender: TObject);\n"
        "+procedure TShopWindow.actOrdersExecute(Sender: TObject);\n"
        "-procedure TMainForm.edtSearchChange(Sender: TObject);\n"
        "+procedure TShopWindow.edtSearchChange(Sender: TObject);\n"
        "-procedure TMainForm.mniExitClick(Sender: TObject);\n"
        "+procedure TShopWindow.mniExitClick(Sender: TObject);\n"
        "bookshop.dpr\n"
        "-Main in 'Main.pas' {MainForm},\n"
        "+Main in 'Main.pas' {ShopWindow},\n"
        "-Application.CreateForm(TMainForm, MainForm);\n"
        "+Application.CreateForm(TShopWindow, ShopWindow);\n"
        "bookshop.dproj\n"
        "-<Form>MainForm</Form>\n"
        "+<Form>ShopWindow</Form>\n");
    EXPECT_EQ(TheHost->ActiveProject()->Description().MainForm, u"ShopWindow"_qs);
}

TEST_F(RenamingRoots, FormsThatInheritFollowTheirAncestor)
{
    OpenExample(QStringLiteral("bookshop"), QStringLiteral("bookshop.dproj"));
    TheHost->OpenModuleFile(ExampleFolder + QStringLiteral("/BaseEdit.pas"));
    Rename(u"frmBase"_qs, u"frmEdit"_qs);
    ASSERT_NE(TheHost->FormModule(u"frmOrders"_qs), nullptr);
    DesignerOf(u"frmEdit"_qs).CreateComponent(GetClass(u"TButton"_qs), nullptr, 8, 8, 0, 0);
    EXPECT_NE(Component(u"frmOrders.Button1"_qs), nullptr);
    TheHost->Undo().Undo();
    ASSERT_EQ(TheHost->SaveAll(), std::nullopt);
    EXPECT_TRUE(
        ScriptedProject::Read(ExampleFolder + QStringLiteral("/Orders.pas")).contains("TfrmOrders = class(TfrmEdit)"));
    ASSERT_TRUE(TheHost->Open(ExampleFolder + QStringLiteral("/bookshop.dproj")));
    TheHost->OpenModuleFile(ExampleFolder + QStringLiteral("/Orders.pas"));
    EXPECT_EQ(Problems(), "");
    EXPECT_EQ(DesignerOf(u"frmOrders"_qs).GetAncestorDesigner()->GetRoot(), Component(u"frmEdit"_qs));
}

TEST_F(RenamingRoots, AFrameIsRenamedOnTheFormsThatHoldIt)
{
    OpenExample(QStringLiteral("bookshop"), QStringLiteral("bookshop.dproj"));
    TheHost->OpenModuleFile(ExampleFolder + QStringLiteral("/AddressFrame.pas"));
    Rename(u"fraAddress"_qs, u"fraPlace"_qs);
    ASSERT_EQ(TheHost->SaveAll(), std::nullopt);
    EXPECT_EQ(LineDifference(Before.value(u"Customers.dfm"_qs),
                  ScriptedProject::Read(ExampleFolder + QStringLiteral("/Customers.dfm"))),
        "-inline fraHome: TfraAddress\n+inline fraHome: TfraPlace\n");
    EXPECT_TRUE(
        ScriptedProject::Read(ExampleFolder + QStringLiteral("/Customers.pas")).contains("fraHome: TfraPlace;"));
}

TEST_F(RenamingRoots, UndoAndRedoGoOverAllOfIt)
{
    OpenExample(QStringLiteral("bookshop"), QStringLiteral("bookshop.dproj"));
    Rename(u"dmBookshop"_qs, u"dmStock"_qs);
    const auto renamed = Saved();
    EXPECT_NE(renamed, "");
    ASSERT_TRUE(TheHost->Undo().Undo());
    EXPECT_EQ(Saved(), "");
    EXPECT_EQ(FormOf(u"dmBookshop"_qs).RootClass(), u"TdmBookshop"_qs);
    ASSERT_TRUE(TheHost->Undo().Redo());
    EXPECT_EQ(Saved(), renamed);
    EXPECT_EQ(
        GetObjectProp(Component(u"MainForm.grdAuthors"_qs), u"DataSource"_qs), Component(u"dmStock.dsAuthors"_qs));
}

TEST_F(RenamingRoots, TheLiveComponentsAreOfTheNewClass)
{
    OpenExample(QStringLiteral("bookshop"), QStringLiteral("bookshop.dproj"));
    for (const auto* unit : { "AddressFrame", "Customers" })
        TheHost->OpenModuleFile(ExampleFolder + u'/' + QLatin1String(unit) + u".pas"_qs);
    Rename(u"fraAddress"_qs, u"fraPlace"_qs);
    EXPECT_EQ(Component(u"fraPlace"_qs)->ClassName(), u"TfraPlace"_qs);
    EXPECT_EQ(Component(u"frmCustomers.fraHome"_qs)->ClassName(), u"TfraPlace"_qs);
    TheHost->Undo().Undo();
    EXPECT_EQ(Component(u"fraAddress"_qs)->ClassName(), u"TfraAddress"_qs);
    EXPECT_EQ(Component(u"frmCustomers.fraHome"_qs)->ClassName(), u"TfraAddress"_qs);
}

TEST_F(RenamingRoots, UndoGoesOverAUnitWithoutAForm)
{
    Shop.Form(u"MainForm"_qs).Unit(u"Helpers"_qs);
    Shop.UnitFile(
        u"Helpers"_qs, "unit Helpers;\ninterface\nuses MainFormUnit;\nimplementation\nbegin\n  MainForm.Show;\nend.\n");
    Open(Shop);
    Rename(u"MainForm"_qs, u"Window"_qs);
    auto* helpers = TheHost->FindOpenModule(Shop.Path(u"Helpers.pas"_qs));
    ASSERT_NE(helpers, nullptr);
    EXPECT_TRUE(helpers->IsModified());
    TheHost->Undo().Undo();
    EXPECT_FALSE(TheHost->IsModified());
}

TEST_F(RenamingRoots, TellsOfTheNewNameOnce)
{
    Shop.Form(u"MainForm"_qs).DataModule(u"Data"_qs, u"object Books: TZAQuery\nend"_qs);
    Open(Shop);
    Recorder.Take();
    Rename(u"Data"_qs, u"Stock"_qs);
    EXPECT_EQ(Recorder.Take(), "renamed DataUnit.dfm Data -> Stock\nselection Stock: Stock\nmodified Stock\n");
    TheHost->Undo().Undo();
    EXPECT_EQ(
        Recorder.Take(), "renamed DataUnit.dfm Stock -> Data\nselection Data: Data\nmodified Data\nmodified Data\n");
}

TEST_F(RenamingRoots, ANameThatTheProjectHasIsRefused)
{
    Shop.Form(u"MainForm"_qs).DataModule(u"Data"_qs);
    Open(Shop);
    EXPECT_EQ(Refusal(u"Data"_qs, u"mainform"_qs), "The project has a form named mainform already");
    EXPECT_EQ(Refusal(u"Data"_qs, u"MainFormUnit"_qs), "The project has a unit named MainFormUnit already");
    EXPECT_EQ(Refusal(u"Data"_qs, u"Shop"_qs), "The program itself is called Shop");
    EXPECT_FALSE(TheHost->IsModified());
}

TEST_F(RenamingRoots, WhatCannotFollowKeepsEverythingAsItWas)
{
    Shop.Form(u"MainForm"_qs).DataModule(u"Data"_qs).Unit(u"Helpers"_qs);
    Shop.UnitFile(u"Helpers"_qs,
        "unit Helpers;\ninterface\nuses DataUnit;\nvar Stock: Integer;\nimplementation\nbegin\n  Data.Free;\nend.\n");
    Shop.KeepClosed(u"Helpers"_qs);
    Open(Shop);
    Recorder.Take();
    EXPECT_EQ(Refusal(u"Data"_qs, u"Stock"_qs), "Helpers.pas:4:5: Stock means something else here already");
    EXPECT_EQ(DesignerOf(u"Data"_qs).RootName(), u"Data"_qs);
    EXPECT_FALSE(TheHost->IsModified());
    EXPECT_FALSE(TheHost->Undo().CanUndo());
    EXPECT_EQ(Recorder.Take(), "file ofnFileOpened Helpers.pas\n");
}

TEST_F(RenamingRoots, AClassThatDoesNotGoByTheNameStays)
{
    Shop.Form(u"MainForm"_qs).FormFile(u"MainForm"_qs, "object Window: TMainForm\r\nend\r\n");
    Open(Shop);
    const auto unit = UnitText(u"Window"_qs);
    Rename(u"Window"_qs, u"Other"_qs);
    EXPECT_EQ(FormText(u"Other"_qs), "object Other: TMainForm\r\nend\r\n");
    EXPECT_EQ(UnitText(u"Other"_qs), unit);
}

TEST_F(RenamingRoots, SavingTheFormSavesWhatRefersToIt)
{
    Shop.Form(u"MainForm"_qs).InheritedForm(u"Orders"_qs, u"MainForm"_qs).Uses(u"Orders"_qs, u"MainFormUnit"_qs);
    Open(Shop);
    Rename(u"MainForm"_qs, u"Window"_qs);
    ASSERT_EQ(TheHost->Save(FormOf(u"Orders"_qs)), std::nullopt);
    EXPECT_FALSE(TheHost->IsModified());
    EXPECT_TRUE(ScriptedProject::Read(Shop.UnitOf(u"Orders"_qs)).contains("class(TWindow)"));
    EXPECT_TRUE(ScriptedProject::Read(Shop.UnitOf(u"MainForm"_qs)).contains("Window: TWindow;"));
    EXPECT_TRUE(ScriptedProject::Read(Shop.Path(u"Shop.dpr"_qs)).contains("CreateForm(TWindow, Window)"));
}

TEST_F(RenamingRoots, ClosingTheFormUnsavedGivesUpTheRenamingEverywhere)
{
    Shop.Form(u"MainForm"_qs).InheritedForm(u"Orders"_qs, u"MainForm"_qs).Uses(u"Orders"_qs, u"MainFormUnit"_qs);
    Open(Shop);
    Rename(u"MainForm"_qs, u"Window"_qs);
    TheHost->CloseModule(FormOf(u"Orders"_qs));
    EXPECT_FALSE(TheHost->IsModified());
    EXPECT_NE(TheHost->FormModule(u"MainForm"_qs), nullptr);
    ASSERT_EQ(TheHost->SaveAll(), std::nullopt);
    EXPECT_TRUE(ScriptedProject::Read(Shop.Path(u"Shop.dpr"_qs)).contains("CreateForm(TMainForm, MainForm)"));
}

TEST_F(RenamingRoots, ACppFormIsRenamedInBothFilesAndTheProgram)
{
    OpenExample(QStringLiteral("bookshop-cpp"), QStringLiteral("shopcpp.cbproj"));
    Rename(u"dmShop"_qs, u"dmBooks"_qs);
    const auto changes = Saved();
    for (const auto& file : Before.keys())
        EXPECT_FALSE(ScriptedProject::Read(ExampleFolder + u'/' + file).contains("dmShop")) << qPrintable(file) << '\n'
                                                                                            << changes;
}
