#include "data/ExpressionTypes.h"

#include "data/DeclaredType.h"
#include "rtl/SysUtils.h"

#include <QRegularExpression>

namespace {

// A piece of a statement outside of quotes and parentheses, or a quoted text or parenthesis as a whole.
struct Piece {
    QString Text;
    bool IsWord = false;
};

qsizetype EndOfQuote(const QString& text, qsizetype from)
{
    const QChar close = text[from] == u'[' ? u']' : text[from];
    const auto end = text.indexOf(close, from + 1);
    return end < 0 ? text.size() : end + 1;
}

qsizetype EndOfParenthesis(const QString& text, qsizetype from)
{
    int depth = 0;
    for (auto at = from; at < text.size();) {
        if (QStringLiteral("'\"`").contains(text[at])) {
            at = EndOfQuote(text, at);
            continue;
        }
        depth += text[at] == u'(' ? 1 : text[at] == u')' ? -1 : 0;
        ++at;
        if (depth == 0)
            return at;
    }
    return text.size();
}

QList<Piece> PiecesOf(const QString& text)
{
    QList<Piece> pieces;
    for (qsizetype at = 0; at < text.size();) {
        const auto from = at;
        const auto c = text[at];
        const bool isWord = c.isLetterOrNumber() || c == u'_';
        if (QStringLiteral("'\"`[").contains(c))
            at = EndOfQuote(text, at);
        else if (c == u'(')
            at = EndOfParenthesis(text, at);
        else if (isWord)
            while (at < text.size() && (text[at].isLetterOrNumber() || text[at] == u'_' || text[at] == u'.'))
                ++at;
        else
            at += text.mid(at, 2) == QLatin1String("||") ? 2 : 1;
        pieces.append({ text.mid(from, at - from), isWord });
    }
    return pieces;
}

bool IsKeyword(const Piece& piece, const char* word)
{
    return piece.IsWord && SameText(piece.Text, QString::fromLatin1(word));
}

QString Joined(const QList<Piece>& pieces, qsizetype from, qsizetype to)
{
    QString text;
    for (auto i = from; i < to; ++i)
        text += pieces[i].Text;
    return text.trimmed();
}

// The parts between separators that stand outside of quotes and parentheses.
QStringList SplitAt(const QString& text, const QStringList& separators)
{
    QStringList parts;
    const auto pieces = PiecesOf(text);
    qsizetype from = 0;
    for (qsizetype i = 0; i < pieces.size(); ++i)
        if (separators.contains(pieces[i].Text, Qt::CaseInsensitive)) {
            parts << Joined(pieces, from, i);
            from = i + 1;
        }
    return parts << Joined(pieces, from, pieces.size());
}

// A select statement in three: what stands before its columns, the columns, and the tables they come from.
struct SelectParts {
    QString Before;
    QStringList Columns;
    QString From;
};

// Where the clause that begins at that piece ends: at the next of these words.
qsizetype EndOfClause(const QList<Piece>& pieces, qsizetype from, const char* words)
{
    const auto closing = QString::fromLatin1(words).split(u' ');
    while (from < pieces.size() && !(pieces[from].IsWord && closing.contains(pieces[from].Text, Qt::CaseInsensitive)))
        ++from;
    return from;
}

SelectParts PartsOf(const QString& statement)
{
    SelectParts parts;
    const auto pieces = PiecesOf(statement);
    qsizetype first = 0;
    while (first < pieces.size() && !IsKeyword(pieces[first], "SELECT"))
        ++first;
    const auto from = std::min(first + 1, pieces.size());
    const auto end = EndOfClause(pieces, from, "FROM UNION EXCEPT INTERSECT ORDER LIMIT");
    parts.Before = Joined(pieces, 0, first);
    auto columns = Joined(pieces, from, end);
    static const QRegularExpression quantifier(
        QStringLiteral("^(DISTINCT|ALL)\\s+"), QRegularExpression::CaseInsensitiveOption);
    columns.remove(quantifier);
    parts.Columns = SplitAt(columns, { QStringLiteral(",") });
    if (end < pieces.size() && IsKeyword(pieces[end], "FROM"))
        parts.From = Joined(
            pieces, end, EndOfClause(pieces, end, "WHERE GROUP HAVING WINDOW UNION EXCEPT INTERSECT ORDER LIMIT"));
    return parts;
}

bool IsStar(const QString& column)
{
    return column == QLatin1String("*") || column.endsWith(QLatin1String(".*"))
        || column.endsWith(QLatin1String(". *"));
}

QString WithoutAlias(const QString& column)
{
    const auto pieces = PiecesOf(column);
    for (auto i = pieces.size() - 1; i > 0; --i)
        if (IsKeyword(pieces[i], "AS"))
            return Joined(pieces, 0, i);
    const auto last = pieces.size() - 1;
    const bool hasBareAlias = last >= 2 && pieces[last].IsWord && pieces[last - 1].Text.trimmed().isEmpty()
        && !IsKeyword(pieces[last], "END") && !IsKeyword(pieces[last], "NULL")
        && (pieces[last - 2].IsWord || pieces[last - 2].Text.endsWith(u')'));
    return hasBareAlias ? Joined(pieces, 0, last) : column;
}

// Reads expressions; knows the statement that they stand in, to have their columns described there.
class ExpressionReader {
public:
    ExpressionReader(const SelectParts& parts, const std::function<TDataColumn(const QString&)>& describe)
        : FParts(parts)
        , FDescribe(describe)
    {
    }

    TDataColumn TypeOf(const QString& expression) const
    {
        const auto text = expression.trimmed();
        if (text.isEmpty())
            return {};
        if (const auto found = Literal(text); found.DataType != ftUnknown)
            return found;
        if (SplitAt(text, { QStringLiteral("||") }).size() > 1)
            return TextColumn(ftString, 0);
        if (const auto cases = Case(text); cases.DataType != ftUnknown)
            return cases;
        const auto operands = SplitAt(text,
            { QStringLiteral("+"), QStringLiteral("-"), QStringLiteral("*"), QStringLiteral("/"),
                QStringLiteral("%") });
        if (operands.size() > 1)
            return Arithmetic(operands);
        if (const auto called = Function(text); called.DataType != ftUnknown)
            return called;
        if (text.startsWith(u'(') && EndOfParenthesis(text, 0) == text.size())
            return Parenthesis(text.mid(1, text.size() - 2));
        return Declared(text);
    }

private:
    static TDataColumn Of(TFieldType type)
    {
        TDataColumn column;
        column.DataType = type;
        return column;
    }

    static TDataColumn Literal(const QString& text)
    {
        static const QRegularExpression number(QStringLiteral("^\\d+$"));
        static const QRegularExpression decimal(QStringLiteral("^\\d*\\.\\d+$"));
        if (number.match(text).hasMatch())
            return Of(ftInteger);
        if (decimal.match(text).hasMatch())
            return Of(ftFloat);
        if (text.startsWith(u'\'') && EndOfQuote(text, 0) == text.size())
            return TextColumn(ftString, 0);
        return {};
    }

    // The first result of a CASE that has a type.
    TDataColumn Case(const QString& text) const
    {
        const auto pieces = PiecesOf(text);
        if (!IsKeyword(pieces.first(), "CASE"))
            return {};
        const auto parts = SplitAt(text,
            { QStringLiteral("CASE"), QStringLiteral("WHEN"), QStringLiteral("THEN"), QStringLiteral("ELSE"),
                QStringLiteral("END") });
        for (qsizetype i = 3; i < parts.size(); i += 2)
            if (const auto result = TypeOf(parts[i]); result.DataType != ftUnknown)
                return result;
        return {};
    }

    TDataColumn Arithmetic(const QStringList& operands) const
    {
        for (const auto& operand : operands) {
            const auto type = operand.isEmpty() ? ftInteger : TypeOf(operand).DataType;
            if (type != ftInteger && type != ftLargeint && type != ftSmallint && type != ftAutoInc)
                return Of(ftFloat);
        }
        return Of(ftLargeint);
    }

    TDataColumn Function(const QString& text) const
    {
        static const QRegularExpression call(
            QStringLiteral("^([A-Za-z_]+)\\s*(\\(.*)$"), QRegularExpression::DotMatchesEverythingOption);
        const auto match = call.match(text);
        if (!match.hasMatch() || EndOfParenthesis(match.captured(2), 0) != match.captured(2).size())
            return {};
        const auto name = match.captured(1).toUpper();
        const auto inner = match.captured(2).mid(1, match.captured(2).size() - 2);
        if (name == QLatin1String("CAST"))
            return DeclaredType(SplitAt(inner, { QStringLiteral("AS") }).last());
        return Result(name, SplitAt(inner, { QStringLiteral(",") }));
    }

    TDataColumn Result(const QString& name, const QStringList& arguments) const
    {
        static const auto counting
            = QStringLiteral("COUNT ROW_NUMBER RANK DENSE_RANK NTILE LENGTH INSTR UNICODE CHANGES RANDOM SIGN")
                  .split(u' ');
        static const auto fractional
            = QStringLiteral("AVG TOTAL ROUND JULIANDAY SQRT POW POWER EXP LN LOG").split(u' ');
        static const auto texts
            = QStringLiteral("UPPER LOWER SUBSTR SUBSTRING TRIM LTRIM RTRIM REPLACE PRINTF FORMAT HEX QUOTE "
                             "CHAR DATE TIME DATETIME STRFTIME GROUP_CONCAT STRING_AGG TYPEOF")
                  .split(u' ');
        static const auto passing
            = QStringLiteral("MIN MAX ABS COALESCE IFNULL NULLIF FIRST_VALUE LAST_VALUE LAG LEAD").split(u' ');
        if (counting.contains(name))
            return Of(ftLargeint);
        if (fractional.contains(name))
            return Of(ftFloat);
        if (texts.contains(name))
            return TextColumn(ftString, 0);
        if (passing.contains(name))
            return FirstKnown(arguments);
        if (name == QLatin1String("IIF") && arguments.size() == 3)
            return FirstKnown(arguments.mid(1));
        return name == QLatin1String("SUM") ? Sum(arguments.first()) : TDataColumn();
    }

    TDataColumn FirstKnown(const QStringList& arguments) const
    {
        for (const auto& argument : arguments)
            if (auto found = TypeOf(argument); found.DataType != ftUnknown) {
                found.Required = false;
                if (found.DataType == ftAutoInc)
                    found.DataType = ftInteger;
                return found;
            }
        return {};
    }

    TDataColumn Sum(const QString& argument) const
    {
        const auto summed = TypeOf(argument);
        switch (summed.DataType) {
        case ftShortint:
        case ftByte:
        case ftSmallint:
        case ftWord:
        case ftInteger:
        case ftLongWord:
        case ftAutoInc:
        case ftLargeint:
            return Of(ftLargeint);
        case ftBCD:
        case ftFMTBcd:
            return DecimalColumn(summed.Precision, summed.Size);
        case ftCurrency:
            return Of(ftCurrency);
        default:
            return Of(ftFloat);
        }
    }

    TDataColumn Parenthesis(const QString& inner) const
    {
        const auto pieces = PiecesOf(inner);
        const bool isQuery = !pieces.isEmpty() && IsKeyword(pieces.first(), "SELECT");
        if (!isQuery)
            return TypeOf(inner);
        const auto parts = PartsOf(inner);
        if (parts.Columns.size() != 1)
            return {};
        return ExpressionReader(parts, FDescribe).TypeOf(WithoutAlias(parts.Columns.first()));
    }

    // A column: what its table declares, as the statement sees it.
    TDataColumn Declared(const QString& text) const
    {
        static const QRegularExpression name(QStringLiteral("^[\\w.\"`\\[\\] ]+$"));
        if (!name.match(text).hasMatch())
            return {};
        try {
            return FDescribe(FParts.Before + QStringLiteral(" SELECT ") + text + u' ' + FParts.From);
        } catch (const EDatabaseError&) {
            return {};
        }
    }

    const SelectParts& FParts;
    const std::function<TDataColumn(const QString&)>& FDescribe;
};

// The text of a column of the result, as far as stars leave it known which it is.
QString ColumnText(const QStringList& texts, qsizetype index, qsizetype count)
{
    const auto star = std::find_if(texts.begin(), texts.end(), IsStar) - texts.begin();
    if (index < star)
        return texts.value(index);
    const auto fromEnd = count - index;
    const auto lastStar = texts.rend() - std::find_if(texts.rbegin(), texts.rend(), IsStar) - 1;
    return fromEnd < texts.size() - lastStar ? texts[texts.size() - fromEnd] : QString();
}

}

void ConcludeTypes(
    const QString& statement, QList<TDataColumn>& columns, const std::function<TDataColumn(const QString&)>& describe)
{
    const auto parts = PartsOf(statement);
    const ExpressionReader reader(parts, describe);
    for (qsizetype i = 0; i < columns.size(); ++i) {
        if (columns[i].DataType != ftUnknown)
            continue;
        const auto name = columns[i].Name;
        columns[i] = reader.TypeOf(WithoutAlias(ColumnText(parts.Columns, i, columns.size())));
        columns[i].Name = name;
        columns[i].Required = false;
    }
}
