#include "units/SourceUnit.h"

#include "files/FileFinder.h"
#include "units/CppUnit.h"
#include "units/PascalUnit.h"
#include "units/UsedUnits.h"

#include <QFileInfo>

#include <algorithm>

SourceUnit::~SourceUnit() = default;

bool SourceUnit::IsSound(Failure& failure) const
{
    for (const auto& problem : Check()) {
        if (problem.Severity == Problem::Error) {
            failure = problem;
            return false;
        }
    }
    return true;
}

UnitReference UnitReference::FromName(const QString& name)
{
    return { name, name.section(u'.', -1) };
}

bool NamesUnit(const QString& entry, const UnitReference& unit)
{
    return entry.compare(unit.Scoped, Qt::CaseInsensitive) == 0 || entry.compare(unit.Plain, Qt::CaseInsensitive) == 0;
}

bool AreScoped(const QStringList& entries)
{
    static const QStringList namespaces { QStringLiteral("system"), QStringLiteral("vcl"), QStringLiteral("fmx"),
        QStringLiteral("data"), QStringLiteral("winapi"), QStringLiteral("xml"), QStringLiteral("web"),
        QStringLiteral("soap"), QStringLiteral("datasnap"), QStringLiteral("bde"), QStringLiteral("posix") };
    static const QStringList plainUnits { QStringLiteral("sysutils"), QStringLiteral("classes"),
        QStringLiteral("forms"), QStringLiteral("controls"), QStringLiteral("windows"), QStringLiteral("messages"),
        QStringLiteral("variants"), QStringLiteral("graphics"), QStringLiteral("dialogs"), QStringLiteral("stdctrls"),
        QStringLiteral("extctrls"), QStringLiteral("comctrls"), QStringLiteral("menus"), QStringLiteral("buttons"),
        QStringLiteral("db"), QStringLiteral("dbctrls"), QStringLiteral("dbgrids"), QStringLiteral("grids"),
        QStringLiteral("mask") };
    int scoped = 0;
    int plain = 0;
    for (const auto& entry : entries) {
        const auto name = entry.toLower();
        scoped += name.contains(u'.') && namespaces.contains(name.section(u'.', 0, 0)) ? 1 : 0;
        plain += plainUnits.contains(name) ? 1 : 0;
    }
    return scoped > 0 && scoped >= plain;
}

bool IsIdentifier(const QString& name)
{
    const auto part = [](QChar c) { return c.isLetterOrNumber() || c == u'_'; };
    return !name.isEmpty() && !name[0].isDigit() && std::all_of(name.cbegin(), name.cend(), part);
}

bool IsTypeName(const QString& name)
{
    const auto parts = name.split(u'.');
    return std::all_of(parts.cbegin(), parts.cend(), IsIdentifier);
}

namespace {

enum class Language { None, Pascal, Cpp };

Language LanguageOf(const QString& fileName)
{
    static const QStringList pascal { QStringLiteral("pas"), QStringLiteral("pp"), QStringLiteral("dpr"),
        QStringLiteral("dpk"), QStringLiteral("lpr"), QStringLiteral("inc") };
    static const QStringList cpp { QStringLiteral("cpp"), QStringLiteral("h"), QStringLiteral("hpp"),
        QStringLiteral("hh"), QStringLiteral("cxx"), QStringLiteral("cc"), QStringLiteral("c") };
    const auto extension = QFileInfo(fileName).suffix().toLower();
    return cpp.contains(extension) ? Language::Cpp : pascal.contains(extension) ? Language::Pascal : Language::None;
}

PascalDialect DialectOf(bool lazarus)
{
    return lazarus ? PascalDialect::Lazarus : PascalDialect::Delphi;
}

}

std::unique_ptr<SourceUnit> OpenSourceUnit(const QString& fileName, bool lazarus, Failure& failure)
{
    const auto language = LanguageOf(fileName);
    if (language == Language::Cpp)
        return CppUnit::Open(fileName, failure);
    if (language == Language::None) {
        failure = FileError(fileName, QStringLiteral("is no Pascal or C++ unit"));
        return {};
    }
    auto file = SourceFile::Read(fileName, failure);
    if (!file)
        return {};
    return std::make_unique<PascalUnit>(*file, DialectOf(lazarus));
}

std::unique_ptr<SourceUnit> SourceUnitFrom(const QList<FileContent>& files, bool lazarus)
{
    const auto language = files.isEmpty() ? Language::None : LanguageOf(files.first().FileName);
    if (language == Language::Cpp)
        return CppUnit::From(files);
    if (language == Language::None)
        return {};
    return std::make_unique<PascalUnit>(SourceFile(files.first().FileName, files.first().Bytes), DialectOf(lazarus));
}
