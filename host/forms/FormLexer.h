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

    Kind kind = Kind::End;
    char mark = 0; // of Kind::Mark
    qsizetype begin = 0;
    qsizetype end = 0;

    qsizetype size() const { return end - begin; }
    bool is(char c) const { return kind == Kind::Mark && mark == c; }
};

// Cuts the bytes of a form in text into tokens. Keeps no copy: the bytes must outlive it and the tokens.
class FormLexer {
public:
    explicit FormLexer(QByteArrayView bytes, qsizetype start = 0);

    FormToken next();
    QByteArrayView text(const FormToken& token) const { return m_bytes.sliced(token.begin, token.size()); }
    QByteArrayView bytes() const { return m_bytes; }

    const char* message() const { return m_message; } // of the last token of Kind::Error, else nil
    bool sawRawNonAscii() const { return m_rawNonAscii; } // a string held bytes above 127 as they are

    static bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); } // line ends, too

private:
    void symbol(FormToken& token);
    void number(FormToken& token);
    void hexNumber(FormToken& token);
    void string(FormToken& token);
    bool quoted();
    bool escape();
    void binary(FormToken& token);
    void fail(FormToken& token, const char* message);
    void digits();
    uchar classOf(qsizetype at) const;

    QByteArrayView m_bytes;
    qsizetype m_at;
    const char* m_message = nullptr;
    bool m_rawNonAscii = false;
};
