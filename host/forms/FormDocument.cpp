#include "forms/FormDocument.h"

#include "forms/FormBinaryReader.h"
#include "forms/FormEditor.h"
#include "forms/FormJournal.h"
#include "forms/FormTextReader.h"
#include "forms/FormTree.h"
#include "forms/FormWriter.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView Utf8Mark("\xEF\xBB\xBF");
constexpr QByteArrayView Signature("TPF0");

FormError ErrorAt(const QString& message, qint64 offset, int line = 0)
{
    return { {}, line, line, offset, message };
}

// Where the binary form lies in the bytes; without one, where it should and does not.
struct BinaryPlace {
    qsizetype Start = 0;
    qsizetype Size = 0;
    bool Wrapped = false;
    std::optional<FormError> Error;
};

BinaryPlace Unwrap(QByteArrayView bytes)
{
    FormBinaryCursor cursor(bytes, 3); // behind FF 0A 00
    const auto name = bytes.indexOf('\0', 3);
    cursor.Take(name < 0 ? bytes.size() : name + 1 - 3);
    cursor.Number<quint16>();
    const auto size = cursor.Number<quint32>();
    BinaryPlace place { cursor.At(), qsizetype(size), true, std::nullopt };
    if (cursor.Failed())
        place.Error = ErrorAt(u"the resource header is cut off; take the file from a backup"_s, cursor.At());
    else if (qint64(size) > bytes.size() - cursor.At())
        place.Error = ErrorAt(u"the resource header promises %1 bytes and %2 are there; the file is cut off or "
                              "damaged, take it from a backup"_s.arg(size)
                                  .arg(bytes.size() - cursor.At()),
            cursor.At() - 4);
    else if (!bytes.sliced(cursor.At()).startsWith(Signature))
        place.Error = ErrorAt(u"no form follows the resource header; it is some other resource"_s, cursor.At());
    return place;
}

std::optional<FormError> UnknownEncoding(QByteArrayView bytes)
{
    const bool unmarked = bytes.size() > 1 && (bytes[0] == 0) != (bytes[1] == 0); // one letter in two bytes
    if (unmarked || bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF"))
        return ErrorAt(u"the file is in UTF-16, which form files cannot be in; save it as UTF-8"_s, 0, 1);
    return std::nullopt;
}

using TreeResult = FormResult<std::unique_ptr<FormTree>>;

TreeResult ReadText(const QByteArray& bytes, const FormReadOptions& options)
{
    if (const auto error = UnknownEncoding(bytes))
        return *error;
    auto tree = std::make_unique<FormTree>(bytes);
    const bool marked = bytes.startsWith(Utf8Mark);
    tree->Prefix = tree->Source().first(marked ? Utf8Mark.size() : 0);
    tree->Encoding = marked ? FormEncoding::Utf8() : FormEncoding::Detect(bytes, options.CodePage);
    if (!tree->Encoding.IsValid())
        return ErrorAt(u"the code page \"%1\" is not known; name another one, for example windows-1252"_s.arg(
                           QString::fromLatin1(options.CodePage)),
            0, 1);
    if (auto error = FormTextReader(*tree, tree->Prefix.size()).Read())
        return *error;
    return tree;
}

TreeResult ReadBinary(const QByteArray& bytes, const BinaryPlace& place, const FormReadOptions& options)
{
    std::optional<FormError> first;
    for (const bool doubles : { true, false }) {
        auto tree = std::make_unique<FormTree>(bytes);
        tree->Format = FormFormat::Binary;
        tree->Encoding = FormEncoding::CodePage(options.CodePage);
        tree->Wrapped = place.Wrapped ? place.Size : 0;
        FormBinaryReader reader(*tree, place.Start, place.Start + place.Size, doubles);
        auto error = reader.Read();
        if (!error)
            return tree;
        if (!first)
            first = error;
        if (!reader.SawAmbiguousType())
            break;
    }
    return *first;
}

TreeResult ReadTree(const QByteArray& bytes, const FormReadOptions& options)
{
    if (bytes.isEmpty())
        return ErrorAt(u"the file is empty; a form begins with a line like \"object Form1: TForm1\""_s, 0, 1);
    if (bytes.startsWith(Signature))
        return ReadBinary(bytes, { 0, bytes.size(), false, {} }, options);
    if (bytes.startsWith(QByteArrayView("\xFF\x0A\x00", 3))) {
        const auto place = Unwrap(bytes);
        return place.Error ? TreeResult(*place.Error) : ReadBinary(bytes, place, options);
    }
    return ReadText(bytes, options);
}

}

FormDocument::FormDocument(std::unique_ptr<FormTree> tree, QString fileName)
    : FTree(std::move(tree))
    , FJournal(std::make_unique<FormJournal>(*FTree))
    , FFileName(std::move(fileName))
{
    FTree->Document = this;
}

FormDocument::~FormDocument() = default;

FormResult<std::unique_ptr<FormDocument>> FormDocument::Read(const QByteArray& bytes, const FormReadOptions& options)
{
    auto tree = ReadTree(bytes, options);
    if (tree)
        return std::unique_ptr<FormDocument>(new FormDocument(std::move(tree.Value()), options.FileName));
    auto error = tree.Error();
    error.File = options.FileName;
    return error;
}

FormResult<std::unique_ptr<FormDocument>> FormDocument::Load(const QString& path, FormReadOptions options)
{
    options.FileName = path;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return FormError { path, 1, 1, 0,
            u"the file cannot be opened (%1); see that it is there and may be read"_s.arg(file.errorString()) };
    const auto bytes = file.readAll();
    if (file.error() != QFile::NoError)
        return FormError { path, 1, 1, 0, u"the file cannot be read (%1)"_s.arg(file.errorString()) };
    return Read(bytes, options);
}

std::unique_ptr<FormDocument> FormDocument::Create(
    const QString& className, const QString& name, const QByteArray& lineEnd, const FormReadOptions& options)
{
    const auto head = u"object %1: %2"_s.arg(name, className).toUtf8();
    auto made = Read(head + lineEnd + "end" + lineEnd, options);
    return made ? std::move(made.Value()) : nullptr;
}

FormFormat FormDocument::Format() const
{
    return FTree->Format;
}

const FormEncoding& FormDocument::Encoding() const
{
    return FTree->Encoding;
}

FormNode& FormDocument::Root() const
{
    return *FTree->Root;
}

QByteArray FormDocument::Bytes() const
{
    return FormWriter::Bytes(*FTree);
}

QStringList FormDocument::Notes() const
{
    const auto rest = FTree->Suffix;
    const bool blank = std::all_of(
        rest.begin(), rest.end(), [](char c) { return FormLexer::IsBlank(c) || c == '\0' || c == '\x1A'; });
    if (blank)
        return {};
    return { u"%1 bytes behind the end of the form are kept but not read"_s.arg(rest.size()) };
}

static FormNode* FindBelow(FormNode& node, QStringView name)
{
    if (node.IsNamed(name))
        return &node;
    for (auto* child : node.Children())
        if (auto* found = FindBelow(*child, name))
            return found;
    return nullptr;
}

FormNode* FormDocument::Find(QStringView name) const
{
    return name.isEmpty() ? nullptr : FindBelow(Root(), name);
}

int FormDocument::Position() const
{
    return FJournal->Position();
}

int FormDocument::LastPosition() const
{
    return FJournal->LastPosition();
}

void FormDocument::UndoTo(int position)
{
    FJournal->UndoTo(position);
}

void FormDocument::RedoTo(int position)
{
    FJournal->RedoTo(position);
}
