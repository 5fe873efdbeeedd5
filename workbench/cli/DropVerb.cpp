#include "cli/DropVerb.h"

#include "classes/Controls.h"
#include "cli/LineDifference.h"
#include "rtl/SysUtils.h"
#include "services/Module.h"
#include "services/Project.h"
#include "ui/TCustomTreeView.h"

#include <QFile>
#include <QRegularExpression>

DropVerb::DropVerb()
    : ProjectVerb(QStringLiteral("drop"), QStringLiteral("Does what a drag from the tree onto a form does, and saves."))
{
    AddProjectOptions();
    Parser.addOption({ QStringLiteral("form"), QStringLiteral("The form to drop on."), QStringLiteral("FORM") });
    Parser.addOption({ QStringLiteral("item"),
        QStringLiteral("A dataset, or a field or definition of one; several stack downwards."),
        QStringLiteral("FORM.DATASET[.FIELD]") });
    Parser.addOption({ QStringLiteral("at"), QStringLiteral("Where, in the form's pixels; else below what is there."),
        QStringLiteral("X,Y") });
    Parser.addOption(
        { QStringLiteral("control"), QStringLiteral("The control to make; else the one that is configured."),
            QStringLiteral("CLASS|Details|None") });
    Parser.addOption({ QStringLiteral("dry-run"), QStringLiteral("Print what would change, and save nothing.") });
    AddConnectionOptions();
}

ExitStatus DropVerb::Run()
{
    if (Parser.positionalArguments().size() != 1)
        return Misused(QStringLiteral("name one project"));
    if (!Parser.isSet(QStringLiteral("form")) || !Parser.isSet(QStringLiteral("item")))
        return Misused(QStringLiteral("name a form and at least one item"));
    static const QRegularExpression position(QStringLiteral("^-?\\d+,-?\\d+$"));
    if (Parser.isSet(QStringLiteral("at")) && !position.match(Parser.value(QStringLiteral("at"))).hasMatch())
        return Misused(QStringLiteral("--at takes X,Y"));
    SessionOptions options;
    options.Parts.MessageBox = [](const QString& text, TMsgDlgType, TMsgDlgButtons buttons) {
        Complain(text);
        return buttons.testFlag(mbYes) ? mrYes : mrOk;
    };
    if (!Start(options) || !OpenProject())
        return Failed;
    auto* module = OpenForm(Parser.value(QStringLiteral("form")));
    if (!module || !Act(QStringLiteral("acScanAll")) || !Act(QStringLiteral("acGroupByNone")))
        return Failed;
    return DropOn(*module) && TellAndSave() ? Done : Failed;
}

Module* DropVerb::OpenForm(const QString& formName)
{
    auto& host = TheSession().TheHost();
    auto* project = host.ActiveProject();
    for (const auto& module : project ? project->Description().Modules : QList<ModuleDescription>())
        if (SameText(module.FormName, formName)) {
            auto* opened = host.ShowModule(module.FileName, project);
            if (opened && opened->HasDesigner())
                return opened;
            return nullptr; // why was reported
        }
    Complain(QStringLiteral("The project has no form %1").arg(formName));
    return nullptr;
}

TTreeNode* DropVerb::FindField(TTreeNode* dataSet, const QString& field)
{
    // "0 - Title[String]{qryBooksTitle}" of a field, "Title[String]" of a definition.
    static const QRegularExpression caption(QStringLiteral("^(?:\\d+ - )?(.*?)(?:\\[\\w+\\])?(?:\\{(\\w*)\\})?$"));
    for (int group = 0; group < dataSet->Count(); ++group)
        for (int i = 0; dataSet->Item(group)->Text() == QLatin1String("Fields") && i < dataSet->Item(group)->Count();
             ++i) {
            auto* node = dataSet->Item(group)->Item(i);
            const auto parts = caption.match(node->Text());
            if (SameText(parts.capturedView(1), field) || SameText(parts.capturedView(2), field))
                return node;
        }
    return nullptr;
}

TTreeNode* DropVerb::FindItem(const QString& item)
{
    const auto parts = item.split(u'.');
    auto* node = parts.size() < 2 ? nullptr : FindDataSet(parts[0] + u'.' + parts[1]);
    if (node && parts.size() > 2)
        node = FindField(node, QStringList(parts.mid(2)).join(u'.'));
    if (!node)
        Complain(QStringLiteral("There is no %1 in the tree; fields without definitions need --connect").arg(item));
    return node;
}

bool DropVerb::SelectItems(QList<TTreeNode*>& nodes)
{
    const auto items = Parser.values(QStringLiteral("item"));
    if (Parser.isSet(QStringLiteral("connect")))
        for (const auto& item : items)
            if (!DescribeEach({ item.section(u'.', 0, 1) }))
                return false;
    for (const auto& item : items) {
        nodes << FindItem(item);
        if (!nodes.last())
            return false;
    }
    return true;
}

bool DropVerb::ChooseControl(const QList<TTreeNode*>& nodes)
{
    const auto control = Parser.value(QStringLiteral("control"));
    for (auto* node : control.isEmpty() ? QList<TTreeNode*>() : nodes) {
        Tree()->Select(node);
        bool chosen = false;
        QMetaObject::invokeMethod(
            TheSession().ToolWindow(), "ChooseControl", Q_RETURN_ARG(bool, chosen), Q_ARG(QString, control));
        if (!chosen) {
            Complain(
                QStringLiteral("%1 is not among the controls that are configured for %2").arg(control, node->Text()));
            return false;
        }
    }
    return true;
}

// Below everything that stands on the form, where nothing else was asked for.
QPoint DropVerb::Position(const Designer& designer) const
{
    const auto at = Parser.value(QStringLiteral("at"));
    if (!at.isEmpty())
        return { at.section(u',', 0, 0).toInt(), at.section(u',', 1, 1).toInt() };
    int bottom = 0;
    for (auto* component : designer.Root()->Components())
        if (const auto* control = dynamic_cast<TControl*>(component); control && control->Parent() == designer.Root())
            bottom = std::max(bottom, control->Top() + control->Height());
    return { 8, bottom + 8 };
}

bool DropVerb::DropOn(Module& module)
{
    QList<TTreeNode*> nodes;
    if (!SelectItems(nodes) || !ChooseControl(nodes))
        return false;
    auto* tree = Tree();
    tree->Select(nodes);
    auto* drag = tree->StartDragObject();
    const auto at = Position(module.TheDesigner());
    const bool dropped = drag
        && TheSession().TheHost().DropOnDesigner(
            module.TheDesigner(), module.TheDesigner().Root(), *drag, at.x(), at.y());
    if (!dropped)
        Complain(QStringLiteral("The form does not take this: a dataset without fields and definitions, an item whose "
                                "control is None, or a data module"));
    Settle();
    return dropped;
}

bool DropVerb::TellAndSave()
{
    auto& host = TheSession().TheHost();
    QList<Module*> changed;
    for (auto* module : host.Modules()) {
        const auto files = module->ChangedFiles();
        for (const auto& file : files) {
            QFile old(file.FileName);
            const auto before = old.open(QIODevice::ReadOnly) ? old.readAll() : QByteArray();
            Print(file.FileName + u'\n' + LineDifference(before, file.Bytes).join(u'\n') + u'\n');
        }
        if (!files.isEmpty())
            changed << module;
    }
    if (Parser.isSet(QStringLiteral("dry-run")))
        return true;
    const auto failure = host.Save(changed);
    if (failure)
        Complain(failure->ToString());
    return !failure;
}
