#include "units/CppSyntax.h"

#include <QRegularExpression>

CppSyntax::CppSyntax(const QString& text)
    : FText(text)
    , FTokens(TokenizeCpp(FText))
{
    static const QRegularExpression include(QStringLiteral("^#\\s*include\\s*([<\"])([^>\"]*)[>\"]"));
    for (int i = 0; i < FTokens.size(); ++i) {
        if (FTokens[i].Type != SourceToken::Directive)
            continue;
        const auto match = include.match(FTokens[i].In(FText).toString());
        if (match.hasMatch())
            FIncludes.append({ match.captured(2), match.captured(1) == u"\"", i });
    }
}

int CppSyntax::Next(int index) const
{
    do
        ++index;
    while (index < FTokens.size() && !FTokens[index].IsCode());
    return index < FTokens.size() ? index : -1;
}

int CppSyntax::Previous(int index) const
{
    do
        --index;
    while (index >= 0 && !FTokens[index].IsCode());
    return index;
}

bool CppSyntax::Is(int index, const char* text) const
{
    return index >= 0 && FTokens[index].In(FText) == QLatin1String(text);
}

QString CppSyntax::TextOf(int index) const
{
    return index < 0 ? QString() : FTokens[index].In(FText).toString();
}

int CppSyntax::SkipPair(int index) const
{
    int depth = 0;
    for (; index >= 0; index = Next(index)) {
        if (Is(index, "(") || Is(index, "[") || Is(index, "{"))
            ++depth;
        else if (Is(index, ")") || Is(index, "]") || Is(index, "}"))
            --depth;
        if (depth == 0)
            return index;
    }
    return -1;
}

std::optional<CppClass> CppSyntax::FindClass(const QString& name) const
{
    for (int at = Next(-1); at >= 0; at = Next(at)) {
        const int before = Previous(at);
        const bool begins = Is(at, "class") || Is(at, "struct");
        if (!begins || Is(before, "enum") || Is(before, "friend") || Is(before, "<") || Is(before, ","))
            continue;
        if (auto found = ClassAt(at, name))
            return found;
    }
    return {};
}
