#include "app/MainWindow.h"
#include "cli/CommandLine.h"
#include "cli/Verb.h"

#include <QApplication>
#include <QCommandLineParser>

namespace {

QtMessageHandler GStandardHandler = nullptr;

// The offscreen platform remarks on each window that it cannot pass on size hints; a verb's output has no use for it.
void DropPlatformRemarks(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (!message.startsWith(QLatin1String("This plugin does not support")))
        GStandardHandler(type, context, message);
}

int RunWindow(const QApplication& application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("The form designer. The verbs tree, drop, shot, forms and convert work without a window: "
                       "morvane VERB --help."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("PROJECT"),
        QStringLiteral("A .groupproj, .dproj, .cbproj, .dpr, .dpk, .bdsproj or .lpi."), QStringLiteral("[PROJECT]"));
    parser.addOption({ QStringLiteral("project"), QStringLiteral("Of a group, the project to work on; else the first."),
        QStringLiteral("NAME") });
    parser.process(application);
    const auto files = parser.positionalArguments();
    MainWindow window;
    window.show();
    window.StartPlugin();
    if (!files.isEmpty())
        window.OpenProject(files.first(), parser.value(QStringLiteral("project")));
    return QApplication::exec();
}

}

// A verb shows nothing, so it needs no screen.
int main(int argc, char** argv)
{
    const bool isVerb = argc > 1 && CommandLine::IsVerb(argv[1]);
    if (isVerb && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (isVerb)
        GStandardHandler = qInstallMessageHandler(DropPlatformRemarks);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("morvane"));
    QApplication::setOrganizationName(QStringLiteral("Morvane"));
    QApplication::setApplicationVersion(QStringLiteral("0.1.0"));
    if (const auto status = CommandLine::Run(QApplication::arguments()))
        return *status;
    return RunWindow(application);
}
