#include "cli/TreeVerb.h"

#include "cli/TreeText.h"
#include "ui/TCustomTreeView.h"

namespace {

QString GroupAction(const QString& group)
{
    if (group == QLatin1String("none"))
        return QStringLiteral("acGroupByNone");
    if (group == QLatin1String("form"))
        return QStringLiteral("acGroupByForm");
    return group == QLatin1String("connection") ? QStringLiteral("acGroupByConnection") : QString();
}

}

TreeVerb::TreeVerb()
    : ProjectVerb(QStringLiteral("tree"), QStringLiteral("Prints the project's tree as the tool window shows it."))
{
    AddProjectOptions();
    Parser.addOption({ QStringLiteral("group"), QStringLiteral("none, form or connection; else as the user has it."),
        QStringLiteral("MODE") });
    Parser.addOption({ QStringLiteral("scan-all"), QStringLiteral("Read every form of the project, open or not.") });
    Parser.addOption({ QStringLiteral("describe"),
        QStringLiteral("Retrieve the definitions of all datasets or of one."), QStringLiteral("all|FORM.DATASET") });
    Parser.addOption(
        { QStringLiteral("json"), QStringLiteral("Print nested objects with kind, caption and children.") });
    AddConnectionOptions();
}

ExitStatus TreeVerb::Run()
{
    if (Parser.positionalArguments().size() != 1)
        return Misused(QStringLiteral("name one project"));
    const auto group = Parser.value(QStringLiteral("group"));
    if (!group.isEmpty() && GroupAction(group).isEmpty())
        return Misused(QStringLiteral("--group takes none, form or connection"));
    if (!Start() || !OpenProject())
        return Failed;
    if (Parser.isSet(QStringLiteral("scan-all")) && !Act(QStringLiteral("acScanAll")))
        return Failed;
    const auto described = Parser.values(QStringLiteral("describe"));
    if (!described.isEmpty() && !DescribeEach(described))
        return Failed;
    if (!group.isEmpty() && !Act(GroupAction(group)))
        return Failed;
    const auto* tree = Tree();
    if (!tree)
        return Failed;
    Print(Parser.isSet(QStringLiteral("json")) ? TreeText::Json(*tree) : TreeText::Plain(*tree));
    return Done;
}
