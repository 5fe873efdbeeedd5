#pragma once

#include <QByteArrayView>

// One token of a form in text. `begin` and `end` are places in the bytes that the lexer was given.
struct FormToken {
    enum class Kind : uchar {
        End, // of the bytes
        Symbol, // object, Caption, clBtnFace; bytes above 127 count as letters
        Integer, // 12, -12, $1F
        Real, // 1.5, -1E10, and numbers with a suffix: 1.5s (single), 1.5c (currency), 1.5d (date)
        String, // one run of '...' and #n without blanks between
        Binary, // { hex digits }, braces included
        Mark, // a single character: : = [ ] ( ) < > , . + /
        Error, // message() says why
    };

    Kind Type = Kind::End;
    char Mark = 0; // of Kind::Mark
    qsizetype Begin = 0;
    qsizetype End = 0;

    qsizetype size() const { return End - Begin; }
    bool Is(char c) const { return Type == Kind::Mark && Mark == c; }
};

// Cuts the bytes of a form in text into tokens. Keeps no copy: the bytes must outlive it and the tokens.
class FormLexer {
public:
    explicit FormLexer(QByteArrayView bytes, qsizetype start = 0);

    FormToken Next();
    QByteArrayView Text(const FormToken& token) const { return FBytes.sliced(token.Begin, token.size()); }
    QByteArrayView Bytes() const { return FBytes; }

    const char* Message() const { return FMessage; } // of the last token of Kind::Error, else nil
    bool SawRawNonAscii() const { return FRawNonAscii; } // a string held bytes above 127 as they are

    static bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); } // line ends, too

private:
    void Symbol(FormToken& token);
    void Number(FormToken& token);
    void HexNumber(FormToken& token);
    void String(FormToken& token);
    bool Quoted();
    bool Escape();
    void Binary(FormToken& token);
    void Fail(FormToken& token, const char* message);
    void Digits();
    uchar ClassOf(qsizetype at) const;

    QByteArrayView FBytes;
    qsizetype FAt;
    const char* FMessage = nullptr;
    bool FRawNonAscii = false;
};
