#include "forms/FormTextReader.h"

#include "forms/FormNumber.h"

using namespace Qt::StringLiterals;

FormTextReader::FormTextReader(FormTree& tree, qsizetype start)
    : m_tree(tree)
    , m_lexer(tree.source(), start)
    , m_pieceStart(start)
{
}

std::optional<FormError> FormTextReader::read()
{
    try {
        advance();
        if (m_token.kind == FormToken::Kind::End)
            fail(u"the file is empty; a form begins with a line like \"object Form1: TForm1\""_s);
        m_tree.root = object();
    } catch (const Failure&) {
        return m_error;
    }
    m_tree.suffix = m_tree.source().sliced(m_pieceStart);
    m_tree.rawStrings = m_lexer.sawRawNonAscii();
    return std::nullopt;
}

void FormTextReader::advance()
{
    m_tokenEnd = m_token.end;
    m_token = m_lexer.next();
    if (m_token.kind == FormToken::Kind::Error)
        fail(QString::fromLatin1(m_lexer.message()));
}

QByteArrayView FormTextReader::upTo(qsizetype end)
{
    const auto piece = m_tree.source().sliced(m_pieceStart, end - m_pieceStart);
    m_pieceStart = end;
    return piece;
}

// Behind the line end where only blanks come before it, else where it was asked: the rest of the line belongs to what
// stands there.
qsizetype FormTextReader::endOfLine(qsizetype at) const
{
    const auto bytes = m_tree.source();
    auto end = at;
    while (end < bytes.size() && (bytes[end] == ' ' || bytes[end] == '\t'))
        ++end;
    if (end < bytes.size() && bytes[end] == '\r')
        return end + 1 < bytes.size() && bytes[end + 1] == '\n' ? end + 2 : end + 1;
    if (end < bytes.size() && bytes[end] == '\n')
        return end + 1;
    return end == bytes.size() ? end : at;
}

void FormTextReader::enter()
{
    if (++m_depth > maximumDepth)
        fail(u"more than %1 levels inside one another; no program can show such a form, take out levels"_s.arg(
            maximumDepth));
}

bool FormTextReader::isWord(const char* word) const
{
    return m_token.kind == FormToken::Kind::Symbol
        && m_lexer.text(m_token).compare(QByteArrayView(word), Qt::CaseInsensitive) == 0;
}

static std::optional<FormNode::Kind> kindOf(QByteArrayView word)
{
    if (word.compare("object", Qt::CaseInsensitive) == 0)
        return FormNode::Kind::Object;
    if (word.compare("inherited", Qt::CaseInsensitive) == 0)
        return FormNode::Kind::Inherited;
    if (word.compare("inline", Qt::CaseInsensitive) == 0)
        return FormNode::Kind::Inline;
    return std::nullopt;
}

FormNode* FormTextReader::object()
{
    const auto kind = m_token.kind == FormToken::Kind::Symbol ? kindOf(m_lexer.text(m_token)) : std::nullopt;
    if (!kind)
        failExpected(u"\"object\", \"inherited\" or \"inline\""_s);
    enter();
    auto* node = m_tree.makeNode(*kind);
    header(*node);
    body(*node, true);
    children(*node);
    const auto end = m_token.end;
    if (m_depth > 1)
        advance(); // what stands behind the last end is kept, not read
    m_tree.setFrame(*node, {}, upTo(endOfLine(end)));
    leave();
    return node;
}

void FormTextReader::header(FormNode& node)
{
    advance();
    FormNode::Header made;
    auto first = dottedName("the name of an object or of its class");
    made.className = first;
    if (m_token.is(':')) {
        advance();
        made.name = first;
        made.className = dottedName("the name of a class", true);
    }
    if (m_token.is('['))
        made.index = index();
    made.bytes = upTo(endOfLine(m_tokenEnd));
    m_tree.setHeader(node, made);
}

std::optional<int> FormTextReader::index()
{
    advance();
    if (m_token.kind != FormToken::Kind::Integer)
        failExpected(u"the number of the place among the siblings"_s);
    const auto number = FormNumber::parseInteger(m_lexer.text(m_token));
    if (!number || *number != static_cast<int>(*number))
        fail(u"a place that is out of range; write the number of the place among the siblings"_s);
    advance();
    expectMark(']', "close the place with it");
    return static_cast<int>(*number);
}

// Asked before every property: the length and the first letter tell nearly every name from a keyword.
bool FormTextReader::endsBody(bool isObject) const
{
    if (m_token.kind != FormToken::Kind::Symbol)
        return false;
    const auto word = m_lexer.text(m_token);
    const char first = word.front() | 0x20;
    if (word.size() == 3)
        return first == 'e' && isWord("end");
    return isObject && (first == 'o' || first == 'i') && (word.size() == 6 || word.size() == 9) && kindOf(word);
}

void FormTextReader::body(FormNode& node, bool isObject)
{
    const auto base = m_properties.size();
    while (!endsBody(isObject))
        m_properties.push_back(property(node));
    m_tree.setProperties(node, m_tree.keep(std::span(m_properties).subspan(base)));
    m_properties.resize(base);
}

void FormTextReader::children(FormNode& node)
{
    const auto base = m_nodes.size();
    while (!isWord("end")) {
        if (m_token.kind == FormToken::Kind::Symbol && !kindOf(m_lexer.text(m_token)))
            fail(u"\"%1\" after a child object; a property stands before the first child, and every object is closed "
                 "with \"end\""_s.arg(found()));
        m_nodes.push_back(object());
    }
    m_tree.setChildren(node, m_tree.keep(std::span(m_nodes).subspan(base)));
    m_nodes.resize(base);
}

QByteArrayView FormTextReader::dottedName(const char* what, bool isClass)
{
    if (m_token.kind != FormToken::Kind::Symbol)
        failExpected(QString::fromLatin1(what));
    const auto begin = m_token.begin;
    qsizetype letters = m_token.size();
    advance();
    while (m_token.is('.') || (isClass && m_token.is('/'))) {
        advance();
        if (m_token.kind != FormToken::Kind::Symbol)
            failExpected(u"a name behind the dot"_s);
        letters += m_token.size() + 1;
        advance();
    }
    const auto name = m_tree.source().sliced(begin, m_tokenEnd - begin);
    if (name.size() == letters)
        return name;
    auto compact = name.toByteArray();
    compact.removeIf([](char c) { return FormLexer::isBlank(c); });
    return m_tree.keep(compact);
}

FormProperty* FormTextReader::property(FormNode& owner)
{
    auto* made = m_tree.makeProperty(&owner);
    FormProperty::Pieces pieces;
    pieces.name = dottedName("the name of a property, or \"end\"");
    expectMark('=', "a property is written as Name = Value");
    pieces.lead = upTo(m_token.begin);
    value(pieces, made);
    pieces.trail = upTo(endOfLine(m_tokenEnd));
    m_tree.setPieces(*made, pieces);
    return made;
}

void FormTextReader::value(FormProperty::Pieces& pieces, FormProperty* property)
{
    if (m_token.is('<')) {
        collection(pieces, property);
        return;
    }
    skipValue();
    pieces.value = upTo(m_tokenEnd);
}

void FormTextReader::skipValue()
{
    switch (m_token.kind) {
    case FormToken::Kind::Symbol:
        dottedName("a value");
        return;
    case FormToken::Kind::Integer:
        if (m_token.size() > 18 && !FormNumber::parseInteger(m_lexer.text(m_token)))
            fail(u"a whole number of more than 64 bits; write a smaller one"_s);
        advance();
        return;
    case FormToken::Kind::Real:
    case FormToken::Kind::Binary:
        advance();
        return;
    case FormToken::Kind::String:
        skipString();
        return;
    default:
        break;
    }
    if (m_token.is('['))
        skipSet();
    else if (m_token.is('('))
        skipList();
    else if (m_token.is('<'))
        skipCollection();
    else
        failExpected(u"a value"_s);
}

void FormTextReader::skipString()
{
    advance();
    while (m_token.is('+')) {
        advance();
        if (m_token.kind != FormToken::Kind::String)
            failExpected(u"the string that goes on behind the +"_s);
        advance();
    }
}

void FormTextReader::skipSet()
{
    advance();
    while (!m_token.is(']')) {
        dottedName("the name of an element of the set, or ]");
        if (m_token.is(']'))
            break;
        expectMark(',', "elements of a set are parted by commas and the set ends with ]");
        if (m_token.is(']'))
            failExpected(u"an element of the set behind the comma"_s);
    }
    advance();
}

void FormTextReader::skipList()
{
    enter();
    advance();
    while (!m_token.is(')'))
        skipValue();
    advance();
    leave();
}

// A collection inside a list: it is part of the list's value, its items are no nodes.
void FormTextReader::skipCollection()
{
    FormProperty::Pieces pieces;
    const auto start = m_pieceStart;
    collection(pieces, m_tree.makeProperty(m_tree.makeNode(FormNode::Kind::Item)));
    m_pieceStart = start;
}

void FormTextReader::collection(FormProperty::Pieces& pieces, FormProperty* property)
{
    enter();
    advance();
    pieces.isCollection = true;
    pieces.value = upTo(m_tokenEnd);
    const auto base = m_nodes.size();
    while (!m_token.is('>'))
        m_nodes.push_back(item());
    advance();
    pieces.close = upTo(m_tokenEnd);
    pieces.items = m_tree.keep(std::span(m_nodes).subspan(base));
    m_nodes.resize(base);
    m_tree.setPieces(*property, pieces);
    leave();
}

FormNode* FormTextReader::item()
{
    if (!isWord("item"))
        failExpected(u"\"item\", or > at the end of the collection"_s);
    auto* node = m_tree.makeNode(FormNode::Kind::Item);
    advance();
    FormNode::Header header;
    if (m_token.is('['))
        header.index = index();
    header.bytes = upTo(endOfLine(m_tokenEnd));
    m_tree.setHeader(*node, header);
    body(*node, false);
    advance();
    m_tree.setFrame(*node, {}, upTo(m_tokenEnd));
    return node;
}

void FormTextReader::expectMark(char mark, const char* advice)
{
    if (!m_token.is(mark))
        failExpected(u"\"%1\" (%2)"_s.arg(QLatin1Char(mark)).arg(QLatin1StringView(advice)));
    advance();
}

QString FormTextReader::found() const
{
    const auto text = m_lexer.text(m_token);
    return m_tree.encoding.decode(text.first(std::min<qsizetype>(text.size(), 40)));
}

void FormTextReader::failExpected(const QString& what)
{
    if (m_token.kind == FormToken::Kind::End)
        fail(u"the file ends where %1 should stand; it is cut off, take it from a backup"_s.arg(what));
    fail(u"\"%1\" where %2 should stand; write that there"_s.arg(found(), what));
}

void FormTextReader::fail(const QString& message)
{
    m_error = formErrorAt(m_tree.source(), m_tree.prefix.size(), m_tree.encoding, m_token.begin, message);
    throw Failure();
}
