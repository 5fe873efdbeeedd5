#pragma once

#include <QByteArray>
#include <QString>

// How the bytes of a form's strings and names become characters. A small value, copied freely.
class FormEncoding {
public:
    FormEncoding() = default; // UTF-8

    static FormEncoding utf8() { return {}; }
    // A code page by the name that the system's converter knows ("windows-1252", "windows-1251", "shift_jis").
    static FormEncoding codePage(const QByteArray& name);
    // What the bytes of a file without a mark are in: UTF-8 where they are valid UTF-8, else the code page.
    static FormEncoding detect(QByteArrayView bytes, const QByteArray& codePage);

    bool isValid() const; // false where the system knows no code page of this name
    bool isUtf8() const { return m_codePage.isEmpty(); }
    QByteArray name() const { return isUtf8() ? QByteArrayLiteral("utf-8") : m_codePage; }

    QString decode(QByteArrayView bytes) const;
    QByteArray encode(QStringView text) const;
    bool canEncode(QStringView text) const;
    qsizetype characters(QByteArrayView bytes) const; // how many characters (code points) the bytes make

    bool isSame(QByteArrayView bytes, QStringView text) const; // case does not count

    bool operator==(const FormEncoding&) const = default;

private:
    QByteArray m_codePage; // empty: UTF-8
};
