#include "data/StatementText.h"

#include <utility>

namespace {

// Walks over a statement piece by piece: quoted text, comments, everything else.
class StatementScanner {
public:
    explicit StatementScanner(const QString& text)
        : FText(text)
    {
    }
    bool AtEnd() const { return FAt >= FText.size(); }
    QChar Here() const { return FText[FAt]; }
    QChar Next() const { return FAt + 1 < FText.size() ? FText[FAt + 1] : QChar(); }
    qsizetype At() const { return FAt; }
    void Step(qsizetype count = 1) { FAt += count; }

    // Passes quoted text and brackets; an empty view where none begins here.
    QStringView PassQuoted()
    {
        const auto from = FAt;
        if (Here() == u'\'' || Here() == u'"' || Here() == u'`')
            PassTo(Here(), 1);
        else if (Here() == u'[' && !(from > 0 && IsNamePart(FText[from - 1])))
            PassTo(u']', 1);
        return QStringView(FText).mid(from, FAt - from);
    }
    // The same for comments.
    QStringView PassComment()
    {
        const auto from = FAt;
        if (Here() == u'-' && Next() == u'-')
            PassTo(u'\n', 2);
        else if (Here() == u'/' && Next() == u'*')
            PassToEndOfComment();
        return QStringView(FText).mid(from, FAt - from);
    }
    QString PassName()
    {
        const auto from = FAt;
        while (!AtEnd() && IsNamePart(Here()))
            ++FAt;
        return FText.mid(from, FAt - from);
    }
    static bool IsNamePart(QChar c) { return c.isLetterOrNumber() || c == u'_' || c == u'$' || c == u'#'; }

private:
    void PassTo(QChar close, int skip)
    {
        const auto end = FText.indexOf(close, FAt + skip);
        FAt = end < 0 ? FText.size() : end + 1;
    }
    void PassToEndOfComment()
    {
        const auto end = FText.indexOf(QLatin1String("*/"), FAt + 2);
        FAt = end < 0 ? FText.size() : end + 2;
    }

    const QString& FText;
    qsizetype FAt = 0;
};

// The parameter that begins at the colon here, or an empty name.
QString PassParameter(StatementScanner& scan)
{
    scan.Step();
    if (scan.AtEnd())
        return {};
    if (scan.Here() == u'"') {
        const auto quoted = scan.PassQuoted();
        return quoted.mid(1, quoted.size() - 2).toString();
    }
    return scan.PassName();
}

}

TParsedStatement ParseStatement(const QString& sql)
{
    TParsedStatement parsed;
    StatementScanner scan(sql);
    while (!scan.AtEnd()) {
        if (!scan.PassComment().isEmpty()) {
            parsed.Text += u' ';
        } else if (const auto quoted = scan.PassQuoted(); !quoted.isEmpty()) {
            parsed.Text += quoted;
        } else if (scan.Here() == u':' && (scan.Next() == u':' || scan.Next() == u'=')) {
            parsed.Text += scan.Here();
            parsed.Text += scan.Next();
            scan.Step(2);
        } else if (scan.Here() == u':') {
            const auto name = PassParameter(scan);
            parsed.Text += name.isEmpty() ? u':' : u'?';
            if (!name.isEmpty())
                parsed.Names << name;
        } else {
            parsed.Text += scan.Here();
            scan.Step();
        }
    }
    while (!parsed.Text.isEmpty() && (parsed.Text.back().isSpace() || parsed.Text.back() == u';'))
        parsed.Text.chop(1);
    return parsed;
}

QString FirstKeyword(const QString& sql)
{
    StatementScanner scan(sql);
    while (!scan.AtEnd()) {
        if (!scan.PassComment().isEmpty())
            continue;
        if (!scan.Here().isSpace() && scan.Here() != u'(')
            break;
        scan.Step();
    }
    return scan.PassName().toUpper();
}
