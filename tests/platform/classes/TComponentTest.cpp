#include "classes/Forms.h"
#include "classes/TClassBuilder.h"
#include "rtl/SysUtils.h"

#include <gtest/gtest.h>

namespace {

TClass MakeClass(const QString& name, TClass parent, const QList<TPropInfo>& properties)
{
    auto info = std::make_unique<TClassInfo>();
    info->Name = name;
    info->Parent = parent;
    info->Properties = properties;
    return DefineClass(std::move(info));
}

}

TEST(TComponent, FindsWhatItOwnsByNameWithoutRegardToCase)
{
    TDataModule module;
    auto* query = new TComponent(&module);
    query->SetName(QStringLiteral("qryBooks"));
    EXPECT_EQ(module.FindComponent(QStringLiteral("QRYBOOKS")), query);
    EXPECT_EQ(module.FindComponent(QString()), nullptr);
}

TEST(TComponent, RefusesANameThatAnotherComponentOfTheOwnerBears)
{
    TDataModule module;
    auto* first = new TComponent(&module);
    auto* second = new TComponent(&module);
    first->SetName(QStringLiteral("Query1"));
    EXPECT_THROW(second->SetName(QStringLiteral("QUERY1")), EComponentError);
    EXPECT_THROW(second->SetName(QStringLiteral("1Query")), EComponentError);
}

TEST(TComponent, ClearsTheReferencesToAComponentThatGoes)
{
    const auto holder = MakeClass(QStringLiteral("THolder"), TComponent::Class(),
        { StoredProperty(QStringLiteral("Target"), { tkClass, QStringLiteral("TComponent"), {} }) });
    TDataModule module;
    auto* target = new TComponent(&module);
    auto* component = static_cast<TComponent*>(holder.Create(&module));
    SetObjectProp(component, QStringLiteral("target"), target);
    EXPECT_EQ(GetObjectProp(component, QStringLiteral("Target")), target);
    delete target;
    EXPECT_EQ(GetObjectProp(component, QStringLiteral("Target")), nullptr);
}

TEST(TComponent, AClassOfACatalogueBehavesAsItsNearestBuiltInAncestor)
{
    const auto edit = MakeClass(QStringLiteral("TTestEdit"), TWinControl::Class(),
        { StoredProperty(QStringLiteral("DataField"), { tkString, QStringLiteral("string"), {} }) });
    TForm form;
    auto* made = edit.Create(&form);
    EXPECT_EQ(made->ClassName(), QStringLiteral("TTestEdit"));
    EXPECT_TRUE(made->InheritsFrom(TControl::Class()));
    SetPropValue(made, QStringLiteral("Left"), 12);
    EXPECT_EQ(dynamic_cast<TControl*>(made)->Left(), 12);
    SetStrProp(made, QStringLiteral("DataField"), QStringLiteral("TITLE"));
    EXPECT_EQ(GetStrProp(made, QStringLiteral("DATAFIELD")), QStringLiteral("TITLE"));
    EXPECT_THROW(SetPropValue(made, QStringLiteral("Nothing"), 1), EPropertyError);
}

TEST(TComponent, AWeakReferenceIsNilOnceTheComponentIsGone)
{
    auto module = std::make_unique<TDataModule>();
    const WeakRef<TComponent> weak(module.get());
    EXPECT_EQ(weak.get(), module.get());
    module.reset();
    EXPECT_EQ(weak.get(), nullptr);
}

TEST(TComponent, ReportsChangesToTheDesignerOfItsRoot)
{
    struct Hook : IDesignerHook {
        QStringList Heard;
        void PropertyChanged(TPersistent* instance, const QString& property) override
        {
            Heard << static_cast<TComponent*>(instance)->Name() + u'.' + property;
        }
        void ValidateRename(TComponent*, const QString& oldName, const QString& newName) override
        {
            Heard << oldName + QLatin1String("->") + newName;
        }
        void Renamed(TComponent*, const QString& oldName) override { Heard << QLatin1String("was ") + oldName; }
    } hook;
    TForm form;
    form.SetDesignerHook(&hook);
    auto* control = new TCustomLabel(&form);
    control->SetName(QStringLiteral("Label1"));
    control->SetBounds({ 5, 6, 10, 10 });
    control->SetCaption(QStringLiteral("Title"));
    EXPECT_EQ(hook.Heard.join(u'\n'),
        QStringLiteral("->Label1\nwas \nLabel1.Left\nLabel1.Top\nLabel1.Caption\nLabel1.Width\nLabel1.Height"));
    form.SetDesignerHook(nullptr);
}
