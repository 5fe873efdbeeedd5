#pragma once

#include <QString>

#include <exception>
#include <initializer_list>

// The exceptions of the platform. One type for all libraries of the process; the message is for people.
class Exception : public std::exception {
public:
    explicit Exception(QString message)
        : FMessage(std::move(message))
        , FUtf8(FMessage.toUtf8())
    {
    }
    const QString& Message() const { return FMessage; }
    const char* what() const noexcept override { return FUtf8.constData(); }

private:
    QString FMessage;
    QByteArray FUtf8;
};

// A silent stop: whoever catches it at the border of an event shows nothing.
class EAbort : public Exception {
public:
    EAbort()
        : Exception(QStringLiteral("Operation aborted"))
    {
    }
};

// A broken invariant. The message is the agreed text; Unit() is the source unit that stated it.
class EAssertionFailed : public Exception {
public:
    EAssertionFailed(QString message, QString unit)
        : Exception(std::move(message))
        , FUnit(std::move(unit))
    {
    }
    const QString& Unit() const { return FUnit; }

private:
    QString FUnit;
};

#define MRV_EXCEPTION(NAME, BASE)                                                                                      \
    class NAME : public BASE {                                                                                         \
    public:                                                                                                            \
        using BASE::BASE;                                                                                              \
    }
MRV_EXCEPTION(EConvertError, Exception);
MRV_EXCEPTION(EInvalidCast, Exception);
MRV_EXCEPTION(EListError, Exception);
MRV_EXCEPTION(EClassNotFound, Exception);
MRV_EXCEPTION(EComponentError, Exception);
MRV_EXCEPTION(EPropertyError, Exception);
MRV_EXCEPTION(EInvalidOperation, Exception);
MRV_EXCEPTION(EStreamError, Exception);
MRV_EXCEPTION(EFOpenError, EStreamError);
MRV_EXCEPTION(EFCreateError, EStreamError);
MRV_EXCEPTION(EResNotFound, Exception);
MRV_EXCEPTION(EDatabaseError, Exception);

// Stops the current operation without a word.
[[noreturn]] void Abort();

// Raises EAssertionFailed with the text unless the condition holds.
void Assert(bool condition, const QString& unit, const QString& text = QStringLiteral("Assertion failure"));

// No regard to case, by the whole text.
bool SameText(QStringView a, QStringView b);
// Below 0, 0 or above 0; no regard to case, ordinal.
int CompareText(QStringView a, QStringView b);

// "True" and "False" with the long form, "-1" and "0" without.
QString BoolToStr(bool value, bool useBoolStrs);
// Reads what BoolToStr writes, in any case, or a number (0 is false). Raises EConvertError for anything else.
bool StrToBool(const QString& text);
// The same with a default instead of the exception.
bool StrToBoolDef(const QString& text, bool defaultValue);
// Decimal, or hexadecimal with a leading "$" or "0x". Raises EConvertError for anything else.
int StrToInt(const QString& text);

// The parts of a file name; both "/" and "\" separate folders. The extension holds its dot, the path its separator.
QString ExtractFileName(const QString& fileName);
QString ExtractFilePath(const QString& fileName);
QString ExtractFileExt(const QString& fileName);
// The name with its extension replaced (or added, when it had none).
QString ChangeFileExt(const QString& fileName, const QString& extension);
// The path with one separator at its end.
QString IncludeTrailingPathDelimiter(const QString& path);

// Format with the platform's placeholders %s, %d, %x, %u (with optional width, "-" and precision) and %%.
// Raises EConvertError when an argument is missing or of the wrong kind.
class FormatArg {
public:
    FormatArg(const QString& text)
        : FText(text)
    {
    }
    FormatArg(int number)
        : FNumber(number)
        , FIsNumber(true)
    {
    }
    FormatArg(qint64 number)
        : FNumber(number)
        , FIsNumber(true)
    {
    }
    bool IsNumber() const { return FIsNumber; }
    qint64 Number() const { return FNumber; }
    const QString& Text() const { return FText; }

private:
    QString FText;
    qint64 FNumber = 0;
    bool FIsNumber = false;
};
QString Format(const QString& format, const std::initializer_list<FormatArg>& args);
