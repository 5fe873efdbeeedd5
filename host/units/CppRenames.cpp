#include "files/FileFinder.h"
#include "files/PathSpelling.h"
#include "units/CppUnit.h"

#include <QFileInfo>
#include <QRegularExpression>

// A C++ unit under another name, and what it says of units and forms that are renamed.

QList<CppUnit::Part*> CppUnit::Parts()
{
    QList<Part*> parts;
    for (auto* part : { &FSource, &FHeader })
        if (*part)
            parts << &**part;
    return parts;
}

// Edits both files, or neither.
Failure CppUnit::ChangeAll(const std::function<Failure(Part& part, QList<SourceEdit>& edits)>& collect)
{
    const auto before = Files();
    for (auto* part : Parts()) {
        QList<SourceEdit> edits;
        auto failure = collect(*part, edits);
        if (!failure)
            failure = part->Change(edits);
        if (failure) {
            Restore(before);
            return failure;
        }
    }
    return {};
}

namespace {

QString BaseOf(const QString& path)
{
    return QFileInfo(QString(path).replace(u'\\', u'/')).completeBaseName();
}

// The directive with what the pattern's first group captured replaced.
void ReplaceInDirective(const SourceToken& token, const QString& text, const QString& pattern, const QString& newText,
    QList<SourceEdit>& edits)
{
    const QRegularExpression expression(pattern);
    const auto match = expression.match(token.In(text).toString());
    if (match.hasMatch())
        edits << SourceEdit { token.Offset + match.capturedStart(1), match.capturedLength(1), newText };
}

void ReplaceInclude(const CppInclude& include, const SourceToken& token, const QString& text, const QString& oldBase,
    const QString& newPath, QList<SourceEdit>& edits)
{
    if (!include.Quoted || BaseOf(include.Path).compare(oldBase, Qt::CaseInsensitive) != 0)
        return;
    const auto at = token.In(text).indexOf(include.Path);
    edits << SourceEdit { token.Offset + at, include.Path.size(), newPath };
}

// The path of an include with another file's base name.
QString WithBase(const QString& path, const QString& newBase)
{
    const auto last = qMax(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\'));
    return path.left(last + 1) + newBase + path.mid(path.lastIndexOf(u'.'));
}

// A name as it stands in a header's guard: what is no part of a word is _.
QString GuardOf(const QString& base)
{
    static const QRegularExpression other(QStringLiteral("\\W"));
    return QString(base).replace(other, QStringLiteral("_")) + u'H';
}

}

Failure CppUnit::SaveUnder(const QString& fileName)
{
    Failure failure;
    if (!IsSound(failure))
        return failure;
    const auto oldBase = UnitName();
    const auto newBase = QFileInfo(fileName).completeBaseName();
    const auto resource = QStringLiteral("^#\\s*pragma\\s+resource\\s+\"(%1)\\.(?:dfm|fmx|xfm)\"")
                              .arg(QRegularExpression::escape(oldBase));
    const auto guard = QStringLiteral("^#\\s*(?:ifndef|define)\\s+(%1)\\b").arg(GuardOf(oldBase));
    failure = ChangeAll([&](Part& part, QList<SourceEdit>& edits) -> Failure {
        const auto& text = part.File.Text();
        for (const auto& token : part.Syntax.Tokens()) {
            if (token.Type != SourceToken::Directive)
                continue;
            ReplaceInDirective(token, text, resource, newBase, edits);
            ReplaceInDirective(token, text, guard, GuardOf(newBase), edits);
        }
        for (const auto& include : part.Syntax.Includes())
            ReplaceInclude(include, part.Token(include.Token), text, oldBase, WithBase(include.Path, newBase), edits);
        return {};
    });
    if (failure)
        return failure;
    const QFileInfo target(fileName);
    for (auto* part : Parts()) {
        const auto suffix
            = part == (FSource ? &*FSource : nullptr) ? target.suffix() : QFileInfo(part->File.FileName()).suffix();
        part->File.SetFileName(target.path() + u'/' + newBase + u'.' + suffix);
    }
    return {};
}

// Includes of its header, and in a program USEFORM("Main.cpp", MainForm).
Failure CppUnit::RenameUsedUnit(const UnitRename& rename)
{
    const auto folder = Folder();
    return ChangeAll([&](Part& part, QList<SourceEdit>& edits) -> Failure {
        const auto& text = part.File.Text();
        for (const auto& include : part.Syntax.Includes()) {
            const bool moves = QFileInfo(rename.OldFile).path() != QFileInfo(rename.NewFile).path();
            auto path = WithBase(include.Path, rename.NewName);
            if (moves && include.Quoted) {
                const auto header = QFileInfo(rename.NewFile).path() + u'/' + rename.NewName
                    + include.Path.mid(include.Path.lastIndexOf(u'.'));
                path = SpelledLike(include.Path, folder, rename.OldFile, header, false);
            }
            ReplaceInclude(include, part.Token(include.Token), text, rename.OldName, path, edits);
        }
        for (int at = part.Syntax.Next(-1); at >= 0; at = part.Syntax.Next(at)) {
            if (!part.Syntax.Is(at, "USEFORM") && !part.Syntax.Is(at, "USEFORMNS") && !part.Syntax.Is(at, "USEUNIT"))
                continue;
            const int literal = part.Syntax.Next(part.Syntax.Next(at));
            if (literal < 0 || part.Token(literal).Type != SourceToken::Text)
                continue;
            const auto quoted = part.Syntax.TextOf(literal);
            const auto written = quoted.mid(1, quoted.size() - 2).replace(QStringLiteral("\\\\"), QStringLiteral("\\"));
            if (ResolvedPath(folder, written).compare(rename.OldFile, Qt::CaseInsensitive) != 0)
                continue;
            auto path = SpelledLike(written, folder, rename.OldFile, rename.NewFile, true);
            path.replace(u'\\', QStringLiteral("\\\\"));
            edits << SourceEdit { part.Token(literal).Offset, part.Token(literal).Length, u'"' + path + u'"' };
        }
        return {};
    });
}

// extern PACKAGE TMainForm *MainForm;
bool CppUnit::DeclaresVariable(const QString& name, const QString& className) const
{
    for (const auto* part : { FSource ? &*FSource : nullptr, FHeader ? &*FHeader : nullptr }) {
        for (int at = part ? part->Syntax.Next(-1) : -1; at >= 0; at = part->Syntax.Next(at)) {
            const int star = part->Syntax.Next(at);
            const int variable = part->Syntax.Next(star);
            if (part->Syntax.TextOf(at) == className && part->Syntax.Is(star, "*")
                && part->Syntax.TextOf(variable) == name)
                return true;
        }
    }
    return false;
}

Failure CppUnit::RenameForm(const FormRename& rename)
{
    const auto before = Files();
    auto failure = ChangeAll([&](Part& part, QList<SourceEdit>& edits) -> Failure {
        const auto& syntax = part.Syntax;
        int foreign = -1;
        int previous = -1;
        for (int at = 0; at < syntax.Tokens().size(); ++at) {
            if (syntax.Tokens()[at].Type < SourceToken::Text)
                continue;
            const bool isMember = syntax.Is(previous, ".")
                || (syntax.Is(previous, ">") && previous > 0 && syntax.Is(previous - 1, "-"));
            const auto word = syntax.TextOf(at);
            previous = at;
            if (syntax.Tokens()[at].Type != SourceToken::Word || isMember)
                continue;
            const auto& token = syntax.Tokens()[at];
            const bool isNew = (rename.OldClass != rename.NewClass && word == rename.NewClass)
                || (rename.HasVariable && word == rename.NewName);
            foreign = isNew && foreign < 0 ? at : foreign;
            if (word == rename.OldClass)
                edits << SourceEdit { token.Offset, token.Length, rename.NewClass };
            else if (rename.HasVariable && word == rename.OldName)
                edits << SourceEdit { token.Offset, token.Length, rename.NewName };
        }
        if (foreign >= 0 && !edits.isEmpty())
            return part.File.ProblemAt(syntax.Tokens()[foreign].Offset,
                QStringLiteral("%1 means something else here already").arg(syntax.TextOf(foreign)));
        return {};
    });
    Failure unsound;
    if (!failure && Files() != before && !IsSound(unsound)) {
        Restore(before);
        return unsound;
    }
    return failure;
}
