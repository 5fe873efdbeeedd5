#include "cli/FormsVerb.h"

#include "forms/FormConverter.h"
#include "forms/FormsCheck.h"

FormsVerb::FormsVerb()
    : Verb(QStringLiteral("forms"),
        QStringLiteral("Reads every form file below the paths, and tells which would not be written back as it is."))
{
    Parser.addPositionalArgument(
        QStringLiteral("PATH"), QStringLiteral("A folder or a form file."), QStringLiteral("PATH ..."));
}

ExitStatus FormsVerb::Run()
{
    const auto paths = Parser.positionalArguments();
    if (paths.isEmpty())
        return Misused(QStringLiteral("name a folder or a form file"));
    FormsCheck check([](const FormError& error) { Complain(error.ToString()); });
    check.Check(paths);
    Print(check.Summary() + u'\n');
    return check.Failed() == 0 ? Done : Failed;
}

ConvertVerb::ConvertVerb()
    : Verb(
        QStringLiteral("convert"), QStringLiteral("Writes a text form file as a binary one, and a binary one as text."))
{
    Parser.addPositionalArgument(QStringLiteral("IN"), QStringLiteral("The form file to read."));
    Parser.addPositionalArgument(QStringLiteral("OUT"), QStringLiteral("The file to write."));
}

ExitStatus ConvertVerb::Run()
{
    const auto files = Parser.positionalArguments();
    if (files.size() != 2)
        return Misused(QStringLiteral("name the file to read and the file to write"));
    const auto error = FormConverter::ConvertFile(files[0], files[1]);
    if (error)
        Complain(error->ToString());
    return error ? Failed : Done;
}
