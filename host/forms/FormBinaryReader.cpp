#include "forms/FormBinaryReader.h"

#include <QUtf8StringView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr uchar flagMask = 0xF0;
constexpr uchar flagInherited = 1;
constexpr uchar flagPlace = 2;
constexpr uchar flagInline = 4;

FormNode::Kind kindOf(uchar flags)
{
    if (flags & flagInline)
        return FormNode::Kind::Inline;
    return flags & flagInherited ? FormNode::Kind::Inherited : FormNode::Kind::Object;
}

}

FormBinaryReader::FormBinaryReader(FormTree& tree, qsizetype start, qsizetype end, bool doubles)
    : m_tree(tree)
    , m_cursor(tree.source().first(end), start + 4)
    , m_end(end)
    , m_pieceStart(start + 4)
    , m_doubles(doubles)
{
    m_tree.prefix = tree.source().first(start + 4);
    m_tree.doubles = doubles;
}

std::optional<FormError> FormBinaryReader::read()
{
    try {
        m_tree.root = object();
    } catch (const Failure&) {
        return m_error;
    }
    m_tree.suffix = m_tree.source().sliced(m_pieceStart);
    if (m_nonAscii && m_utf8)
        m_tree.encoding = FormEncoding::utf8();
    return std::nullopt;
}

QByteArrayView FormBinaryReader::name()
{
    const auto found = m_cursor.shortString();
    note(found);
    return found;
}

// Nothing in a binary form says what its narrow strings are in: it is UTF-8 where all of them are valid UTF-8.
void FormBinaryReader::note(QByteArrayView text)
{
    if (std::all_of(text.begin(), text.end(), [](char c) { return static_cast<uchar>(c) < 0x80; }))
        return;
    m_nonAscii = true;
    m_utf8 = m_utf8 && QUtf8StringView(text.data(), text.size()).isValidUtf8();
}

QByteArrayView FormBinaryReader::upTo(qsizetype end)
{
    const auto piece = m_tree.source().sliced(m_pieceStart, end - m_pieceStart);
    m_pieceStart = end;
    return piece;
}

void FormBinaryReader::enter()
{
    if (++m_depth > maximumDepth)
        fail(u"more than %1 levels inside one another; no program can show such a form, take out levels"_s.arg(
                 maximumDepth),
            m_cursor.at());
}

void FormBinaryReader::check(const char* what)
{
    if (m_cursor.failed())
        fail(u"%1 reaches beyond the end of the form; the file is cut off or damaged, take it from a backup"_s.arg(
                 QLatin1StringView(what)),
            m_cursor.at());
}

void FormBinaryReader::fail(const QString& message, qsizetype at)
{
    m_error = FormError { {}, 0, 0, at, message };
    throw Failure();
}

FormNode* FormBinaryReader::object()
{
    enter();
    auto* node = m_tree.makeNode(m_cursor.peek() >= flagMask ? kindOf(m_cursor.peek()) : FormNode::Kind::Object);
    header(*node);
    body(*node);
    const auto middle = upTo(m_cursor.at());
    children(*node);
    m_tree.setFrame(*node, middle, upTo(m_cursor.at()));
    leave();
    return node;
}

void FormBinaryReader::header(FormNode& node)
{
    FormNode::Header made;
    if (m_cursor.peek() >= flagMask && m_cursor.number<uchar>() & flagPlace)
        made.index = place();
    made.className = name();
    check("the name of a class");
    if (made.className.isEmpty())
        fail(u"an object without a class; the file is damaged, take it from a backup"_s, m_cursor.at());
    made.name = name();
    check("the name of an object");
    made.bytes = upTo(m_cursor.at());
    m_tree.setHeader(node, made);
}

int FormBinaryReader::place()
{
    const auto at = m_cursor.at();
    const auto type = static_cast<BinaryType>(m_cursor.number<uchar>());
    check("the place among the siblings");
    if (type < BinaryType::Int8 || type > BinaryType::Int32)
        fail(u"no whole number where the place among the siblings should stand; the file is damaged"_s, at);
    const auto found = static_cast<int>(m_cursor.integer(type));
    check("the place among the siblings");
    return found;
}

void FormBinaryReader::body(FormNode& node)
{
    const auto base = m_properties.size();
    while (m_cursor.peek() != 0)
        m_properties.push_back(property(node));
    m_cursor.take(1);
    check("the list of properties");
    m_tree.setProperties(node, m_tree.keep(std::span(m_properties).subspan(base)));
    m_properties.resize(base);
}

void FormBinaryReader::children(FormNode& node)
{
    const auto base = m_nodes.size();
    while (m_cursor.peek() != 0)
        m_nodes.push_back(object());
    m_cursor.take(1);
    check("the list of child objects");
    m_tree.setChildren(node, m_tree.keep(std::span(m_nodes).subspan(base)));
    m_nodes.resize(base);
}

FormProperty* FormBinaryReader::property(FormNode& owner)
{
    auto* made = m_tree.makeProperty(&owner);
    FormProperty::Pieces pieces;
    pieces.name = name();
    check("the name of a property");
    pieces.lead = upTo(m_cursor.at());
    if (static_cast<BinaryType>(m_cursor.peek()) == BinaryType::Collection) {
        collection(pieces, made);
        return made;
    }
    skipValue();
    pieces.value = upTo(m_cursor.at());
    m_tree.setPieces(*made, pieces);
    return made;
}

void FormBinaryReader::skipValue()
{
    m_valueStart = m_cursor.at();
    switch (static_cast<BinaryType>(m_cursor.number<uchar>())) {
    case BinaryType::Null:
    case BinaryType::False:
    case BinaryType::True:
    case BinaryType::Nil:
        break;
    case BinaryType::Int8:
        return skipFixed(1);
    case BinaryType::Int16:
        return skipFixed(2);
    case BinaryType::Int32:
    case BinaryType::Single:
        return skipFixed(4);
    case BinaryType::Int64:
    case BinaryType::QWord:
    case BinaryType::Currency:
    case BinaryType::Date:
        return skipFixed(8);
    case BinaryType::Extended:
        return skipFixed(10);
    case BinaryType::String:
    case BinaryType::Ident:
        name();
        break;
    case BinaryType::LString:
        note(m_cursor.longString());
        break;
    case BinaryType::Utf8String:
    case BinaryType::Binary:
        m_cursor.longString();
        break;
    case BinaryType::WString:
        m_cursor.wideString();
        break;
    case BinaryType::Double:
        return skipAmbiguous();
    case BinaryType::Set:
        return skipSet();
    case BinaryType::List:
        return skipList();
    case BinaryType::Collection:
        return skipCollection();
    default:
        fail(u"a value of a kind that is not known; the file is damaged or newer than this program"_s, m_valueStart);
    }
    check("a value");
}

void FormBinaryReader::skipFixed(int size)
{
    m_cursor.take(size);
    check("a number");
}

void FormBinaryReader::skipAmbiguous()
{
    m_ambiguous = true;
    if (m_doubles)
        m_cursor.take(8);
    else
        m_cursor.wideString();
    check("a value");
}

void FormBinaryReader::skipSet()
{
    while (!name().isEmpty())
        check("an element of a set");
    check("a set");
}

void FormBinaryReader::skipList()
{
    enter();
    while (m_cursor.peek() != 0)
        skipValue();
    m_cursor.take(1);
    check("a list");
    leave();
}

void FormBinaryReader::skipCollection()
{
    FormProperty::Pieces pieces;
    const auto start = m_pieceStart;
    m_cursor = FormBinaryCursor(m_tree.source().first(m_end), m_cursor.at() - 1);
    collection(pieces, m_tree.makeProperty(m_tree.makeNode(FormNode::Kind::Item)));
    m_pieceStart = start;
}

void FormBinaryReader::collection(FormProperty::Pieces& pieces, FormProperty* property)
{
    enter();
    m_cursor.take(1);
    pieces.isCollection = true;
    pieces.value = upTo(m_cursor.at());
    const auto base = m_nodes.size();
    while (m_cursor.peek() != 0)
        m_nodes.push_back(item());
    m_cursor.take(1);
    check("a collection");
    pieces.close = upTo(m_cursor.at());
    pieces.items = m_tree.keep(std::span(m_nodes).subspan(base));
    m_nodes.resize(base);
    m_tree.setPieces(*property, pieces);
    leave();
}

FormNode* FormBinaryReader::item()
{
    auto* node = m_tree.makeNode(FormNode::Kind::Item);
    FormNode::Header header;
    if (static_cast<BinaryType>(m_cursor.peek()) != BinaryType::List)
        header.index = place();
    const auto at = m_cursor.at();
    if (static_cast<BinaryType>(m_cursor.number<uchar>()) != BinaryType::List)
        fail(u"no list of properties where an item of a collection begins; the file is damaged"_s, at);
    header.bytes = upTo(m_cursor.at());
    m_tree.setHeader(*node, header);
    body(*node);
    m_tree.setFrame(*node, {}, upTo(m_cursor.at()));
    return node;
}
