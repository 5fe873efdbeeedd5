#pragma once

#include <QList>
#include <QStringView>

// A piece of source text. The tokens of a text follow one another without a gap: put together they are the text.
struct SourceToken {
    enum Kind {
        Blank, // blanks, tabs and line ends
        Comment,
        Directive, // {$...} in Pascal, a whole # line in C++
        Text, // a string or character literal
        Number,
        Word, // a name or a keyword
        Symbol
    };

    Kind Type = Blank;
    qsizetype Offset = 0;
    qsizetype Length = 0;
    int Depth = 0; // how many conditional directives are open around it
    bool Active = true; // false in a branch that the conditionals known to the reader leave out
    bool Unterminated = false; // a comment or a literal that the end of the text cut off

    qsizetype End() const { return Offset + Length; }
    QStringView In(QStringView text) const { return text.sliced(Offset, Length); }
    bool IsCode() const { return Active && Type >= Text; }
};

using SourceTokens = QList<SourceToken>;

// Which words stand for what is known about the compiler, in conditional directives.
enum class PascalDialect { Delphi, Lazarus };

SourceTokens TokenizePascal(QStringView text, PascalDialect dialect);
SourceTokens TokenizeCpp(QStringView text);
