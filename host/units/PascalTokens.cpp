#include "units/SourceToken.h"

#include <QList>
#include <QString>

namespace {

bool isWordStart(QChar c)
{
    return c.isLetter() || c == u'_' || c.isSurrogate();
}
bool isWordPart(QChar c)
{
    return c.isLetterOrNumber() || c == u'_' || c.isSurrogate() || c.isMark();
}
bool isLineEnd(QChar c)
{
    return c == u'\n' || c == u'\r';
}

// One open {$IFDEF}: whether the branch at hand counts, and whether the surroundings do.
struct Conditional {
    bool Branch = true;
    bool Outside = true;
    bool Taken = true; // a branch of it counted already
};

class PascalLexer {
public:
    PascalLexer(QStringView text, PascalDialect dialect)
        : FText(text)
        , FDialect(dialect)
    {
    }

    SourceTokens Run()
    {
        while (FAt < FText.size())
            Next();
        return FTokens;
    }

private:
    QChar At(qsizetype offset) const { return offset < FText.size() ? FText[offset] : QChar(); }

    void Next()
    {
        const QChar c = FText[FAt];
        if (c.isSpace() || c == u'\x1A' || c == u'\xFEFF')
            return Add(SourceToken::Blank, EndOfBlank());
        if (c == u'{' || (c == u'(' && At(FAt + 1) == u'*'))
            return AddBraced();
        if (c == u'/' && At(FAt + 1) == u'/')
            return Add(SourceToken::Comment, EndOfLine(FAt));
        if (c == u'\'')
            return AddString();
        if (c == u'#' || c == u'$' || c == u'%' || c.isDigit())
            return AddNumber();
        if (isWordStart(c) || (c == u'&' && isWordStart(At(FAt + 1))))
            return Add(SourceToken::Word, EndOfWord());
        Add(SourceToken::Symbol, FAt + SymbolLength());
    }

    void Add(SourceToken::Kind kind, qsizetype end, bool unterminated = false)
    {
        const bool active = FOpen.isEmpty() || (FOpen.last().Branch && FOpen.last().Outside);
        FTokens.append({ kind, FAt, end - FAt, int(FOpen.size()), active, unterminated });
        FAt = end;
    }

    qsizetype EndOfBlank() const
    {
        auto end = FAt;
        while (end < FText.size() && (FText[end].isSpace() || FText[end] == u'\x1A' || FText[end] == u'\xFEFF'))
            ++end;
        return end;
    }

    qsizetype EndOfLine(qsizetype from) const
    {
        while (from < FText.size() && !isLineEnd(FText[from]))
            ++from;
        return from;
    }

    qsizetype EndOfWord() const
    {
        auto end = FAt + 1;
        while (end < FText.size() && isWordPart(FText[end]))
            ++end;
        return end;
    }

    int SymbolLength() const
    {
        static const QList<QString> pairs { QStringLiteral(":="), QStringLiteral(".."), QStringLiteral("<="),
            QStringLiteral(">="), QStringLiteral("<>") };
        return pairs.contains(FText.sliced(FAt, qMin(qsizetype(2), FText.size() - FAt))) ? 2 : 1;
    }

    // A comment or a directive, in braces or in parentheses with stars.
    void AddBraced()
    {
        const bool brace = FText[FAt] == u'{';
        const QString open = brace ? QStringLiteral("{") : QStringLiteral("(*");
        const QString close = brace ? QStringLiteral("}") : QStringLiteral("*)");
        const bool directive = At(FAt + open.size()) == u'$';
        auto end = FAt + open.size();
        int depth = 1;
        while (depth > 0 && end < FText.size()) {
            if (FText.sliced(end).startsWith(close)) {
                --depth;
                end += close.size();
            } else if (FNested && !directive && FText.sliced(end).startsWith(open)) {
                ++depth;
                end += open.size();
            } else {
                ++end;
            }
        }
        if (!directive || depth > 0)
            return Add(SourceToken::Comment, end, depth > 0);
        Follow(FText.sliced(FAt + open.size() + 1, end - close.size() - FAt - open.size() - 1).toString(), end);
    }

    // Keeps the books of the conditionals. The directive itself stands outside of what it opens or closes.
    void Follow(const QString& directive, qsizetype end)
    {
        const auto text = directive.trimmed().toUpper();
        const auto name = text.section(QChar(u' '), 0, 0);
        const auto argument = text.section(QChar(u' '), 1).trimmed();
        const bool closes = name == u"ENDIF" || name == u"IFEND";
        const bool turns = name == u"ELSE" || name == u"ELSEIF";
        if (closes && !FOpen.isEmpty())
            FOpen.removeLast();
        const auto at = FTokens.size();
        Add(SourceToken::Directive, end);
        if (turns && !FOpen.isEmpty())
            Turn();
        if (name == u"IFDEF" || name == u"IFNDEF" || name == u"IF" || name == u"IFOPT")
            Open(name, argument, FTokens[at].Active);
        SetMode(name, argument);
    }

    void Open(const QString& name, const QString& argument, bool outside)
    {
        const auto known = Known(argument.section(QChar(u' '), 0, 0));
        const bool branch = name == u"IFDEF" ? known.value_or(true) : name == u"IFNDEF" ? !known.value_or(false) : true;
        FOpen.append({ branch, outside, branch });
    }

    // The first branch that is not known to be left out counts, and none after it.
    void Turn()
    {
        auto& open = FOpen.last();
        open.Branch = !open.Taken;
        open.Taken = true;
        FTokens.last().Active = open.Outside;
    }

    std::optional<bool> Known(const QString& symbol) const
    {
        const bool lazarus = FDialect == PascalDialect::Lazarus;
        if (symbol == u"FPC" || symbol == u"LCL")
            return lazarus;
        if (symbol == u"DCC" || symbol == u"CONDITIONALEXPRESSIONS" || symbol == u"BORLAND")
            return !lazarus;
        return {};
    }

    // Comments nest where the compiler's mode says so.
    void SetMode(const QString& name, const QString& argument)
    {
        if (name == u"MODE" && FDialect == PascalDialect::Lazarus)
            FNested = argument == u"OBJFPC" || argument == u"FPC";
        if (name == u"MODESWITCH" && argument.startsWith(u"NESTEDCOMMENT"))
            FNested = !argument.endsWith(u'-');
    }

    void AddString()
    {
        auto quotes = FAt;
        while (At(quotes) == u'\'')
            ++quotes;
        const auto count = quotes - FAt;
        if (FDialect == PascalDialect::Delphi && count >= 3 && count % 2 == 1 && isLineEnd(At(quotes)))
            return AddTextBlock(count);
        auto end = FAt + 1;
        while (end < FText.size() && !isLineEnd(FText[end])) {
            if (FText[end++] != u'\'')
                continue;
            if (At(end) != u'\'')
                return Add(SourceToken::Text, end);
            ++end;
        }
        Add(SourceToken::Text, end, true);
    }

    // A text of several lines: it ends with a line that begins with as many quotes.
    void AddTextBlock(qsizetype count)
    {
        const QString quotes(count, u'\'');
        for (auto line = EndOfLine(FAt); line < FText.size(); line = EndOfLine(line + 1)) {
            auto begin = line + 1;
            while (At(begin) == u' ' || At(begin) == u'\t')
                ++begin;
            if (begin < FText.size() && FText.sliced(begin).startsWith(quotes))
                return Add(SourceToken::Text, begin + count);
        }
        Add(SourceToken::Text, FText.size(), true);
    }

    // Numbers in any base, and characters by their number. A range as in 1..2 is no fraction.
    void AddNumber()
    {
        const bool character = FText[FAt] == u'#';
        auto end = FAt + 1;
        if (character && At(end) == u'$')
            ++end;
        while (end < FText.size()) {
            const bool fraction = FText[end] == u'.' && At(end + 1).isDigit() && !character;
            if (!isWordPart(FText[end]) && !fraction)
                break;
            ++end;
        }
        Add(SourceToken::Number, end);
    }

    QStringView FText;
    PascalDialect FDialect;
    qsizetype FAt = 0;
    bool FNested = false;
    SourceTokens FTokens;
    QList<Conditional> FOpen;
};

}

SourceTokens TokenizePascal(QStringView text, PascalDialect dialect)
{
    return PascalLexer(text, dialect).Run();
}
