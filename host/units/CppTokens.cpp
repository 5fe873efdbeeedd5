#include "units/SourceToken.h"

#include <QString>

namespace {

bool isWordStart(QChar c)
{
    return c.isLetter() || c == u'_' || c == u'$' || c.isSurrogate();
}
bool isWordPart(QChar c)
{
    return isWordStart(c) || c.isDigit() || c.isMark();
}
bool isLineEnd(QChar c)
{
    return c == u'\n' || c == u'\r';
}

class CppLexer {
public:
    explicit CppLexer(QStringView text)
        : FText(text)
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
        if (c == u'/' && At(FAt + 1) == u'/')
            return Add(SourceToken::Comment, EndOfLine(FAt));
        if (c == u'/' && At(FAt + 1) == u'*')
            return AddBlockComment();
        if (c == u'#' && FLineIsEmpty)
            return AddDirective();
        FLineIsEmpty = false;
        if (c == u'R' && At(FAt + 1) == u'"')
            return AddRawString();
        if (c == u'"' || c == u'\'')
            return AddLiteral(c);
        if (c.isDigit())
            return AddNumber();
        if (isWordStart(c))
            return AddWord();
        const bool scope = FText.sliced(FAt).startsWith(u"::");
        Add(SourceToken::Symbol, FAt + (scope ? 2 : 1));
    }

    void Add(SourceToken::Kind kind, qsizetype end, bool unterminated = false)
    {
        FTokens.append({ kind, FAt, end - FAt, FDepth, true, unterminated });
        FAt = end;
    }

    qsizetype EndOfBlank()
    {
        auto end = FAt;
        while (end < FText.size() && (FText[end].isSpace() || FText[end] == u'\x1A' || FText[end] == u'\xFEFF')) {
            FLineIsEmpty = FLineIsEmpty || isLineEnd(FText[end]);
            ++end;
        }
        return end;
    }

    // A backslash before the line's end carries the line on.
    qsizetype EndOfLine(qsizetype from) const
    {
        while (from < FText.size() && !isLineEnd(FText[from])) {
            if (FText[from] == u'\\' && At(from + 1) == u'\r' && At(from + 2) == u'\n')
                from += 2;
            else if (FText[from] == u'\\' && isLineEnd(At(from + 1)))
                from += 1;
            ++from;
        }
        return qMin(from, FText.size());
    }

    void AddBlockComment()
    {
        const auto end = FText.indexOf(u"*/", FAt + 2);
        Add(SourceToken::Comment, end < 0 ? FText.size() : end + 2, end < 0);
    }

    // A line that begins with #, without the comment at its end.
    void AddDirective()
    {
        auto end = EndOfLine(FAt);
        const auto line = FText.sliced(FAt, end - FAt);
        for (const auto comment : { line.indexOf(u"//"), line.indexOf(u"/*") }) {
            if (comment > 0 && FAt + comment < end && !line.sliced(0, comment).contains(u'"'))
                end = FAt + comment;
        }
        const auto name = FText.sliced(FAt + 1, end - FAt - 1).trimmed();
        if (name.startsWith(u"endif"))
            FDepth = qMax(0, FDepth - 1);
        Add(SourceToken::Directive, end);
        if (name.startsWith(u"if"))
            ++FDepth;
    }

    void AddRawString()
    {
        const auto open = FText.indexOf(u'(', FAt);
        const auto mark
            = open < 0 ? QString() : QString(u')' + FText.sliced(FAt + 2, open - FAt - 2).toString() + u'"');
        const auto close = open < 0 ? -1 : FText.indexOf(mark, open);
        Add(SourceToken::Text, close < 0 ? FText.size() : close + mark.size(), close < 0);
    }

    void AddLiteral(QChar quote)
    {
        auto end = FAt + 1;
        while (end < FText.size() && !isLineEnd(FText[end])) {
            if (FText[end] == quote)
                return Add(SourceToken::Text, end + 1);
            end += FText[end] == u'\\' ? 2 : 1;
        }
        Add(SourceToken::Text, qMin(end, FText.size()), true);
    }

    void AddNumber()
    {
        auto end = FAt + 1;
        while (end < FText.size() && (isWordPart(FText[end]) || FText[end] == u'.' || FText[end] == u'\''))
            ++end;
        Add(SourceToken::Number, end);
    }

    void AddWord()
    {
        auto end = FAt + 1;
        while (end < FText.size() && isWordPart(FText[end]))
            ++end;
        Add(SourceToken::Word, end);
    }

    QStringView FText;
    qsizetype FAt = 0;
    int FDepth = 0;
    bool FLineIsEmpty = true;
    SourceTokens FTokens;
};

}

SourceTokens TokenizeCpp(QStringView text)
{
    return CppLexer(text).Run();
}
