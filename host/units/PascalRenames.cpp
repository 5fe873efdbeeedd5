#include "files/FileFinder.h"
#include "files/PathSpelling.h"
#include "units/PascalUnit.h"
#include "units/UsedUnits.h"

#include <QFileInfo>
#include <QRegularExpression>

// A Pascal unit under another name, and what it says of units and forms that are renamed.

namespace {

bool IsCodeOfAnyBranch(const SourceToken& token)
{
    return token.Type >= SourceToken::Text;
}

bool SamePath(const QString& one, const QString& other)
{
    return one.compare(other, Qt::CaseInsensitive) == 0;
}

}

int PascalUnit::Before(int token) const
{
    do
        --token;
    while (token >= 0 && !IsCodeOfAnyBranch(Token(token)));
    return token;
}

int PascalUnit::After(int token) const
{
    do
        ++token;
    while (token < FSyntax.Tokens().size() && !IsCodeOfAnyBranch(Token(token)));
    return token < FSyntax.Tokens().size() ? token : -1;
}

bool PascalUnit::IsWord(int token, const QString& name) const
{
    return token >= 0 && !name.isEmpty() && FSyntax.Word(token).compare(name, Qt::CaseInsensitive) == 0;
}

// Whether a word stands behind a dot, and so belongs to something else than the unit of that name.
bool PascalUnit::IsMember(int token, const QString& unitName) const
{
    const int dot = Before(token);
    return FSyntax.Is(dot, ".") && !IsWord(Before(dot), unitName.section(u'.', -1));
}

SourceEdit PascalUnit::Replacing(int first, int last, const QString& text) const
{
    return { Token(first).Offset, Token(last).End() - Token(first).Offset, text };
}

Failure PascalUnit::SaveUnder(const QString& fileName)
{
    Failure failure;
    if (!IsSound(failure))
        return failure;
    const auto oldName = UnitName();
    const auto newName = QFileInfo(fileName).completeBaseName();
    QList<SourceEdit> edits;
    const int first = FSyntax.Next(FSyntax.Next(-1));
    int last = first;
    while (FSyntax.Is(FSyntax.Next(last), "."))
        last = FSyntax.Next(FSyntax.Next(last));
    if (FSyntax.TextOf(first, last) != newName)
        edits << Replacing(first, last, newName);
    RenameInDirectives(QFileInfo(FFile.FileName()).completeBaseName(), newName, edits);
    if (oldName.compare(newName, Qt::CaseInsensitive) != 0)
        RenameQualifiers(oldName, newName, {}, edits);
    if (auto refused = Change(edits))
        return refused;
    FFile.SetFileName(fileName);
    return {};
}

// {$R Main.dfm}; the one with a star fits any name.
void PascalUnit::RenameInDirectives(const QString& oldBase, const QString& newBase, QList<SourceEdit>& edits) const
{
    static const QRegularExpression resource(
        QStringLiteral("^\\{\\$(?:R|RESOURCE)\\s+'?([^'*}\\\\/]+)\\.(?:dfm|lfm|xfm|fmx|nfm)\\b"),
        QRegularExpression::CaseInsensitiveOption);
    for (const auto& token : FSyntax.Tokens()) {
        if (token.Type != SourceToken::Directive)
            continue;
        const auto match = resource.match(token.In(FFile.Text()).toString());
        if (match.hasMatch() && match.captured(1).compare(oldBase, Qt::CaseInsensitive) == 0)
            edits << SourceEdit { token.Offset + match.capturedStart(1), match.capturedLength(1), newBase };
    }
}

// The unit's name before one of its classes or one of the given names: Main.TMainForm. What else stands before a dot
// may be a component of the same name.
void PascalUnit::RenameQualifiers(
    const QString& oldName, const QString& newName, const QStringList& members, QList<SourceEdit>& edits) const
{
    for (int at = 0; at < FSyntax.Tokens().size(); ++at) {
        if (!IsWord(at, oldName) || FSyntax.Is(Before(at), ".") || !FSyntax.Is(After(at), "."))
            continue;
        const auto member = FSyntax.Word(After(After(at)));
        if (members.contains(member, Qt::CaseInsensitive) || (members.isEmpty() && FSyntax.FindClass(member)))
            edits << Replacing(at, at, newName);
    }
}

Failure PascalUnit::RenameUsedUnit(const UnitRename& rename)
{
    const auto folder = QFileInfo(FFile.FileName()).absolutePath();
    const bool isProgram = FSyntax.Kind() != u"unit";
    const bool moves = QFileInfo(rename.NewFile).absolutePath() != folder;
    const bool backslash = FDialect == PascalDialect::Delphi;
    QList<SourceEdit> edits;
    bool uses = false;
    for (const auto& clause : { FSyntax.InterfaceUses(), FSyntax.ImplementationUses() })
        for (const auto& entry : clause.Entries) {
            if (entry.Name.compare(rename.OldName, Qt::CaseInsensitive) != 0
                || (!entry.FileName.isEmpty() && !SamePath(ResolvedPath(folder, entry.FileName), rename.OldFile)))
                continue;
            uses = true;
            int last = entry.First;
            while (FSyntax.Is(FSyntax.Next(last), "."))
                last = FSyntax.Next(FSyntax.Next(last));
            auto text = rename.NewName;
            if (entry.FileName.isEmpty() && isProgram && moves)
                text += QStringLiteral(" in '%1'").arg(SpelledLike({}, folder, {}, rename.NewFile, backslash));
            edits << Replacing(entry.First, last, text);
            if (entry.FileName.isEmpty())
                continue;
            auto path = SpelledLike(entry.FileName, folder, rename.OldFile, rename.NewFile, backslash);
            edits << Replacing(entry.Last, entry.Last, u'\'' + path.replace(u'\'', QStringLiteral("''")) + u'\'');
        }
    if (uses && rename.OldName.compare(rename.NewName, Qt::CaseInsensitive) != 0)
        RenameQualifiers(rename.OldName, rename.NewName, rename.Declares, edits);
    return Change(edits);
}

bool PascalUnit::DeclaresVariable(const QString& name, const QString& className) const
{
    bool inVariables = false;
    for (int at = FSyntax.Next(FSyntax.Interface()); at >= 0; at = FSyntax.Next(at)) {
        if (FSyntax.Is(at, "var") || FSyntax.Is(at, "threadvar"))
            inVariables = true;
        else if (FSyntax.Is(at, "type") || FSyntax.Is(at, "procedure") || FSyntax.Is(at, "function"))
            inVariables = false;
        else if (inVariables && IsWord(at, name) && FSyntax.Is(FSyntax.Next(at), ":")
            && IsWord(FSyntax.Next(FSyntax.Next(at)), className))
            return true;
    }
    return false;
}

// A place that has one of the new names already, or declares something of its own under the old name of the variable.
std::optional<int> PascalUnit::ForeignUse(const FormRename& rename) const
{
    const bool classChanges = rename.OldClass.compare(rename.NewClass, Qt::CaseInsensitive) != 0;
    const bool sameName = rename.OldName.compare(rename.NewName, Qt::CaseInsensitive) == 0;
    const bool isOwn = UnitName().compare(rename.UnitName, Qt::CaseInsensitive) == 0;
    for (int at = 0; at < FSyntax.Tokens().size(); ++at) {
        if (Token(at).Type != SourceToken::Word || FSyntax.Is(Before(at), "."))
            continue;
        const bool isNew = (classChanges && IsWord(at, rename.NewClass))
            || (!sameName && rename.HasVariable && IsWord(at, rename.NewName));
        if (isNew)
            return at;
        const bool declares = rename.HasVariable && IsWord(at, rename.OldName) && FSyntax.Is(After(at), ":");
        if (declares && !isOwn)
            return at;
    }
    return {};
}

// { TMainForm } above the methods, and in a program {MainForm} behind the unit of the form.
void PascalUnit::RenameInComments(const FormRename& rename, QList<SourceEdit>& edits) const
{
    const auto& uses = FSyntax.InterfaceUses();
    const bool isProgram = FSyntax.Kind() != u"unit";
    for (int at = 0; at < FSyntax.Tokens().size(); ++at) {
        const auto& token = Token(at);
        if (token.Type != SourceToken::Comment)
            continue;
        const auto text = token.In(FFile.Text()).toString();
        const bool inUses = isProgram && at > uses.Keyword && at < uses.Semicolon;
        const auto& oldName = inUses ? rename.OldName : rename.OldClass;
        const auto& newName = inUses ? rename.NewName : rename.NewClass;
        const QRegularExpression named(
            QStringLiteral("^\\{\\s*(%1)\\s*%2\\}$")
                .arg(QRegularExpression::escape(oldName), inUses ? QStringLiteral("(?::[^}]*)?") : QString()),
            QRegularExpression::CaseInsensitiveOption);
        if (const auto match = named.match(text); match.hasMatch())
            edits << SourceEdit { token.Offset + match.capturedStart(1), match.capturedLength(1), newName };
    }
}

Failure PascalUnit::RenameForm(const FormRename& rename)
{
    QList<SourceEdit> edits;
    for (int at = 0; at < FSyntax.Tokens().size(); ++at) {
        if (Token(at).Type != SourceToken::Word || IsMember(at, rename.UnitName))
            continue;
        if (IsWord(at, rename.OldClass) && FSyntax.Word(at) != rename.NewClass)
            edits << Replacing(at, at, rename.NewClass);
        else if (rename.HasVariable && IsWord(at, rename.OldName) && FSyntax.Word(at) != rename.NewName)
            edits << Replacing(at, at, rename.NewName);
    }
    RenameInComments(rename, edits);
    if (edits.isEmpty())
        return {};
    Failure failure;
    if (!IsSound(failure))
        return failure;
    if (const auto foreign = ForeignUse(rename))
        return FFile.ProblemAt(
            Token(*foreign).Offset, QStringLiteral("%1 means something else here already").arg(FSyntax.Word(*foreign)));
    return Change(edits);
}
