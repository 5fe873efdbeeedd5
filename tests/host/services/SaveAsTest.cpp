#include "support/HostFixture.h"

#include "projects/ProjectReader.h"

#include <QDirIterator>

namespace {

// The files of a folder as they stood, and what changed since, file by file.
class FolderState {
public:
    explicit FolderState(const QString& folder)
        : FFolder(folder)
        , FBefore(Read())
    {
    }
    std::string Changes() const
    {
        std::string text;
        const auto now = Read();
        for (auto file = now.cbegin(); file != now.cend(); ++file) {
            const auto before = FBefore.constFind(file.key());
            if (before == FBefore.cend())
                text += "new " + file.key().toStdString() + '\n';
            else if (*before != *file)
                text += file.key().toStdString() + '\n' + LineDifference(*before, *file);
        }
        for (auto file = FBefore.cbegin(); file != FBefore.cend(); ++file)
            if (!now.contains(file.key()))
                text += "gone " + file.key().toStdString() + '\n';
        return text;
    }

private:
    QMap<QString, QByteArray> Read() const
    {
        QMap<QString, QByteArray> files;
        QDirIterator walk(FFolder, QDir::Files, QDirIterator::Subdirectories);
        while (walk.hasNext()) {
            const auto file = walk.next();
            files.insert(QDir(FFolder).relativeFilePath(file), ScriptedProject::Read(file));
        }
        return files;
    }

    QString FFolder;
    QMap<QString, QByteArray> FBefore;
};

class SavingAs : public PackagedHostFixture {
protected:
    void OpenExample(const QString& example, const QString& project)
    {
        ExampleFolder = Folder.filePath(example);
        QDir().mkpath(ExampleFolder);
        const QDir source(QStringLiteral(MORVANE_SOURCE_DIR "/examples/") + example);
        for (const auto& file : source.entryList(QDir::Files))
            QFile::copy(source.filePath(file), ExampleFolder + u'/' + file);
        ASSERT_TRUE(TheHost->Open(ExampleFolder + u'/' + project));
    }
    QString InExample(const QString& file) const { return ExampleFolder + u'/' + file; }
    std::string SaveAs(Module& module, const QString& fileName)
    {
        const auto failure = TheHost->SaveAs(module, fileName);
        return failure ? failure->ToString().remove(Shop.Path() + u'/').toStdString() : "done";
    }

    QString ExampleFolder;
    ScriptedProject Shop;
    HostRecorder Recorder { *TheHost };
};

}

TEST_F(SavingAs, WritesUnitAndFormAnewAndNamesThemInTheDelphiProject)
{
    OpenExample(QStringLiteral("bookshop"), QStringLiteral("bookshop.dproj"));
    const FolderState before(ExampleFolder);
    EXPECT_EQ(SaveAs(FormOf(u"MainForm"_qs), InExample(u"ShopWindow.pas"_qs)), "done");
    EXPECT_EQ(before.Changes(),
        "new ShopWindow.dfm\n"
        "new ShopWindow.pas\n"
        "bookshop.dpr\n"
        "-Main in 'Main.pas' {MainForm},\n"
        "+ShopWindow in 'ShopWindow.pas' {MainForm},\n"
        "bookshop.dproj\n"
        "-<DCCReference Include=\"Main.pas\">\n"
        "+<DCCReference Include=\"ShopWindow.pas\">\n"
        "bookshop.dsk\n"
        "-Module1=Main.pas\n"
        "+Module1=ShopWindow.pas\n"
        "-[Main.pas]\n"
        "+[ShopWindow.pas]\n");
    EXPECT_EQ(LineDifference(ScriptedProject::Read(InExample(u"Main.pas"_qs)),
                  ScriptedProject::Read(InExample(u"ShopWindow.pas"_qs))),
        "-unit Main;\n+unit ShopWindow;\n");
    EXPECT_EQ(ScriptedProject::Read(InExample(u"ShopWindow.dfm"_qs)), ScriptedProject::Read(InExample(u"Main.dfm"_qs)));
    EXPECT_FALSE(TheHost->IsModified());
}

TEST_F(SavingAs, UnitsThatUseItNameItAnewAlsoWhereTheyAreNotOpen)
{
    OpenExample(QStringLiteral("bookshop-lazarus"), QStringLiteral("shop.lpi"));
    const FolderState before(ExampleFolder);
    EXPECT_EQ(SaveAs(FormOf(u"dmShop"_qs), InExample(u"books.pas"_qs)), "done");
    EXPECT_EQ(before.Changes(),
        "new books.lfm\n"
        "new books.pas\n"
        "mainform.pas\n"
        "-ShopData, OrdersForm;\n"
        "+books, OrdersForm;\n"
        "ordersform.pas\n"
        "-ShopData;\n"
        "+books;\n"
        "shop.lpi\n"
        "-<Filename Value=\"shopdata.pas\"/>\n"
        "+<Filename Value=\"books.pas\"/>\n"
        "-<UnitName Value=\"ShopData\"/>\n"
        "+<UnitName Value=\"books\"/>\n"
        "shop.lpr\n"
        "-Forms, ShopData, MainForm, OrdersForm;\n"
        "+Forms, books, MainForm, OrdersForm;\n"
        "shop.lps\n"
        "-<Filename Value=\"shopdata.pas\"/>\n"
        "+<Filename Value=\"books.pas\"/>\n"
        "-<UnitName Value=\"ShopData\"/>\n"
        "+<UnitName Value=\"books\"/>\n");
    EXPECT_EQ(FormOf(u"frmMain"_qs).Unit()->ImplementationUses(), QStringList({ u"books"_qs, u"OrdersForm"_qs }));
    EXPECT_FALSE(TheHost->IsModified());
}

TEST_F(SavingAs, ACppUnitTakesItsHeaderAlong)
{
    OpenExample(QStringLiteral("bookshop-cpp"), QStringLiteral("shopcpp.cbproj"));
    const FolderState before(ExampleFolder);
    EXPECT_EQ(SaveAs(FormOf(u"dmShop"_qs), InExample(u"Books"_qs)), "done");
    EXPECT_EQ(
        before.Changes(),
        "new Books.cpp\n"
        "new Books.dfm\n"
        "new Books.h\n"
        "MainUnit.cpp\n"
        "-#include \"DataUnit.h\"\n"
        "+#include \"Books.h\"\n"
        "shopcpp.cbproj\n"
        "-<CppCompile Include=\"DataUnit.cpp\">\n"
        "+<CppCompile Include=\"Books.cpp\">\n"
        "-<DependentOn>DataUnit.h</DependentOn>\n"
        "+<DependentOn>Books.h</DependentOn>\n"
        "shopcpp.cpp\n"
        "-USEFORM(\"DataUnit.cpp\", dmShop); /* TDataModule: File Type */\n"
        "+USEFORM(\"Books.cpp\", dmShop); /* TDataModule: File Type */\n"
        "shopcpp.dsk\n"
            + [this] {
                  auto text = ScriptedProject::Read(InExample(u"shopcpp.dsk"_qs));
                  std::string expected;
                  for (const auto& line : text.split('\n'))
                      if (line.contains("Books"))
                          expected += '-' + QByteArray(line).replace("Books", "DataUnit").trimmed().toStdString()
                              + "\n+" + line.trimmed().toStdString() + '\n';
                  return expected;
              }());
}

TEST_F(SavingAs, TheProjectThatItLeavesIsTheOneThatOpensAgain)
{
    OpenExample(QStringLiteral("bookshop"), QStringLiteral("bookshop.dproj"));
    SaveAs(FormOf(u"dmBookshop"_qs), InExample(u"sub/../Stock.pas"_qs));
    const auto& description = TheHost->ActiveProject()->Description();
    EXPECT_EQ(description.Modules, ReadProject(InExample(u"bookshop.dproj"_qs)).Modules);
    EXPECT_EQ(description.OpenFiles, ReadProject(InExample(u"bookshop.dproj"_qs)).OpenFiles);
    ASSERT_TRUE(TheHost->Open(InExample(u"bookshop.dproj"_qs)));
    EXPECT_EQ(Problems(), "");
    EXPECT_EQ(FormOf(u"dmBookshop"_qs).UnitFile(), InExample(u"Stock.pas"_qs));
}

TEST_F(SavingAs, TellsOfTheModuleThenOfTheFormThenOfTheFile)
{
    Shop.Form(u"MainForm"_qs).DataModule(u"Data"_qs);
    Open(Shop);
    Recorder.Take();
    QStringList known;
    Recorder.OnLine = [&](const QString&) {
        const auto* module = TheHost->FindOpenModule(Shop.Path(u"Store.pas"_qs));
        QString unit;
        QString form;
        QString project;
        if (module)
            DesignerOf(u"Data"_qs).ModuleFileNames(unit, form, project);
        known << QFileInfo(unit).fileName() + u' ' + QFileInfo(form).fileName() + u' '
                + QFileInfo(GetActiveProject()->GetModule(1)->GetFileName()).fileName();
    };
    EXPECT_EQ(SaveAs(FormOf(u"Data"_qs), Shop.Path(u"Store.pas"_qs)), "done");
    EXPECT_EQ(Recorder.Take(),
        "saving DataUnit.dfm\n"
        "module DataUnit.pas renamed to Store.pas\n"
        "destroyed DataUnit.dfm\n"
        "file ofnFileOpened Store.dfm\n");
    known.removeFirst();
    EXPECT_EQ(known, QStringList(3, u"Store.pas Store.dfm Store.pas"_qs));
}

TEST_F(SavingAs, TellsOfOtherKindsOfFormFilesUnderTheExtensionThatPlugInsKnow)
{
    ScriptedProject lazarus(u"shop"_qs, ScriptedProject::Kind::Lazarus);
    lazarus.Form(u"MainForm"_qs).DataModule(u"Data"_qs);
    Open(lazarus);
    Recorder.Take();
    EXPECT_FALSE(TheHost->SaveAs(FormOf(u"Data"_qs), lazarus.Path(u"store.pas"_qs)));
    EXPECT_EQ(Recorder.Take(),
        "saving DataUnit.lfm\n"
        "module DataUnit.pas renamed to store.pas\n"
        "destroyed DataUnit.lfm\n"
        "file ofnFileOpened store.dfm\n");
    EXPECT_EQ(FormOf(u"Data"_qs).FormFile(), lazarus.Path(u"store.lfm"_qs));
}

TEST_F(SavingAs, WhatIsUnsavedInAnotherUnitStaysUnsaved)
{
    Shop.Form(u"MainForm"_qs).DataModule(u"Data"_qs).Uses(u"MainForm"_qs, u"DataUnit"_qs);
    Open(Shop);
    const auto unit = Shop.UnitOf(u"MainForm"_qs);
    const auto onDisk = ScriptedProject::Read(unit);
    DesignerOf(u"MainForm"_qs).CreateComponent(GetClass(u"TButton"_qs), nullptr, 8, 8, 0, 0);
    EXPECT_EQ(SaveAs(FormOf(u"Data"_qs), Shop.Path(u"Store.pas"_qs)), "done");
    EXPECT_EQ(LineDifference(onDisk, ScriptedProject::Read(unit)),
        "-System.Classes, Vcl.Forms, DataUnit;\n+System.Classes, Vcl.Forms, Store;\n");
    EXPECT_EQ(LineDifference(ScriptedProject::Read(unit), UnitText(u"MainForm"_qs)),
        "-System.Classes, Vcl.Forms, Store;\n+System.Classes, Vcl.Forms, Store, Vcl.StdCtrls;\n"
        "+Button1: TButton;\n");
    EXPECT_TRUE(FormOf(u"MainForm"_qs).IsModified());
}

TEST_F(SavingAs, WhatWasDoneBeforeCanStillBeUndone)
{
    Shop.Form(u"MainForm"_qs).DataModule(u"Data"_qs).Uses(u"MainForm"_qs, u"DataUnit"_qs);
    Open(Shop);
    const auto form = FormText(u"Data"_qs);
    auto unit = UnitText(u"Data"_qs);
    DesignerOf(u"Data"_qs).CreateComponent(GetClass(u"TDataSource"_qs), nullptr, 8, 8, 0, 0);
    EXPECT_EQ(SaveAs(FormOf(u"Data"_qs), Shop.Path(u"Store.pas"_qs)), "done");
    const auto made = UnitText(u"Data"_qs);
    ASSERT_TRUE(TheHost->Undo().Undo());
    EXPECT_EQ(FormText(u"Data"_qs), form);
    EXPECT_EQ(UnitText(u"Data"_qs), unit.replace("unit DataUnit;", "unit Store;"));
    ASSERT_TRUE(TheHost->Undo().Redo());
    EXPECT_EQ(UnitText(u"Data"_qs), made);
    EXPECT_FALSE(TheHost->IsModified());
}

TEST_F(SavingAs, ARenamingFromBeforeCanStillBeUndone)
{
    OpenExample(QStringLiteral("bookshop"), QStringLiteral("bookshop.dproj"));
    const FolderState before(ExampleFolder);
    auto& designer = DesignerOf(u"MainForm"_qs);
    designer.RenameComponent(*designer.Root(), u"frmShop"_qs);
    ASSERT_FALSE(TheHost->SaveAll());
    EXPECT_EQ(SaveAs(FormOf(u"frmShop"_qs), InExample(u"ShopWindow.pas"_qs)), "done");
    ASSERT_TRUE(TheHost->Undo().Undo());
    ASSERT_FALSE(TheHost->SaveAll());
    for (const auto* old : { "Main.pas", "Main.dfm" })
        QFile::remove(InExample(QLatin1String(old)));
    EXPECT_EQ(before.Changes(),
        "new ShopWindow.dfm\n"
        "new ShopWindow.pas\n"
        "bookshop.dpr\n"
        "-Main in 'Main.pas' {MainForm},\n"
        "+ShopWindow in 'ShopWindow.pas' {MainForm},\n"
        "bookshop.dproj\n"
        "-<DCCReference Include=\"Main.pas\">\n"
        "+<DCCReference Include=\"ShopWindow.pas\">\n"
        "bookshop.dsk\n"
        "-Module1=Main.pas\n"
        "+Module1=ShopWindow.pas\n"
        "-[Main.pas]\n"
        "+[ShopWindow.pas]\n"
        "gone Main.dfm\n"
        "gone Main.pas\n");
    EXPECT_TRUE(ScriptedProject::Read(InExample(u"ShopWindow.pas"_qs)).contains("MainForm: TMainForm;"));
}

TEST_F(SavingAs, UnsavedChangesGoToTheNewFilesAlone)
{
    Shop.Form(u"MainForm"_qs).DataModule(u"Data"_qs);
    Open(Shop);
    const auto old = ScriptedProject::Read(Shop.FormOf(u"Data"_qs));
    DesignerOf(u"Data"_qs).CreateComponent(GetClass(u"TDataSource"_qs), nullptr, 8, 8, 0, 0);
    EXPECT_EQ(SaveAs(FormOf(u"Data"_qs), Shop.Path(u"Store.pas"_qs)), "done");
    EXPECT_EQ(ScriptedProject::Read(Shop.FormOf(u"Data"_qs)), old);
    EXPECT_EQ(ScriptedProject::Read(Shop.Path(u"Store.dfm"_qs)), FormText(u"Data"_qs));
    EXPECT_FALSE(TheHost->IsModified());
}

TEST_F(SavingAs, AFailureLeavesEverythingAsItWas)
{
    Shop.Form(u"MainForm"_qs).DataModule(u"Data"_qs).Uses(u"MainForm"_qs, u"DataUnit"_qs);
    Open(Shop);
    const FolderState before(Shop.Path());
    Recorder.Take();
    EXPECT_EQ(SaveAs(FormOf(u"Data"_qs), Shop.Path(u"nowhere/Store.pas"_qs)),
        "nowhere/Store.pas: cannot be saved: No such file or directory");
    EXPECT_EQ(before.Changes(), "");
    EXPECT_EQ(FormOf(u"Data"_qs).UnitFile(), Shop.UnitOf(u"Data"_qs));
    EXPECT_EQ(UnitText(u"Data"_qs), ScriptedProject::Read(Shop.UnitOf(u"Data"_qs)));
    EXPECT_EQ(UnitText(u"MainForm"_qs), ScriptedProject::Read(Shop.UnitOf(u"MainForm"_qs)));
    EXPECT_EQ(TheHost->ActiveProject()->GetModule(1)->GetFileName(), Shop.UnitOf(u"Data"_qs));
    EXPECT_EQ(Recorder.Take(), "saving DataUnit.dfm\n");
}

TEST_F(SavingAs, ANameThatWouldNotCompileIsRefused)
{
    Shop.Form(u"MainForm"_qs).DataModule(u"Data"_qs);
    Open(Shop);
    auto& data = FormOf(u"Data"_qs);
    EXPECT_EQ(SaveAs(data, Shop.Path(u"2nd.pas"_qs)), "2nd.pas: \"2nd\" is no name of a unit");
    EXPECT_EQ(SaveAs(data, Shop.Path(u"unit.pas"_qs)), "unit.pas: \"unit\" is no name of a unit");
    EXPECT_EQ(SaveAs(data, Shop.Path(u"Shop.pas"_qs)), "Shop.pas: the program itself is called Shop");
    EXPECT_EQ(SaveAs(data, Shop.Path(u"mainform.pas"_qs)), "mainform.pas: a form of the project is called mainform");
    EXPECT_EQ(SaveAs(data, Shop.Path(u"sub/MainFormUnit.pas"_qs)),
        "sub/MainFormUnit.pas: the project has a unit MainFormUnit already");
    EXPECT_EQ(SaveAs(data, Shop.Path(u"MainFormUnit.pas"_qs)), "MainFormUnit.pas: the file is open; close it first");
}

TEST_F(SavingAs, SaysWhichFilesItWouldWriteOver)
{
    Shop.Form(u"MainForm"_qs).DataModule(u"Data"_qs);
    Open(Shop);
    ScriptedProject::WriteFile(Shop.Path(u"Store.dfm"_qs), "somebody's");
    auto& data = FormOf(u"Data"_qs);
    EXPECT_EQ(TheHost->WrittenOverBySaveAs(data, Shop.Path(u"Store"_qs)), QStringList(Shop.Path(u"Store.dfm"_qs)));
    EXPECT_EQ(TheHost->WrittenOverBySaveAs(data, Shop.UnitOf(u"Data"_qs)), QStringList());
}

TEST_F(SavingAs, UnderItsOwnNameIsAnOrdinarySave)
{
    Shop.Form(u"MainForm"_qs);
    Open(Shop);
    DesignerOf(u"MainForm"_qs).CreateComponent(GetClass(u"TButton"_qs), nullptr, 8, 8, 0, 0);
    Recorder.Take();
    EXPECT_EQ(SaveAs(FormOf(u"MainForm"_qs), Shop.UnitOf(u"MainForm"_qs)), "done");
    EXPECT_EQ(Recorder.Take(), "saving MainFormUnit.dfm\n");
    EXPECT_FALSE(TheHost->IsModified());
}

TEST_F(SavingAs, AUnitWithoutAFormIsSavedToo)
{
    Shop.Form(u"MainForm"_qs).Unit(u"Helpers"_qs).Uses(u"MainForm"_qs, u"Helpers"_qs);
    Open(Shop);
    auto& helpers = *TheHost->OpenModuleFile(Shop.Path(u"Helpers.pas"_qs));
    EXPECT_EQ(SaveAs(helpers, Shop.Path(u"Tools.pas"_qs)), "done");
    EXPECT_EQ(ScriptedProject::Read(Shop.Path(u"Tools.pas"_qs)),
        "unit Tools;\r\n\r\ninterface\r\n\r\nimplementation\r\n\r\nend.\r\n");
    EXPECT_EQ(FormOf(u"MainForm"_qs).Unit()->InterfaceUses().last(), u"Tools"_qs);
}

TEST_F(SavingAs, AFormThatCannotBeReadIsCopiedAsItIs)
{
    Shop.Form(u"MainForm"_qs).Form(u"Broken"_qs).FormFile(u"Broken"_qs, "object Broken: TBroken\r\n  Left = ");
    Open(Shop);
    auto& broken = *TheHost->OpenModuleFile(Shop.UnitOf(u"Broken"_qs));
    EXPECT_EQ(SaveAs(broken, Shop.Path(u"Other.pas"_qs)), "done");
    EXPECT_EQ(ScriptedProject::Read(Shop.Path(u"Other.dfm"_qs)), "object Broken: TBroken\r\n  Left = ");
}
