#include "cli/Verb.h"

#include "rtl/SysUtils.h"

#include <cstdio>

Verb::Verb(const QString& name, const QString& description)
    : FName(name)
{
    Parser.setApplicationDescription(description);
    Parser.addHelpOption();
}

void Verb::Print(const QString& text)
{
    const auto bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
    std::fflush(stdout);
}

void Verb::Complain(const QString& text)
{
    const auto bytes = (text + u'\n').toUtf8();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stderr);
}

ExitStatus Verb::Misused(const QString& why) const
{
    Complain(QStringLiteral("morvane %1: %2\n").arg(FName, why));
    Complain(Parser.helpText());
    return WrongUsage;
}

ExitStatus Verb::Execute(const QStringList& arguments)
{
    if (!Parser.parse(arguments))
        return Misused(Parser.errorText());
    if (Parser.isSet(QStringLiteral("help"))) {
        Print(Parser.helpText());
        return Done;
    }
    try {
        return Run();
    } catch (const std::exception& exception) {
        Complain(QString::fromUtf8(exception.what()));
        return Failed;
    }
}
