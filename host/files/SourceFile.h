#pragma once

#include "files/Problem.h"
#include "files/SaveTogether.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

// One replacement in a text: `Length` characters from `Offset` on give way to `Text`.
struct SourceEdit {
    qsizetype Offset = 0;
    qsizetype Length = 0;
    QString Text;
};

// A text file that keeps its bytes. The text is what the bytes mean; an edit changes the bytes of the edited place
// and no other, in the encoding and with the line ends that the file came in. A value: a copy is a snapshot.
class SourceFile {
public:
    enum class Encoding { Utf8, Utf8WithMark, Utf16LittleEndian, Utf16BigEndian, Ansi };

    // Files above this size are refused: no hand-written file is that large.
    static constexpr qint64 LargestSize = qint64(64) * 1024 * 1024;

    SourceFile() = default;

    // `codePage` names the code page that bytes are taken in which are no valid UTF-8 and bear no mark.
    SourceFile(const QString& fileName, const QByteArray& bytes,
        const QByteArray& codePage = QByteArrayLiteral("windows-1252"));

    // Reads the file. Nothing is returned, and `failure` says why, when it cannot be read, is too large or is no
    // ordinary file.
    static std::optional<SourceFile> Read(const QString& fileName, Failure& failure);

    const QString& FileName() const { return FFileName; }
    void SetFileName(const QString& fileName) { FFileName = fileName; }
    const QString& Text() const { return FText; }
    const QByteArray& Bytes() const { return FBytes; }
    Encoding TextEncoding() const { return FEncoding; }
    FileContent Content() const { return { FFileName, FBytes }; }

    // The line end of the line at `offset`, or that of a neighbour where the line has none.
    QString LineEndAt(qsizetype offset) const;

    // The blanks and tabs at the start of the line at `offset`.
    QString IndentAt(qsizetype offset) const;

    qsizetype LineStart(qsizetype offset) const;

    // Just behind the line's end, or the end of the text.
    qsizetype NextLineStart(qsizetype offset) const;

    // A problem at a place in this file.
    Problem ProblemAt(qsizetype offset, const QString& text, Problem::Kind severity = Problem::Error) const;

    // Makes the edits, which do not overlap; offsets are those before the call. Fails and changes nothing when a
    // text cannot be written in the encoding of the file.
    Failure Apply(QList<SourceEdit> edits);

    // Writes the file alone; several files go through SaveTogether.
    Failure Save() const;

    friend bool operator==(const SourceFile& one, const SourceFile& other)
    {
        return one.FFileName == other.FFileName && one.FBytes == other.FBytes;
    }

private:
    void Decode();
    void DecodeAnsi(QByteArrayView bytes);
    bool DecodeUtf8(QByteArrayView bytes);
    std::optional<QByteArray> Encoded(const QString& text) const;
    qsizetype ByteOffset(qsizetype offset, qsizetype knownOffset, qsizetype knownBytes) const;

    QString FFileName;
    QByteArray FBytes;
    QByteArray FCodePage;
    QString FText;
    qsizetype FMarkSize = 0;
    Encoding FEncoding = Encoding::Utf8;
};
