#include "units/CppUnit.h"

#include "files/FileFinder.h"
#include "units/UsedUnits.h"

#include <QFileInfo>

namespace {

const QStringList headerExtensions { QStringLiteral("h"), QStringLiteral("hpp"), QStringLiteral("hh") };
const QStringList sourceExtensions { QStringLiteral("cpp"), QStringLiteral("cxx"), QStringLiteral("cc"),
    QStringLiteral("c") };

QString companion(const QString& fileName, const QStringList& extensions)
{
    const QFileInfo info(fileName);
    for (const auto& extension : extensions) {
        auto found = FindFileIgnoringCase(info.absolutePath() + u'/' + info.completeBaseName() + u'.' + extension);
        if (!found.isEmpty())
            return found;
    }
    return {};
}

// The unit that an include names: its path without folder and extension.
QString unitOf(const CppInclude& include)
{
    auto name = include.Path;
    name.replace(u'\\', u'/');
    return QFileInfo(name).completeBaseName();
}

QStringList unitsOf(const QList<CppInclude>& includes)
{
    QStringList units;
    for (const auto& include : includes)
        units << unitOf(include);
    return units;
}

}

std::unique_ptr<CppUnit> CppUnit::Open(const QString& fileName, Failure& failure)
{
    const bool isHeader = headerExtensions.contains(QFileInfo(fileName).suffix(), Qt::CaseInsensitive);
    auto named = SourceFile::Read(fileName, failure);
    if (!named)
        return {};
    std::optional<SourceFile> other;
    if (const auto name = companion(fileName, isHeader ? sourceExtensions : headerExtensions); !name.isEmpty()) {
        other = SourceFile::Read(name, failure);
        if (!other)
            return {};
    }
    return isHeader ? std::make_unique<CppUnit>(other, named) : std::make_unique<CppUnit>(named, other);
}

std::unique_ptr<CppUnit> CppUnit::From(const QList<FileContent>& files)
{
    std::optional<SourceFile> source;
    std::optional<SourceFile> header;
    for (const auto& file : files) {
        const bool isHeader = headerExtensions.contains(QFileInfo(file.FileName).suffix(), Qt::CaseInsensitive);
        (isHeader ? header : source) = SourceFile(file.FileName, file.Bytes);
    }
    return source || header ? std::make_unique<CppUnit>(source, header) : nullptr;
}

CppUnit::CppUnit(const std::optional<SourceFile>& source, const std::optional<SourceFile>& header)
{
    if (source)
        FSource.emplace(*source);
    if (header)
        FHeader.emplace(*header);
}

QString CppUnit::UnitName() const
{
    return QFileInfo((FSource ? *FSource : *FHeader).File.FileName()).completeBaseName();
}

QString CppUnit::Folder() const
{
    return QFileInfo((FSource ? *FSource : *FHeader).File.FileName()).absolutePath();
}

QList<FileContent> CppUnit::Files() const
{
    QList<FileContent> files;
    if (FSource)
        files << FSource->File.Content();
    if (FHeader)
        files << FHeader->File.Content();
    return files;
}

// In the order in which Files() gives them; their names may be others by now.
void CppUnit::Restore(const QList<FileContent>& files)
{
    auto next = files.cbegin();
    for (auto* part : { &FSource, &FHeader })
        if (*part && next != files.cend()) {
            part->emplace(SourceFile(next->FileName, next->Bytes));
            ++next;
        }
}

QStringList CppUnit::InterfaceUses() const
{
    return FHeader ? unitsOf(FHeader->Syntax.Includes()) : QStringList();
}

QStringList CppUnit::ImplementationUses() const
{
    return FSource ? unitsOf(FSource->Syntax.Includes()) : QStringList();
}

Problems CppUnit::Check() const
{
    Problems problems;
    for (const auto* part : { FSource ? &*FSource : nullptr, FHeader ? &*FHeader : nullptr }) {
        if (!part)
            continue;
        for (const auto& token : part->Syntax.Tokens()) {
            const bool comment = token.Type == SourceToken::Comment;
            const bool local = !comment && token.End() < part->File.Text().size();
            if (token.Unterminated)
                problems << part->File.ProblemAt(token.Offset,
                    comment ? QStringLiteral("this comment is not closed")
                            : QStringLiteral("this string is not closed"),
                    local ? Problem::Warning : Problem::Error);
        }
    }
    return problems;
}

std::optional<CppClass> CppUnit::RequireClass(const QString& className, Failure& failure) const
{
    if (!IsSound(failure))
        return {};
    const auto& part = *ClassPart();
    auto found = part.Syntax.FindClass(className);
    if (!found) {
        failure = part.File.ProblemAt(0, QStringLiteral("the unit does not declare the class %1").arg(className));
    } else if (found->End < 0) {
        failure = part.File.ProblemAt(
            part.Token(found->NameToken).Offset, QStringLiteral("the class %1 has no end").arg(className));
        found.reset();
    }
    return found;
}

std::optional<ClassDeclaration> CppUnit::FindClass(const QString& className) const
{
    const auto found = ClassPart()->Syntax.FindClass(className);
    if (!found || found->End < 0)
        return {};
    ClassDeclaration declaration { found->Name, found->Ancestor, {}, found->Methods };
    for (const auto& field : found->Fields)
        declaration.PublishedFields << field.Declaration;
    return declaration;
}

Failure CppUnit::Part::Change(const QList<SourceEdit>& edits)
{
    if (auto failure = File.Apply(edits))
        return failure;
    Syntax = CppSyntax(File.Text());
    return {};
}

bool CppUnit::Part::StartsLine(int token) const
{
    const auto offset = Token(token).Offset;
    return File.LineStart(offset) + File.IndentAt(offset).size() == offset;
}

// The place behind a token and the comment that ends its line, and whether it is the start of a line. Conditionals
// opened deeper than `depth` are left first.
std::pair<qsizetype, bool> CppUnit::Part::Behind(int token, int depth) const
{
    while (token + 1 < Syntax.Tokens().size() && Token(token).Depth > depth)
        ++token;
    for (int next = token + 1; next < Syntax.Tokens().size(); ++next) {
        const auto text = Token(next).In(File.Text());
        const bool ends = text.contains(u'\n') || text.contains(u'\r');
        if (Token(next).Type == SourceToken::Blank && ends)
            return { File.NextLineStart(Token(next).Offset), true };
        if (Token(next).Type > SourceToken::Comment || ends)
            break;
    }
    return { Token(token).End(), false };
}
