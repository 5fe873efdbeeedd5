#include "ide/MrvNotifiers.h"
#include "ide/MrvSvcManager.h"
#include "support/PrintQt.h"
#include "support/ToolWindowFixture.h"

namespace {

// The listeners on the real host, held by the test so that they can be looked at after their end.
class Listeners : public ToolWindowFixture {
protected:
    void SetUp() override
    {
        StartPlugin();
        Shop.Form(u"MainForm"_qs).Form(u"Other"_qs);
        Open(Shop);
        Told.clear();
    }
    InterfacePtr<IOTAModule> ModuleOf(const QString& form) { return TheHost->FindOpenModule(Shop.UnitOf(form)); }
    InterfacePtr<IOTAFormEditor> EditorOf(const QString& form) { return &FormOf(form).FormEditor(); }
    TNotifierEvent Note(const QString& text)
    {
        return [this, text](TObject*) { Told << text; };
    }

    TNotifierList Registered;
    QStringList Told;
};

}

TEST_F(Listeners, AreRegisteredOnceTheyAreMade)
{
    const auto form = New<TFormNotifier>(EditorOf(u"MainForm"_qs), &Registered);
    const auto module = New<TModuleNotifier>(ModuleOf(u"MainForm"_qs), &Registered);
    const auto ide = New<TIdeNotifier>(InterfaceCast<IOTAServices>(BorlandIDEServices), nullptr);
    EXPECT_EQ(form->FName, Shop.FormOf(u"MainForm"_qs));
    EXPECT_EQ(module->FName, Shop.UnitOf(u"MainForm"_qs));
    EXPECT_EQ(ide->FName, u"IDENotifier"_qs);
    EXPECT_GE(form->FIndex, 0);
    EXPECT_GE(module->FIndex, 0);
    EXPECT_GE(ide->FIndex, 0);
    EXPECT_EQ(form->FOwnerIndex, 0);
    EXPECT_EQ(module->FOwnerIndex, 1);
    EXPECT_EQ(ide->FOwnerIndex, -1);
    ide->Destroyed();
}

TEST_F(Listeners, ForwardWhatAFormTells)
{
    const auto form = New<TFormNotifier>(EditorOf(u"MainForm"_qs), nullptr);
    form->FOnFormActivated = Note(u"activated"_qs);
    form->FOnFormSaving = Note(u"saving"_qs);
    form->FOnModified = Note(u"modified"_qs);
    form->FOnComponentRenamed = [this, &form](TObject* sender, TOTAHandle, const QString& old, const QString& now) {
        EXPECT_EQ(sender, form.get());
        Told << old + u"->"_qs + now;
    };
    form->FormActivated();
    form->FormSaving();
    form->Modified();
    form->ComponentRenamed(nullptr, u"A"_qs, u"B"_qs);
    EXPECT_EQ(Told, QStringList({ u"activated"_qs, u"saving"_qs, u"modified"_qs, u"A->B"_qs }));
    form->FOnFormActivated = nullptr;
    form->FormActivated();
    EXPECT_EQ(Told.size(), 4);
}

TEST_F(Listeners, ForwardWhatTheIdeTells)
{
    const auto ide = New<TIdeNotifier>(InterfaceCast<IOTAServices>(BorlandIDEServices), nullptr);
    ide->FOnFileNotification = [this](TObject*, TOTAFileNotification code, const QString& name, bool& cancel) {
        Told << QString::number(code) + u' ' + name;
        cancel = true;
    };
    ide->FOnBeforeCompile = [this](TObject*, IOTAProject*, bool& cancel) {
        Told << u"before"_qs;
        cancel = true;
    };
    ide->FOnAfterCompile
        = [this](TObject*, bool succeeded) { Told << (succeeded ? u"compiled"_qs : u"not compiled"_qs); };
    EXPECT_TRUE(TheHost->Notify(ofnFileOpened, u"x.pas"_qs));
    bool cancel = false;
    ide->BeforeCompile(nullptr, cancel);
    EXPECT_TRUE(cancel);
    ide->AfterCompile(true);
    EXPECT_EQ(Told, QStringList({ u"1 x.pas"_qs, u"before"_qs, u"compiled"_qs }));
    ide->Destroyed();
    EXPECT_FALSE(TheHost->Notify(ofnFileOpened, u"x.pas"_qs));
}

TEST_F(Listeners, AModuleTakesItsNewNameAfterTheHandlerSawTheOldOne)
{
    const auto module = New<TModuleNotifier>(ModuleOf(u"MainForm"_qs), &Registered);
    const auto old = module->FName;
    module->FOnModuleRenamed = [&](TObject*, const QString& oldName, const QString& newName) {
        Told << oldName << newName;
        EXPECT_EQ(module->FName, old);
    };
    module->ModuleRenamed(u"New.pas"_qs);
    EXPECT_EQ(Told, QStringList({ old, u"New.pas"_qs }));
    EXPECT_EQ(Registered.IndexOfName(old), -1);
    EXPECT_EQ(Registered.IndexOfName(u"New.pas"_qs), 0);
    EXPECT_EQ(Registered.IndexOfName(u"NEW.pas"_qs), -1);
    EXPECT_TRUE(module->CheckOverwrite());
    module->Modified();
    EXPECT_EQ(Told.size(), 2);
}

TEST_F(Listeners, EndOnceAndOnlyOnce)
{
    const auto form = New<TFormNotifier>(EditorOf(u"MainForm"_qs), &Registered);
    const auto module = New<TModuleNotifier>(ModuleOf(u"MainForm"_qs), &Registered);
    const auto ide = New<TIdeNotifier>(InterfaceCast<IOTAServices>(BorlandIDEServices), &Registered);
    // A form is told of before anything is taken apart, the others afterwards.
    form->FOnDestroyed = [&](TObject*) { Told << u"form %1"_qs.arg(form->FIndex >= 0); };
    module->FOnDestroyed = [&](TObject*) { Told << u"module %1"_qs.arg(module->FIndex); };
    ide->FOnDestroyed = [&](TObject*) { Told << u"ide %1"_qs.arg(ide->FIndex); };
    for (int i = 0; i < 2; ++i) {
        form->Destroyed();
        module->Destroyed();
        ide->Destroyed();
    }
    EXPECT_EQ(Told, QStringList({ u"form 1"_qs, u"module -1"_qs, u"ide -1"_qs }));
    EXPECT_FALSE(form->FFormEditor);
    EXPECT_FALSE(module->FModule);
    EXPECT_FALSE(ide->FServices);
    EXPECT_FALSE(bool(module->FOnDestroyed));
    EXPECT_EQ(Registered.Count(), 3);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(Registered.Item(i), nullptr);
}

TEST_F(Listeners, AreFoundByNamePastTheGaps)
{
    const auto first = New<TFormNotifier>(EditorOf(u"MainForm"_qs), &Registered);
    const auto second = New<TFormNotifier>(EditorOf(u"Other"_qs), &Registered);
    first->Destroyed();
    EXPECT_EQ(Registered.IndexOfName(Shop.FormOf(u"MainForm"_qs)), -1);
    EXPECT_EQ(Registered.IndexOfName(Shop.FormOf(u"Other"_qs)), 1);
    second->Destroyed();
}

TEST_F(Listeners, ATearDownIsToldOfByModulesAlone)
{
    const auto form = New<TFormNotifier>(EditorOf(u"MainForm"_qs), &Registered);
    const auto module = New<TModuleNotifier>(ModuleOf(u"MainForm"_qs), &Registered);
    const auto ide = New<TIdeNotifier>(InterfaceCast<IOTAServices>(BorlandIDEServices), &Registered);
    form->FOnDestroyed = Note(u"form"_qs);
    module->FOnDestroyed = Note(u"module"_qs);
    ide->FOnDestroyed = Note(u"ide"_qs);
    Registered.Clear();
    EXPECT_EQ(Told, QStringList(u"module"_qs));
    EXPECT_EQ(Registered.Count(), 0);
    EXPECT_EQ(form->FIndex, -1);
    EXPECT_EQ(ide->FIndex, -1);
}

TEST_F(Listeners, LogTheirLife)
{
    StartLog();
    {
        const auto module = New<TModuleNotifier>(ModuleOf(u"MainForm"_qs), &Registered);
        Registered.Clear();
    }
    EXPECT_EQ(TakeLog(),
        LogText::Of({ u"Notifier TModuleNotifier.Create"_qs, u"Notifier TModuleNotifier.EraseCallBack"_qs,
            u"Notifier TModuleNotifier.Destroy"_qs }));
}

TEST_F(Listeners, KnowTheDesignerLastHeardOf)
{
    const auto designs = New<TDesignNotification>();
    designs->FOnDesignerInitialized = [this](TObject*, const InterfacePtr<IDesigner>&) { Told << u"opened"_qs; };
    designs->FOnDesignerClosed = [this](TObject*, const InterfacePtr<IDesigner>&) { Told << u"closed"_qs; };
    const InterfacePtr<IDesigner> designer(&DesignerOf(u"MainForm"_qs));
    EXPECT_TRUE(designs->FEnableFieldSelections);
    designs->DesignerOpened(designer, false);
    EXPECT_EQ(designs->FDesigner.get(), designer.get());
    designer->SelectComponent(DesignerOf(u"MainForm"_qs).Root());
    designs->DesignerClosed(designer, false);
    EXPECT_FALSE(designs->FDesigner);
    EXPECT_EQ(DesignerOf(u"MainForm"_qs).Selection().size(), 0);
    designs->DesignerClosed(designer, true);
    designs->SelectionChanged(designer, CreateSelectionList());
    EXPECT_EQ(designs->FDesigner.get(), designer.get());
    EXPECT_EQ(Told, QStringList({ u"opened"_qs, u"closed"_qs, u"closed"_qs }));
}
