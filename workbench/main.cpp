#include "cli/CommandLine.h"

#include <QApplication>

int main(int argc, char** argv)
{
    const bool isVerb = argc > 1 && CommandLine::IsVerb(argv[1]);
    if (isVerb && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("morvane"));
    if (const auto status = CommandLine::Run(QApplication::arguments()))
        return *status;
    return 0;
}
