#include "files/SourceFile.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
#include <QStringEncoder>

#include <algorithm>
#include <array>

namespace {

constexpr QByteArrayView utf8Mark("\xEF\xBB\xBF");
constexpr QByteArrayView littleEndianMark("\xFF\xFE");
constexpr QByteArrayView bigEndianMark("\xFE\xFF");

// The characters of a code page, one a byte. A byte that stands for nothing by itself gets a private character, so
// that every byte can be written back as it was.
using CodePage = std::array<QChar, 256>;

constexpr char16_t privateArea = 0xF700;

CodePage codePage(const QByteArray& name)
{
    CodePage page;
    for (int byte = 0; byte < 256; ++byte) {
        QStringDecoder decoder(name.constData(), QStringDecoder::Flag::Stateless);
        if (!decoder.isValid())
            decoder = QStringDecoder(QStringDecoder::Latin1, QStringDecoder::Flag::Stateless);
        const char one = char(byte);
        const QString text = decoder.decode(QByteArrayView(&one, 1));
        const bool plain = text.size() == 1 && !decoder.hasError() && text[0] != QChar::ReplacementCharacter
            && std::find(page.begin(), page.begin() + byte, text[0]) == page.begin() + byte;
        page[size_t(byte)] = plain ? text[0] : QChar(char16_t(privateArea + byte));
    }
    return page;
}

const CodePage& cachedCodePage(const QByteArray& name)
{
    static QHash<QByteArray, CodePage> pages;
    auto page = pages.find(name);
    if (page == pages.end())
        page = pages.insert(name, codePage(name));
    return *page;
}

bool isLineEnd(QChar c)
{
    return c == u'\n' || c == u'\r';
}

}

SourceFile::SourceFile(const QString& fileName, const QByteArray& bytes, const QByteArray& codePage)
    : FFileName(fileName)
    , FBytes(bytes)
    , FCodePage(codePage)
{
    Decode();
}

std::optional<SourceFile> SourceFile::Read(const QString& fileName, Failure& failure)
{
    const QFileInfo info(fileName);
    QFile file(fileName);
    QString refusal;
    if (!info.exists())
        refusal = QStringLiteral("there is no such file");
    else if (!info.isFile())
        refusal = QStringLiteral("is not a file");
    else if (info.size() > LargestSize)
        refusal = QStringLiteral("is larger than %1 MB").arg(LargestSize / 1024 / 1024);
    else if (!file.open(QIODevice::ReadOnly))
        refusal = QStringLiteral("cannot be read: ") + file.errorString();
    if (!refusal.isEmpty()) {
        failure = FileError(fileName, refusal);
        return {};
    }
    // A file that grows while it is read is cut at the limit.
    return SourceFile(fileName, file.read(LargestSize));
}

void SourceFile::Decode()
{
    const QByteArrayView bytes(FBytes);
    if (bytes.startsWith(utf8Mark)) {
        FMarkSize = utf8Mark.size();
        FEncoding = Encoding::Utf8WithMark;
        if (DecodeUtf8(bytes.sliced(FMarkSize)))
            return;
    } else if (bytes.startsWith(littleEndianMark) || bytes.startsWith(bigEndianMark)) {
        FMarkSize = littleEndianMark.size();
        const bool little = bytes.startsWith(littleEndianMark);
        FEncoding = little ? Encoding::Utf16LittleEndian : Encoding::Utf16BigEndian;
        // Unpaired surrogates and a last odd byte are no reason to lose a byte, so each pair of bytes is taken as it
        // is.
        FText.resize((bytes.size() - FMarkSize) / 2);
        for (qsizetype i = 0; i < FText.size(); ++i) {
            const auto one = quint8(bytes[FMarkSize + 2 * i]);
            const auto two = quint8(bytes[FMarkSize + 2 * i + 1]);
            FText[i] = QChar(char16_t(little ? one | two << 8 : one << 8 | two));
        }
        return;
    } else {
        FEncoding = Encoding::Utf8;
        if (DecodeUtf8(bytes))
            return;
    }
    FEncoding = Encoding::Ansi;
    DecodeAnsi(bytes.sliced(FMarkSize));
}

bool SourceFile::DecodeUtf8(QByteArrayView bytes)
{
    QStringDecoder decoder(
        QStringDecoder::Utf8, QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    FText = decoder.decode(bytes);
    return !decoder.hasError();
}

void SourceFile::DecodeAnsi(QByteArrayView bytes)
{
    const auto& page = cachedCodePage(FCodePage);
    FText.resize(bytes.size());
    for (qsizetype i = 0; i < bytes.size(); ++i)
        FText[i] = page[quint8(bytes[i])];
}

std::optional<QByteArray> SourceFile::Encoded(const QString& text) const
{
    QByteArray bytes;
    switch (FEncoding) {
    case Encoding::Utf8:
    case Encoding::Utf8WithMark:
        return text.toUtf8();
    case Encoding::Utf16LittleEndian:
    case Encoding::Utf16BigEndian:
        for (const QChar c : text) {
            const bool little = FEncoding == Encoding::Utf16LittleEndian;
            bytes.append(char(little ? c.cell() : c.row()));
            bytes.append(char(little ? c.row() : c.cell()));
        }
        return bytes;
    case Encoding::Ansi:
        break;
    }
    const auto& page = cachedCodePage(FCodePage);
    for (const QChar c : text) {
        const auto found = std::find(page.begin(), page.end(), c);
        if (found == page.end())
            return {};
        bytes.append(char(found - page.begin()));
    }
    return bytes;
}

// The place in the bytes of a place in the text, counted on from a place that is known.
qsizetype SourceFile::ByteOffset(qsizetype offset, qsizetype knownOffset, qsizetype knownBytes) const
{
    switch (FEncoding) {
    case Encoding::Ansi:
        return knownBytes + (offset - knownOffset);
    case Encoding::Utf16LittleEndian:
    case Encoding::Utf16BigEndian:
        return knownBytes + 2 * (offset - knownOffset);
    case Encoding::Utf8:
    case Encoding::Utf8WithMark:
        break;
    }
    return knownBytes + QStringView(FText).sliced(knownOffset, offset - knownOffset).toUtf8().size();
}

Failure SourceFile::Apply(QList<SourceEdit> edits)
{
    std::stable_sort(edits.begin(), edits.end(), [](const auto& a, const auto& b) { return a.Offset < b.Offset; });
    QByteArray bytes = FBytes.left(FMarkSize);
    QString text;
    qsizetype offset = 0;
    qsizetype place = FMarkSize;
    for (const auto& edit : edits) {
        const auto encoded = Encoded(edit.Text);
        if (!encoded)
            return ProblemAt(edit.Offset,
                QStringLiteral("\"%1\" cannot be written in the encoding of this file").arg(edit.Text.trimmed()));
        const auto start = ByteOffset(edit.Offset, offset, place);
        bytes += QByteArrayView(FBytes).sliced(place, start - place);
        bytes += *encoded;
        text += QStringView(FText).sliced(offset, edit.Offset - offset);
        text += edit.Text;
        place = ByteOffset(edit.Offset + edit.Length, edit.Offset, start);
        offset = edit.Offset + edit.Length;
    }
    bytes += QByteArrayView(FBytes).sliced(place);
    text += QStringView(FText).sliced(offset);
    FBytes = bytes;
    FText = text;
    return {};
}

qsizetype SourceFile::LineStart(qsizetype offset) const
{
    if (offset > 0 && offset < FText.size() && FText[offset] == u'\n' && FText[offset - 1] == u'\r')
        --offset;
    while (offset > 0 && !isLineEnd(FText[offset - 1]))
        --offset;
    return offset;
}

qsizetype SourceFile::NextLineStart(qsizetype offset) const
{
    while (offset < FText.size() && !isLineEnd(FText[offset]))
        ++offset;
    if (offset + 1 < FText.size() && FText[offset] == u'\r' && FText[offset + 1] == u'\n')
        return offset + 2;
    return qMin(offset + 1, FText.size());
}

QString SourceFile::LineEndAt(qsizetype offset) const
{
    const auto endAt = [this](qsizetype at) {
        const bool pair = FText[at] == u'\r' && at + 1 < FText.size() && FText[at + 1] == u'\n';
        return pair ? QStringLiteral("\r\n") : QString(FText[at]);
    };
    for (auto at = offset; at < FText.size(); ++at) {
        if (isLineEnd(FText[at]))
            return endAt(at > 0 && FText[at] == u'\n' && FText[at - 1] == u'\r' ? at - 1 : at);
    }
    for (auto at = offset - 1; at >= 0; --at) {
        if (isLineEnd(FText[at]))
            return endAt(at > 0 && FText[at] == u'\n' && FText[at - 1] == u'\r' ? at - 1 : at);
    }
    return QStringLiteral("\r\n");
}

QString SourceFile::IndentAt(qsizetype offset) const
{
    const auto start = LineStart(offset);
    auto end = start;
    while (end < FText.size() && (FText[end] == u' ' || FText[end] == u'\t'))
        ++end;
    return FText.sliced(start, end - start);
}

Problem SourceFile::ProblemAt(qsizetype offset, const QString& text, Problem::Kind severity) const
{
    offset = qBound(qsizetype(0), offset, FText.size());
    const auto start = LineStart(offset);
    int line = 1;
    for (qsizetype at = 0; at < start; at = NextLineStart(at))
        ++line;
    return { FFileName, line, int(offset - start) + 1, text, severity };
}

Failure SourceFile::Save() const
{
    return SaveTogether({ Content() });
}
