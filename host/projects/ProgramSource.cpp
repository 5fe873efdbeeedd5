#include "projects/ProgramSource.h"

#include "units/CppSyntax.h"
#include "units/PascalSyntax.h"

#include <QRegularExpression>

namespace {

// Places of many tokens of one text, asked for in rising order.
class Places {
public:
    explicit Places(const SourceFile& file)
        : FFile(file)
    {
    }

    Problem At(qsizetype offset)
    {
        for (auto next = FFile.NextLineStart(FStart); next <= offset && next > FStart;
             next = FFile.NextLineStart(FStart)) {
            FStart = next;
            ++FLine;
        }
        return { FFile.FileName(), FLine, int(offset - FStart) + 1, {}, Problem::Warning };
    }

private:
    const SourceFile& FFile;
    qsizetype FStart = 0;
    int FLine = 1;
};

// The form that the comment behind a uses entry names: {MainForm} or {MainForm: TFrame}.
void readFormComment(const PascalSyntax& syntax, const QString& text, int last, ModuleEntry& entry)
{
    static const QRegularExpression comment(QStringLiteral("^\\{\\s*(\\w+)\\s*(?::\\s*([\\w.]+)\\s*)?\\}$"),
        QRegularExpression::UseUnicodePropertiesOption);
    for (int at = last + 1; at < syntax.Tokens().size() && !syntax.Tokens()[at].IsCode(); ++at) {
        const auto& token = syntax.Tokens()[at];
        if (token.Type != SourceToken::Comment)
            continue;
        const auto match = comment.match(token.In(text).toString());
        if (!match.hasMatch())
            continue;
        entry.FormName = match.captured(1);
        entry.DesignClass = match.captured(2);
        return;
    }
}

// The text of a C++ literal without quotes and escapes.
QString literal(QString text)
{
    text = text.mid(1, text.size() - 2);
    return text.replace(QStringLiteral("\\\\"), QStringLiteral("\\"));
}

// USEFORM("Main.cpp", MainForm), or the same with a namespace between; `at` is the macro's name.
std::optional<ModuleEntry> usedForm(const CppSyntax& syntax, const QString& text, int at)
{
    const int file = syntax.Next(syntax.Next(at));
    if (file < 0 || syntax.Tokens()[file].Type != SourceToken::Text)
        return {};
    ModuleEntry entry;
    entry.Path = literal(syntax.TextOf(file));
    int last = file;
    for (int next = syntax.Next(file); next >= 0 && !syntax.Is(next, ")") && !syntax.Is(next, ";");
         next = syntax.Next(next))
        last = next;
    entry.FormName = last == file ? QString() : syntax.TextOf(last);
    static const QRegularExpression kind(QStringLiteral("^/\\*\\s*(\\w+)\\s*:\\s*File Type"));
    const int stop = syntax.Next(syntax.Next(syntax.Next(last)));
    for (int next = last; next < syntax.Tokens().size() && (stop < 0 || next < stop); ++next) {
        const auto match = kind.match(syntax.Tokens()[next].In(text).toString());
        if (match.hasMatch())
            entry.DesignClass = match.captured(1);
    }
    return entry;
}

}

ProgramSource ProgramSource::FromPascal(const SourceFile& file, bool lazarus)
{
    ProgramSource program;
    const auto dialect = lazarus ? PascalDialect::Lazarus : PascalDialect::Delphi;
    const PascalSyntax syntax(file.Text(), dialect);
    Places places(file);
    for (const auto& used : syntax.InterfaceUses().Entries) {
        ModuleEntry entry;
        entry.Path = used.FileName.isEmpty() ? used.Name + QStringLiteral(".pas") : used.FileName;
        entry.Place = places.At(syntax.Tokens()[used.First].Offset);
        readFormComment(syntax, file.Text(), used.Last, entry);
        (used.FileName.isEmpty() ? program.PlainUnits : program.Modules) << entry;
    }
    for (int at = syntax.Next(-1); at >= 0; at = syntax.Next(at)) {
        if (!syntax.Is(at, "CreateForm") || !syntax.Is(syntax.Next(at), "("))
            continue;
        const int className = syntax.Next(syntax.Next(at));
        const int form = syntax.Next(syntax.Next(className));
        if (form >= 0 && syntax.Is(syntax.Next(className), ","))
            program.Created << CreatedForm { syntax.Word(className), syntax.Word(form) };
    }
    return program;
}

ProgramSource ProgramSource::FromCpp(const SourceFile& file)
{
    ProgramSource program;
    const CppSyntax syntax(file.Text());
    Places places(file);
    for (int at = syntax.Next(-1); at >= 0; at = syntax.Next(at)) {
        if (syntax.Is(at, "USEFORM") || syntax.Is(at, "USEFORMNS")) {
            if (auto entry = usedForm(syntax, file.Text(), at)) {
                entry->Place = places.At(syntax.Tokens()[at].Offset);
                program.Modules << *entry;
            }
        } else if (syntax.Is(at, "CreateForm")) {
            // CreateForm ( __classid ( TMainForm ) , & MainForm )
            int step = at;
            QStringList words;
            while ((step = syntax.Next(step)) >= 0 && !syntax.Is(step, ";")) {
                if (syntax.Tokens()[step].Type == SourceToken::Word && !syntax.Is(step, "__classid"))
                    words << syntax.TextOf(step);
            }
            if (words.size() >= 2)
                program.Created << CreatedForm { words.first(), words.last() };
        }
    }
    return program;
}

ProgramSource ProgramSource::Read(const SourceFile& file, bool lazarus)
{
    const bool cpp = file.FileName().endsWith(QLatin1String(".cpp"), Qt::CaseInsensitive);
    return cpp ? FromCpp(file) : FromPascal(file, lazarus);
}
