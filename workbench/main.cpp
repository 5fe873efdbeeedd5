#include "cli/CommandLine.h"

#include <QApplication>

namespace {

QtMessageHandler GStandardHandler = nullptr;

// The offscreen platform remarks on each window that it cannot pass on size hints; a verb's output has no use for it.
void DropPlatformRemarks(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (!message.startsWith(QLatin1String("This plugin does not support")))
        GStandardHandler(type, context, message);
}

}

int main(int argc, char** argv)
{
    const bool isVerb = argc > 1 && CommandLine::IsVerb(argv[1]);
    if (isVerb && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (isVerb)
        GStandardHandler = qInstallMessageHandler(DropPlatformRemarks);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("morvane"));
    if (const auto status = CommandLine::Run(QApplication::arguments()))
        return *status;
    return 0;
}
