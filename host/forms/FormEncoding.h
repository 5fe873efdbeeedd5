#pragma once

#include <QByteArray>
#include <QString>

// How the bytes of a form's strings and names become characters. A small value, copied freely.
class FormEncoding {
public:
    FormEncoding() = default; // UTF-8

    static FormEncoding Utf8() { return {}; }
    // A code page by the name that the system's converter knows ("windows-1252", "windows-1251", "shift_jis").
    static FormEncoding CodePage(const QByteArray& name);
    // What the bytes of a file without a mark are in: UTF-8 where they are valid UTF-8, else the code page.
    static FormEncoding Detect(QByteArrayView bytes, const QByteArray& codePage);

    bool IsValid() const; // false where the system knows no code page of this name
    bool IsUtf8() const { return FCodePage.isEmpty(); }
    QByteArray Name() const { return IsUtf8() ? QByteArrayLiteral("utf-8") : FCodePage; }

    QString Decode(QByteArrayView bytes) const;
    QByteArray Encode(QStringView text) const;
    bool CanEncode(QStringView text) const;
    qsizetype Characters(QByteArrayView bytes) const; // how many characters (code points) the bytes make

    bool IsSame(QByteArrayView bytes, QStringView text) const; // case does not count

    bool operator==(const FormEncoding&) const = default;

private:
    QByteArray FCodePage; // empty: UTF-8
};
