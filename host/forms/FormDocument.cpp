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

constexpr QByteArrayView utf8Mark("\xEF\xBB\xBF");
constexpr QByteArrayView signature("TPF0");

FormError errorAt(const QString& message, qint64 offset, int line = 0)
{
    return { {}, line, line, offset, message };
}

// Where the binary form lies in the bytes; without one, where it should and does not.
struct BinaryPlace {
    qsizetype start = 0;
    qsizetype size = 0;
    bool wrapped = false;
    std::optional<FormError> error;
};

BinaryPlace unwrap(QByteArrayView bytes)
{
    FormBinaryCursor cursor(bytes, 3); // behind FF 0A 00
    const auto name = bytes.indexOf('\0', 3);
    cursor.take(name < 0 ? bytes.size() : name + 1 - 3);
    cursor.number<quint16>();
    const auto size = cursor.number<quint32>();
    BinaryPlace place { cursor.at(), qsizetype(size), true, std::nullopt };
    if (cursor.failed())
        place.error = errorAt(u"the resource header is cut off; take the file from a backup"_s, cursor.at());
    else if (qint64(size) > bytes.size() - cursor.at())
        place.error = errorAt(u"the resource header promises %1 bytes and %2 are there; the file is cut off or "
                              "damaged, take it from a backup"_s.arg(size)
                                  .arg(bytes.size() - cursor.at()),
            cursor.at() - 4);
    else if (!bytes.sliced(cursor.at()).startsWith(signature))
        place.error = errorAt(u"no form follows the resource header; it is some other resource"_s, cursor.at());
    return place;
}

std::optional<FormError> unknownEncoding(QByteArrayView bytes)
{
    const bool unmarked = bytes.size() > 1 && (bytes[0] == 0) != (bytes[1] == 0); // one letter in two bytes
    if (unmarked || bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF"))
        return errorAt(u"the file is in UTF-16, which form files cannot be in; save it as UTF-8"_s, 0, 1);
    return std::nullopt;
}

using TreeResult = FormResult<std::unique_ptr<FormTree>>;

TreeResult readText(const QByteArray& bytes, const FormReadOptions& options)
{
    if (const auto error = unknownEncoding(bytes))
        return *error;
    auto tree = std::make_unique<FormTree>(bytes);
    const bool marked = bytes.startsWith(utf8Mark);
    tree->prefix = tree->source().first(marked ? utf8Mark.size() : 0);
    tree->encoding = marked ? FormEncoding::utf8() : FormEncoding::detect(bytes, options.codePage);
    if (!tree->encoding.isValid())
        return errorAt(u"the code page \"%1\" is not known; name another one, for example windows-1252"_s.arg(
                           QString::fromLatin1(options.codePage)),
            0, 1);
    if (auto error = FormTextReader(*tree, tree->prefix.size()).read())
        return *error;
    return tree;
}

TreeResult readBinary(const QByteArray& bytes, const BinaryPlace& place, const FormReadOptions& options)
{
    std::optional<FormError> first;
    for (const bool doubles : { true, false }) {
        auto tree = std::make_unique<FormTree>(bytes);
        tree->format = FormFormat::Binary;
        tree->encoding = FormEncoding::codePage(options.codePage);
        tree->wrapped = place.wrapped ? place.size : 0;
        FormBinaryReader reader(*tree, place.start, place.start + place.size, doubles);
        auto error = reader.read();
        if (!error)
            return tree;
        if (!first)
            first = error;
        if (!reader.sawAmbiguousType())
            break;
    }
    return *first;
}

TreeResult readTree(const QByteArray& bytes, const FormReadOptions& options)
{
    if (bytes.isEmpty())
        return errorAt(u"the file is empty; a form begins with a line like \"object Form1: TForm1\""_s, 0, 1);
    if (bytes.startsWith(signature))
        return readBinary(bytes, { 0, bytes.size(), false, {} }, options);
    if (bytes.startsWith(QByteArrayView("\xFF\x0A\x00", 3))) {
        const auto place = unwrap(bytes);
        return place.error ? TreeResult(*place.error) : readBinary(bytes, place, options);
    }
    return readText(bytes, options);
}

}

FormDocument::FormDocument(std::unique_ptr<FormTree> tree, QString fileName)
    : m_tree(std::move(tree))
    , m_journal(std::make_unique<FormJournal>(*m_tree))
    , m_fileName(std::move(fileName))
{
    m_tree->document = this;
}

FormDocument::~FormDocument() = default;

FormResult<std::unique_ptr<FormDocument>> FormDocument::read(const QByteArray& bytes, const FormReadOptions& options)
{
    auto tree = readTree(bytes, options);
    if (tree)
        return std::unique_ptr<FormDocument>(new FormDocument(std::move(tree.value()), options.fileName));
    auto error = tree.error();
    error.file = options.fileName;
    return error;
}

FormResult<std::unique_ptr<FormDocument>> FormDocument::load(const QString& path, FormReadOptions options)
{
    options.fileName = path;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return FormError { path, 1, 1, 0,
            u"the file cannot be opened (%1); see that it is there and may be read"_s.arg(file.errorString()) };
    const auto bytes = file.readAll();
    if (file.error() != QFile::NoError)
        return FormError { path, 1, 1, 0, u"the file cannot be read (%1)"_s.arg(file.errorString()) };
    return read(bytes, options);
}

std::unique_ptr<FormDocument> FormDocument::create(
    const QString& className, const QString& name, const QByteArray& lineEnd, const FormReadOptions& options)
{
    const auto head = u"object %1: %2"_s.arg(name, className).toUtf8();
    auto made = read(head + lineEnd + "end" + lineEnd, options);
    return made ? std::move(made.value()) : nullptr;
}

FormFormat FormDocument::format() const
{
    return m_tree->format;
}

const FormEncoding& FormDocument::encoding() const
{
    return m_tree->encoding;
}

FormNode& FormDocument::root() const
{
    return *m_tree->root;
}

QByteArray FormDocument::bytes() const
{
    return FormWriter::bytes(*m_tree);
}

QStringList FormDocument::notes() const
{
    const auto rest = m_tree->suffix;
    const bool blank = std::all_of(
        rest.begin(), rest.end(), [](char c) { return FormLexer::isBlank(c) || c == '\0' || c == '\x1A'; });
    if (blank)
        return {};
    return { u"%1 bytes behind the end of the form are kept but not read"_s.arg(rest.size()) };
}

static FormNode* findBelow(FormNode& node, QStringView name)
{
    if (node.isNamed(name))
        return &node;
    for (auto* child : node.children())
        if (auto* found = findBelow(*child, name))
            return found;
    return nullptr;
}

FormNode* FormDocument::find(QStringView name) const
{
    return name.isEmpty() ? nullptr : findBelow(root(), name);
}

int FormDocument::position() const
{
    return m_journal->position();
}

int FormDocument::lastPosition() const
{
    return m_journal->lastPosition();
}

void FormDocument::undoTo(int position)
{
    m_journal->undoTo(position);
}

void FormDocument::redoTo(int position)
{
    m_journal->redoTo(position);
}
