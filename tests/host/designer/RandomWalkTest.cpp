#include "classes/Controls.h"
#include "data/TDataSet.h"
#include "data/TField.h"
#include "support/HostFixture.h"

#include <QRandomGenerator>

#include <algorithm>

namespace {

// Everything of a live form as text: each component with its class, its parent and the values that it publishes.
QString ValueText(const TPropInfo& property, const TPersistent& object)
{
    if (property.IsSubObject) {
        const auto* part = property.Get(&object).value<TPersistent*>();
        const auto* strings = dynamic_cast<const TStrings*>(part);
        return strings ? strings->Lines().join(u'|') : QString();
    }
    const auto value = property.Get(&object);
    if (property.PropType.Kind != tkClass)
        return value.typeId() == QMetaType::QStringList ? value.toStringList().join(u',') : value.toString();
    const auto* target = dynamic_cast<TComponent*>(value.value<TPersistent*>());
    return !target ? QStringLiteral("nil")
                   : (target->Owner() ? target->Owner()->Name() + u'.' : QString()) + target->Name();
}

QString ComponentText(const TComponent& component)
{
    auto text = component.Name() + u':' + component.ClassName();
    if (const auto* parent = component.GetParentComponent())
        text += u'<' + parent->Name();
    if (!dynamic_cast<const TControl*>(&component))
        text += QStringLiteral(" at %1,%2").arg(component.DesignLeft()).arg(component.DesignTop());
    text += QStringLiteral(" state %1").arg(int(component.ComponentState()));
    for (const auto* property : GetPropList(component.ClassType(), {}, true))
        if (property->Default.isValid() && property->Get(&component) == property->Default)
            continue;
        else if (const auto value = ValueText(*property, component); !value.isEmpty() && value != QLatin1String("nil"))
            text += QStringLiteral(" %1=%2").arg(property->Name, value);
    return text;
}

std::string LiveText(const TComponent& root)
{
    QStringList lines { ComponentText(root) };
    for (const auto* component : root.Components())
        lines << ComponentText(*component);
    std::sort(lines.begin() + 1, lines.end());
    return lines.join(u'\n').toStdString();
}

class RandomWalk : public PackagedHostFixture {
protected:
    const quint32 Seed = qEnvironmentVariableIntValue("MORVANE_SEED")
        ? quint32(qEnvironmentVariableIntValue("MORVANE_SEED"))
        : 20260101U;
    QRandomGenerator Random { Seed };
    QList<Module*> Forms;
    int Names = 0;

    void SetUp() override
    {
        ScriptedProject shop;
        shop.Form(u"BaseForm"_qs,
            u"object Panel: TPanel\nLeft = 0\nTop = 0\nWidth = 300\nHeight = 40\nobject Title: TLabel\nLeft = 8\n"
            "Top = 8\nWidth = 60\nHeight = 15\nCaption = 'Base'\nend\nend\n"
            "object Source: TDataSource\nDataSet = Data.Books\nLeft = 8\nTop = 8\nend"_qs);
        shop.InheritedForm(u"OrdersForm"_qs, u"BaseForm"_qs,
            u"inherited Panel: TPanel\nHeight = 60\nend\nobject Query: TZAQuery\nLeft = 8\nTop = 64\nend"_qs);
        shop.DataModule(u"Data"_qs,
            u"object Connection: TZAConnection\nLeft = 8\nTop = 8\nend\nobject Books: TZAQuery\n"
            "Connection = Connection\nSQL.Strings = (\n'select 1')\nLeft = 8\nTop = 64\nobject BooksId: "
            "TIntegerField\nFieldName = 'Id'\nend\n"
            "object BooksTitle: TStringField\nFieldName = 'Title'\nSize = 80\nend\nend"_qs);
        Open(shop);
        Kept = shop.TakeFolder();
        for (const auto* form : { "BaseForm", "OrdersForm", "Data" })
            Forms << &FormOf(QString::fromLatin1(form));
    }

    int Below(int limit) { return int(Random.bounded(limit)); }
    Designer& SomeDesigner() { return Forms[Below(int(Forms.size()))]->TheDesigner(); }
    TComponent* SomeComponent(Designer& designer)
    {
        const auto& components = designer.Root()->Components();
        return components.isEmpty() ? designer.Root() : components[Below(int(components.size()))];
    }

    void Create(Designer& designer)
    {
        const QStringList data { u"TZAQuery"_qs, u"TDataSource"_qs, u"TZAConnection"_qs };
        const QStringList visual { u"TEdit"_qs, u"TPanel"_qs, u"TDBEdit"_qs, u"TLabel"_qs };
        const bool isData = &designer == &Forms[2]->TheDesigner() || Below(2) == 0;
        const auto name = isData ? data[Below(3)] : visual[Below(4)];
        designer.CreateComponent(GetClass(name), SomeComponent(designer), Below(300), Below(200), 0, 0);
    }
    void Delete(Designer& designer)
    {
        QList<TComponent*> doomed;
        for (int i = Below(3); i >= 0; --i)
            doomed << SomeComponent(designer);
        designer.DeleteComponents(doomed);
    }
    void Rename(Designer& designer)
    {
        designer.RenameComponent(*SomeComponent(designer), QStringLiteral("Named%1").arg(Below(40)));
    }
    void Change(Designer& designer)
    {
        auto* component = SomeComponent(designer);
        auto* control = dynamic_cast<TControl*>(component);
        auto* field = dynamic_cast<TField*>(component);
        if (control)
            control->SetBounds({ Below(300), Below(300), 10 + Below(90), 10 + Below(30) });
        else if (field)
            field->SetIndex(Below(4));
        else
            component->SetDesignPosition(Below(300), Below(200));
        if (auto* strings = GetPropInfo(component, u"SQL"_qs)
                ? dynamic_cast<TStrings*>(GetObjectProp(component, u"SQL"_qs))
                : nullptr)
            strings->SetLines(Below(2) ? QStringList { QString::number(Below(9)) } : QStringList());
        designer.Modified();
    }
    void Link(Designer& designer)
    {
        auto* component = SomeComponent(designer);
        auto* target = SomeComponent(designer);
        for (const auto* name : { "DataSet", "Connection", "DataSource" })
            if (GetPropInfo(component, QString::fromLatin1(name))) {
                try {
                    SetObjectProp(component, QString::fromLatin1(name), Below(4) ? target : nullptr);
                } catch (const Exception&) {
                    // another class than the property takes
                }
            }
        designer.Modified();
    }
    void Step()
    {
        auto& designer = SomeDesigner();
        try {
            switch (Below(6)) {
            case 0:
            case 1:
                return Create(designer);
            case 2:
                return Delete(designer);
            case 3:
                return Rename(designer);
            case 4:
                return Link(designer);
            default:
                return Change(designer);
            }
        } catch (const EInvalidOperation&) {
            // what comes from the ancestor stays
        } catch (const EComponentError&) {
            // a name that is taken
        }
    }

    QList<QByteArray> Files()
    {
        QList<QByteArray> files;
        for (auto* form : Forms)
            files << form->TheDesigner().Form()->Document().Bytes() << form->Unit()->Files().first().Bytes;
        return files;
    }
    std::string Live()
    {
        std::string text;
        for (auto* form : Forms)
            text += LiveText(*form->TheDesigner().Root()) + "\n\n";
        return text;
    }
    // What the files say when they are read anew.
    std::string Fresh()
    {
        ::Problems problems;
        std::string text;
        std::vector<std::unique_ptr<LiveForm>> forms;
        for (auto* form : Forms) {
            const auto bytes = form->TheDesigner().Form()->Document().Bytes();
            auto read = FormDocument::Read(bytes);
            forms.push_back(std::make_unique<LiveForm>(std::move(*read), bytes, *form));
        }
        const auto find = [&forms](const QString& name) -> TComponent* {
            for (const auto& form : forms)
                if (form->Root() && SameText(form->Root()->Name(), name))
                    return form->Root();
            return nullptr;
        };
        for (const auto& form : { 2, 0, 1 })
            forms[size_t(form)]->Build(find, problems);
        for (const auto& form : forms)
            text += LiveText(*form->Root()) + "\n\n";
        return text;
    }

    // What the live forms are (-) where the files say something else (+).
    std::string Difference()
    {
        return LineDifference(QByteArray::fromStdString(Live()), QByteArray::fromStdString(Fresh()));
    }

    std::unique_ptr<QTemporaryDir> Kept;
};

}

TEST_F(RandomWalk, LiveFormsAreWhatTheirFilesSayAndUndoGoesBackByteForByte)
{
    SCOPED_TRACE("MORVANE_SEED=" + std::to_string(Seed));
    for (int round = 0; round < 6; ++round) {
        const auto first = Files();
        TheHost->Undo().Clear();
        for (int i = 0; i < 25; ++i) {
            Step();
            ASSERT_EQ(Difference(), "") << "round " << round << " step " << i;
        }
        const auto last = Files();
        int undone = 0;
        while (TheHost->Undo().CanUndo() && Below(8) != 0) {
            TheHost->Undo().Undo();
            ++undone;
            ASSERT_EQ(Difference(), "") << "round " << round << " after undo";
        }
        for (int i = 0; i < undone; ++i)
            TheHost->Undo().Redo();
        ASSERT_EQ(Files(), last) << "round " << round << " after redo";
        ASSERT_EQ(Difference(), "") << "round " << round << " after redo";
        while (TheHost->Undo().Undo())
            ;
        ASSERT_EQ(Files(), first) << "round " << round << " after undoing all";
        ASSERT_EQ(Difference(), "") << "round " << round << " after undoing all";
        while (TheHost->Undo().Redo())
            ;
    }
    EXPECT_EQ(Exceptions, QStringList());
}
