#include "cli/ShotVerb.h"

#include "app/MainWindow.h"
#include "app/ModuleView.h"
#include "designer/FormPicture.h"
#include "rtl/TTimer.h"
#include "services/Module.h"
#include "services/Project.h"

#include <QCoreApplication>
#include <QPixmap>

ShotVerb::ShotVerb()
    : Verb(QStringLiteral("shot"), QStringLiteral("Makes a picture of the window with the project open, or of a form."))
{
    Parser.addPositionalArgument(
        QStringLiteral("PROJECT"), QStringLiteral("A .groupproj, .dproj, .cbproj, .dpr, .dpk, .bdsproj or .lpi."));
    Parser.addOption({ QStringLiteral("project"), QStringLiteral("Of a group, the project to work on; else the first."),
        QStringLiteral("NAME") });
    Parser.addOption(
        { QStringLiteral("form"), QStringLiteral("The form to show, instead of the window."), QStringLiteral("FORM") });
    Parser.addOption({ { QStringLiteral("o"), QStringLiteral("output") }, QStringLiteral("The picture to write."),
        QStringLiteral("FILE.png") });
}

QImage ShotVerb::FormPicture(MainWindow& window)
{
    auto& host = window.TheHost();
    const auto name = Parser.value(QStringLiteral("form"));
    auto* project = host.ActiveProject();
    const auto* described = project ? project->Description().FindForm(name) : nullptr;
    auto* module = host.FormModule(name);
    if (!module && described)
        module = host.OpenModuleFile(described->FileName, project);
    if (!module || !module->HasDesigner()) {
        Complain(QStringLiteral("There is no form %1 that can be shown").arg(name));
        return {};
    }
    return RenderForm(*module, window.TheSession().Packages());
}

QImage ShotVerb::WindowPicture(MainWindow& window)
{
    window.Refresh();
    QCoreApplication::processEvents();
    return window.grab().toImage();
}

ExitStatus ShotVerb::Run()
{
    const auto files = Parser.positionalArguments();
    const auto output = Parser.value(QStringLiteral("output"));
    if (files.size() != 1 || output.isEmpty())
        return Misused(QStringLiteral("name a project, and with -o the picture to write"));
    if (const auto error = Session::FindConfigurationError()) {
        Complain(error->ToString());
        return Failed;
    }
    QTemporaryDir folder;
    ManualClock clock;
    SessionOptions options;
    options.PrivateConfiguration = true;
    options.Parts.Clock = &clock;
    options.Parts.Exceptions = [](const Exception& exception) { Complain(exception.Message()); };
    options.Parts.MessageBox = [](const QString& text, TMsgDlgType, TMsgDlgButtons) {
        Complain(text);
        return mrCancel;
    };
    MainWindow window(std::move(options), folder.filePath(QStringLiteral("window.ini")));
    window.show();
    window.StartPlugin();
    if (!window.OpenProject(files.first(), Parser.value(QStringLiteral("project"))))
        return Failed;
    do {
        clock.Advance(200);
        QCoreApplication::processEvents();
    } while (!clock.Idle());
    const auto picture = Parser.isSet(QStringLiteral("form")) ? FormPicture(window) : WindowPicture(window);
    if (picture.isNull())
        return Failed;
    if (picture.save(output))
        return Done;
    Complain(QStringLiteral("%1 cannot be written").arg(output));
    return Failed;
}
