#include "units/PascalUnit.h"

#include "units/UsedUnits.h"

namespace {

bool isDeclaredAs(const FieldDeclaration& one, const FieldDeclaration& other)
{
    return one.Type.section(u'.', -1).compare(other.Type.section(u'.', -1), Qt::CaseInsensitive) == 0;
}

}

PascalUnit::PascalUnit(const SourceFile& file, PascalDialect dialect)
    : FFile(file)
    , FDialect(dialect)
    , FSyntax(file.Text(), dialect)
{
}

void PascalUnit::Restore(const QList<FileContent>& files)
{
    if (files.isEmpty())
        return;
    FFile = SourceFile(files.first().FileName, files.first().Bytes);
    FSyntax = PascalSyntax(FFile.Text(), FDialect);
}

Failure PascalUnit::Change(const QList<SourceEdit>& edits)
{
    if (auto failure = FFile.Apply(edits))
        return failure;
    FSyntax = PascalSyntax(FFile.Text(), FDialect);
    return {};
}

Problems PascalUnit::Check() const
{
    Problems problems;
    for (const auto& token : FSyntax.Tokens()) {
        // A string ends with its line at the latest, and what follows can be read.
        const bool comment = token.Type == SourceToken::Comment;
        const bool local = !comment && token.End() < FFile.Text().size();
        if (token.Unterminated && token.Active)
            problems << FFile.ProblemAt(token.Offset,
                comment ? QStringLiteral("this comment is not closed") : QStringLiteral("this string is not closed"),
                local ? Problem::Warning : Problem::Error);
    }
    if (FSyntax.Kind().isEmpty() || FSyntax.UnitName().isEmpty())
        problems << FFile.ProblemAt(0, QStringLiteral("this is no unit: it does not begin with \"unit\" and a name"));
    else if (FSyntax.Kind() == u"unit" && FSyntax.Interface() < 0)
        problems << FFile.ProblemAt(0, QStringLiteral("this unit has no interface section"));
    for (const auto& clause : { FSyntax.InterfaceUses(), FSyntax.ImplementationUses() }) {
        if (clause.Exists() && clause.Semicolon < 0)
            problems << FFile.ProblemAt(
                Token(clause.Keyword).Offset, QStringLiteral("this uses clause does not end with a semicolon"));
    }
    return problems;
}

std::optional<PascalClass> PascalUnit::RequireClass(const QString& className, Failure& failure) const
{
    if (!IsSound(failure))
        return {};
    auto found = FSyntax.FindClass(className);
    if (!found) {
        const auto place = FSyntax.Interface() < 0 ? 0 : Token(FSyntax.Interface()).Offset;
        failure = FFile.ProblemAt(place, QStringLiteral("the unit does not declare the class %1").arg(className));
    } else if (found->End < 0) {
        failure
            = FFile.ProblemAt(Token(found->NameToken).Offset, QStringLiteral("the class %1 has no end").arg(className));
        found.reset();
    }
    return found;
}

std::optional<ClassDeclaration> PascalUnit::FindClass(const QString& className) const
{
    const auto found = FSyntax.FindClass(className);
    if (!found || found->End < 0)
        return {};
    ClassDeclaration declaration { found->Name, found->Ancestor, {}, found->Methods };
    for (const auto& field : found->Fields)
        declaration.PublishedFields << field.Declaration;
    return declaration;
}

bool PascalUnit::StartsLine(int token) const
{
    const auto offset = Token(token).Offset;
    return FFile.LineStart(offset) + FFile.IndentAt(offset).size() == offset;
}

// The place behind a token, out of the conditionals that were opened within `depth` of them, and behind a comment that
// ends the line.
PascalUnit::Place PascalUnit::Behind(int token, int depth) const
{
    while (token + 1 < FSyntax.Tokens().size() && Token(token).Depth > depth)
        ++token;
    const auto here = Token(token).End();
    for (int next = token + 1; next < FSyntax.Tokens().size(); ++next) {
        const auto text = Token(next).In(FFile.Text());
        const bool ends = text.contains(u'\n') || text.contains(u'\r');
        if (Token(next).Type == SourceToken::Blank && ends)
            return { FFile.NextLineStart(Token(next).Offset), true };
        if (Token(next).Type > SourceToken::Comment || ends)
            break;
    }
    return { here, false };
}

QString PascalUnit::MemberIndent(const PascalClass& found) const
{
    for (const auto& field : found.Fields) {
        if (StartsLine(field.First))
            return FFile.IndentAt(Token(field.First).Offset);
    }
    return FFile.IndentAt(Token(found.NameToken).Offset) + QStringLiteral("  ");
}

QList<SourceEdit> PascalUnit::AdditionTo(const PascalClass& found, const FieldDeclaration& field) const
{
    const auto line = field.Name + QStringLiteral(": ") + field.Type + u';';
    const auto eol = FFile.LineEndAt(Token(found.NameToken).Offset);
    const auto indent = MemberIndent(found);
    if (!found.HasBody) {
        const auto classIndent = FFile.IndentAt(Token(found.NameToken).Offset);
        return { { Token(found.End).Offset, 1, eol + indent + line + eol + classIndent + QStringLiteral("end;") } };
    }
    QList<SourceEdit> edits;
    const int behind = found.Fields.isEmpty() ? found.SectionStart : found.Fields.last().Last;
    if (!found.Fields.isEmpty() && !FSyntax.Is(behind, ";"))
        edits << SourceEdit { Token(behind).End(), 0, QStringLiteral(";") };
    const auto place = Behind(behind, Token(found.NameToken).Depth);
    edits << SourceEdit { place.Offset, 0, place.OwnLine ? indent + line + eol : u' ' + line };
    return edits;
}

Failure PascalUnit::AddField(const QString& className, const FieldDeclaration& field)
{
    Failure failure;
    const auto found = RequireClass(className, failure);
    if (!found)
        return failure;
    const auto place = Token(found->NameToken).Offset;
    if (!IsIdentifier(field.Name) || !IsTypeName(field.Type))
        return FFile.ProblemAt(
            place, QStringLiteral("\"%1: %2\" is no declaration of a component").arg(field.Name, field.Type));
    if (const auto* known = found->FieldNamed(field.Name)) {
        if (isDeclaredAs(known->Declaration, field))
            return {};
        return FFile.ProblemAt(Token(known->Name).Offset,
            QStringLiteral("%1 is declared as %2 already").arg(known->Declaration.Name, known->Declaration.Type));
    }
    return Change(AdditionTo(*found, field));
}

// The whole lines of a declaration, with the comment at its end, where it stands alone on them.
SourceEdit PascalUnit::RemovalOf(const PascalField& field) const
{
    const auto start = Token(field.First).Offset;
    const auto place = Behind(field.Last, Token(field.Last).Depth);
    if (StartsLine(field.First) && place.OwnLine) {
        const auto line = FFile.LineStart(start);
        return { line, place.Offset - line, {} };
    }
    auto end = Token(field.Last).End();
    while (end < FFile.Text().size() && (FFile.Text()[end] == u' ' || FFile.Text()[end] == u'\t'))
        ++end;
    return { start, end - start, {} };
}

// One name out of a declaration of several, with the comma on the side where there is one.
SourceEdit PascalUnit::RemovalOfName(const PascalField& field) const
{
    const int after = FSyntax.Next(field.Name);
    if (FSyntax.Is(after, ",")) {
        const auto start = Token(field.Name).Offset;
        return { start, Token(FSyntax.Next(after)).Offset - start, {} };
    }
    const auto start = Token(FSyntax.Previous(FSyntax.Previous(field.Name))).End();
    return { start, Token(field.Name).End() - start, {} };
}

Failure PascalUnit::RemoveField(const QString& className, const QString& fieldName)
{
    Failure failure;
    const auto found = RequireClass(className, failure);
    if (!found)
        return failure;
    const auto* field = found->FieldNamed(fieldName);
    if (!field)
        return FFile.ProblemAt(
            Token(found->NameToken).Offset, QStringLiteral("the class %1 has no field %2").arg(found->Name, fieldName));
    return Change({ field->Sharing > 1 ? RemovalOfName(*field) : RemovalOf(*field) });
}

Failure PascalUnit::RenameField(const QString& className, const QString& oldName, const QString& newName)
{
    Failure failure;
    const auto found = RequireClass(className, failure);
    if (!found)
        return failure;
    const auto* field = found->FieldNamed(oldName);
    if (!field)
        return FFile.ProblemAt(
            Token(found->NameToken).Offset, QStringLiteral("the class %1 has no field %2").arg(found->Name, oldName));
    if (!IsIdentifier(newName))
        return FFile.ProblemAt(
            Token(field->Name).Offset, QStringLiteral("\"%1\" is no name of a component").arg(newName));
    const auto* other = found->FieldNamed(newName);
    if (other && other->Name != field->Name)
        return FFile.ProblemAt(Token(other->Name).Offset, QStringLiteral("%1 is declared already").arg(newName));
    return Change({ { Token(field->Name).Offset, Token(field->Name).Length, newName } });
}
