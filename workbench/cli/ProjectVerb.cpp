#include "cli/ProjectVerb.h"

#include "rtl/SysUtils.h"
#include "services/Project.h"
#include "ui/TCustomTreeView.h"
#include "visual/TAction.h"

#include <QCoreApplication>

void ProjectVerb::AddProjectOptions()
{
    Parser.addPositionalArgument(
        QStringLiteral("PROJECT"), QStringLiteral("A .groupproj, .dproj, .cbproj, .dpr, .dpk, .bdsproj or .lpi."));
    Parser.addOption({ QStringLiteral("project"), QStringLiteral("Of a group, the project to work on; else the first."),
        QStringLiteral("NAME") });
}

void ProjectVerb::AddConnectionOptions()
{
    Parser.addOption({ QStringLiteral("connect"), QStringLiteral("Allow the project to reach its databases.") });
    Parser.addOption({ QStringLiteral("database"),
        QStringLiteral("Have a connection reach another database; the form stays as it is."),
        QStringLiteral("FORM.CONN=TARGET") });
}

Session* ProjectVerb::Start(SessionOptions options)
{
    if (const auto error = Session::FindConfigurationError()) {
        Complain(error->ToString());
        return nullptr;
    }
    options.PrivateConfiguration = true;
    options.Parts.Clock = &FClock;
    options.Parts.OnProblem = [](const Problem& problem) { Complain(problem.ToString()); };
    options.Parts.Exceptions = [](const Exception& exception) { Complain(exception.Message()); };
    FSession = std::make_unique<Session>(std::move(options));
    const auto failure = FSession->LoadPlugin();
    if (!failure.isEmpty()) {
        Complain(failure);
        return nullptr;
    }
    if (auto* window = FSession->ToolWindow())
        window->show();
    return FSession.get();
}

bool ProjectVerb::ApplyDatabases()
{
    for (const auto& database : Parser.values(QStringLiteral("database"))) {
        const auto equals = database.indexOf(u'=');
        if (equals < 0 || !database.left(equals).contains(u'.')) {
            Complain(QStringLiteral("--database takes FORM.CONN=TARGET, not %1").arg(database));
            return false;
        }
        FSession->Data().Retarget(database.left(equals), database.mid(equals + 1));
    }
    return true;
}

bool ProjectVerb::OpenProject()
{
    const auto files = Parser.positionalArguments();
    const bool takesDatabases = Parser.optionNames().contains(QStringLiteral("database"));
    if (takesDatabases && !ApplyDatabases())
        return false;
    auto& host = FSession->TheHost();
    if (!host.Open(files.first(), Parser.value(QStringLiteral("project"))))
        return false;
    if (Parser.optionNames().contains(QStringLiteral("connect")) && host.ActiveProject())
        FSession->AllowConnections(host.ActiveProject()->GetFileName());
    Settle();
    return true;
}

void ProjectVerb::Settle()
{
    do {
        FClock.Advance(200);
        QCoreApplication::sendPostedEvents();
    } while (!FClock.Idle());
}

TCustomTreeView* ProjectVerb::Tree()
{
    auto* window = FSession->ToolWindow();
    auto* tree = window ? window->findChild<TCustomTreeView*>() : nullptr;
    if (!tree)
        Complain(QStringLiteral("The plug-in shows no tree"));
    return tree;
}

bool ProjectVerb::Act(const QString& action)
{
    auto* window = FSession->ToolWindow();
    auto* found = window ? window->findChild<TAction*>(action) : nullptr;
    if (!found) {
        Complain(QStringLiteral("The plug-in has no action %1").arg(action));
        return false;
    }
    found->Execute();
    Settle();
    return true;
}

TTreeNode* ProjectVerb::FindDataSet(const QString& formDotName)
{
    auto* tree = Tree();
    const auto* root = tree ? tree->Items().GetFirstNode() : nullptr;
    for (int i = 0; root && i < root->Count(); ++i)
        if (SameText(root->Item(i)->Text(), formDotName))
            return root->Item(i);
    return nullptr;
}

bool ProjectVerb::Describe(const QString& what)
{
    auto* tree = Tree();
    const auto* root = tree ? tree->Items().GetFirstNode() : nullptr;
    QStringList names;
    if (SameText(what, u"all"))
        for (int i = 0; root && i < root->Count(); ++i)
            names << root->Item(i)->Text();
    else
        names << what;
    for (const auto& name : names) {
        auto* node = FindDataSet(name);
        if (!node) {
            Complain(QStringLiteral("There is no dataset %1 in the tree").arg(name));
            return false;
        }
        tree->Select(node);
        if (!Act(QStringLiteral("acDescribeFields")))
            return false;
    }
    tree->ClearSelection(false);
    return true;
}

QString ProjectVerb::CheckedGroupAction()
{
    for (const auto* name : { "acGroupByForm", "acGroupByConnection" }) {
        const auto* action = FSession->ToolWindow()->findChild<TAction*>(QString::fromLatin1(name));
        if (action && action->Checked())
            return action->Name();
    }
    return QStringLiteral("acGroupByNone");
}

bool ProjectVerb::DescribeEach(const QStringList& names)
{
    const auto group = CheckedGroupAction();
    if (!Act(QStringLiteral("acGroupByNone")))
        return false;
    for (const auto& name : names)
        if (!Describe(name))
            return false;
    return Act(group);
}
