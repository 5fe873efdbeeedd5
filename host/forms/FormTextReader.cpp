#include "forms/FormTextReader.h"

#include "forms/FormNumber.h"

using namespace Qt::StringLiterals;

FormTextReader::FormTextReader(FormTree& tree, qsizetype start)
    : FTree(tree)
    , FLexer(tree.Source(), start)
    , FPieceStart(start)
{
}

std::optional<FormError> FormTextReader::Read()
{
    try {
        Advance();
        if (FToken.Type == FormToken::Kind::End)
            Fail(u"the file is empty; a form begins with a line like \"object Form1: TForm1\""_s);
        FTree.Root = Object();
    } catch (const Failure&) {
        return FError;
    }
    FTree.Suffix = FTree.Source().sliced(FPieceStart);
    FTree.RawStrings = FLexer.SawRawNonAscii();
    return std::nullopt;
}

void FormTextReader::Advance()
{
    FTokenEnd = FToken.End;
    FToken = FLexer.Next();
    if (FToken.Type == FormToken::Kind::Error)
        Fail(QString::fromLatin1(FLexer.Message()));
}

QByteArrayView FormTextReader::UpTo(qsizetype end)
{
    const auto piece = FTree.Source().sliced(FPieceStart, end - FPieceStart);
    FPieceStart = end;
    return piece;
}

// Behind the line end where only blanks come before it, else where it was asked: the rest of the line belongs to what
// stands there.
qsizetype FormTextReader::EndOfLine(qsizetype at) const
{
    const auto bytes = FTree.Source();
    auto end = at;
    while (end < bytes.size() && (bytes[end] == ' ' || bytes[end] == '\t'))
        ++end;
    if (end < bytes.size() && bytes[end] == '\r')
        return end + 1 < bytes.size() && bytes[end + 1] == '\n' ? end + 2 : end + 1;
    if (end < bytes.size() && bytes[end] == '\n')
        return end + 1;
    return end == bytes.size() ? end : at;
}

void FormTextReader::Enter()
{
    if (++FDepth > MaximumDepth)
        Fail(u"more than %1 levels inside one another; no program can show such a form, take out levels"_s.arg(
            MaximumDepth));
}

bool FormTextReader::IsWord(const char* word) const
{
    return FToken.Type == FormToken::Kind::Symbol
        && FLexer.Text(FToken).compare(QByteArrayView(word), Qt::CaseInsensitive) == 0;
}

static std::optional<FormNode::Kind> KindOf(QByteArrayView word)
{
    if (word.compare("object", Qt::CaseInsensitive) == 0)
        return FormNode::Kind::Object;
    if (word.compare("inherited", Qt::CaseInsensitive) == 0)
        return FormNode::Kind::Inherited;
    if (word.compare("inline", Qt::CaseInsensitive) == 0)
        return FormNode::Kind::Inline;
    return std::nullopt;
}

FormNode* FormTextReader::Object()
{
    const auto kind = FToken.Type == FormToken::Kind::Symbol ? KindOf(FLexer.Text(FToken)) : std::nullopt;
    if (!kind)
        FailExpected(u"\"object\", \"inherited\" or \"inline\""_s);
    Enter();
    auto* node = FTree.MakeNode(*kind);
    header(*node);
    Body(*node, true);
    Children(*node);
    const auto end = FToken.End;
    if (FDepth > 1)
        Advance(); // what stands behind the last end is kept, not read
    FTree.SetFrame(*node, {}, UpTo(EndOfLine(end)));
    Leave();
    return node;
}

void FormTextReader::header(FormNode& node)
{
    Advance();
    FormNode::Header made;
    auto first = DottedName("the name of an object or of its class");
    made.ClassName = first;
    if (FToken.Is(':')) {
        Advance();
        made.Name = first;
        made.ClassName = DottedName("the name of a class", true);
    }
    if (FToken.Is('['))
        made.Index = Index();
    made.Bytes = UpTo(EndOfLine(FTokenEnd));
    FTree.SetHeader(node, made);
}

std::optional<int> FormTextReader::Index()
{
    Advance();
    if (FToken.Type != FormToken::Kind::Integer)
        FailExpected(u"the number of the place among the siblings"_s);
    const auto number = FormNumber::ParseInteger(FLexer.Text(FToken));
    if (!number || *number != static_cast<int>(*number))
        Fail(u"a place that is out of range; write the number of the place among the siblings"_s);
    Advance();
    ExpectMark(']', "close the place with it");
    return static_cast<int>(*number);
}

// Asked before every property: the length and the first letter tell nearly every name from a keyword.
bool FormTextReader::EndsBody(bool isObject) const
{
    if (FToken.Type != FormToken::Kind::Symbol)
        return false;
    const auto word = FLexer.Text(FToken);
    const char first = word.front() | 0x20;
    if (word.size() == 3)
        return first == 'e' && IsWord("end");
    return isObject && (first == 'o' || first == 'i') && (word.size() == 6 || word.size() == 9) && KindOf(word);
}

void FormTextReader::Body(FormNode& node, bool isObject)
{
    const auto base = FProperties.size();
    while (!EndsBody(isObject))
        FProperties.push_back(Property(node));
    FTree.SetProperties(node, FTree.Keep(std::span(FProperties).subspan(base)));
    FProperties.resize(base);
}

void FormTextReader::Children(FormNode& node)
{
    const auto base = FNodes.size();
    while (!IsWord("end")) {
        if (FToken.Type == FormToken::Kind::Symbol && !KindOf(FLexer.Text(FToken)))
            Fail(u"\"%1\" after a child object; a property stands before the first child, and every object is closed "
                 "with \"end\""_s.arg(Found()));
        FNodes.push_back(Object());
    }
    FTree.SetChildren(node, FTree.Keep(std::span(FNodes).subspan(base)));
    FNodes.resize(base);
}

QByteArrayView FormTextReader::DottedName(const char* what, bool isClass)
{
    if (FToken.Type != FormToken::Kind::Symbol)
        FailExpected(QString::fromLatin1(what));
    const auto begin = FToken.Begin;
    qsizetype letters = FToken.size();
    Advance();
    while (FToken.Is('.') || (isClass && FToken.Is('/'))) {
        Advance();
        if (FToken.Type != FormToken::Kind::Symbol)
            FailExpected(u"a name behind the dot"_s);
        letters += FToken.size() + 1;
        Advance();
    }
    const auto name = FTree.Source().sliced(begin, FTokenEnd - begin);
    if (name.size() == letters)
        return name;
    auto compact = name.toByteArray();
    compact.removeIf([](char c) { return FormLexer::IsBlank(c); });
    return FTree.Keep(compact);
}

FormProperty* FormTextReader::Property(FormNode& owner)
{
    auto* made = FTree.MakeProperty(&owner);
    FormProperty::Pieces pieces;
    pieces.Name = DottedName("the name of a property, or \"end\"");
    ExpectMark('=', "a property is written as Name = Value");
    pieces.Lead = UpTo(FToken.Begin);
    Value(pieces, made);
    pieces.Trail = UpTo(EndOfLine(FTokenEnd));
    FTree.SetPieces(*made, pieces);
    return made;
}

void FormTextReader::Value(FormProperty::Pieces& pieces, FormProperty* property)
{
    if (FToken.Is('<')) {
        Collection(pieces, property);
        return;
    }
    SkipValue();
    pieces.Value = UpTo(FTokenEnd);
}

void FormTextReader::SkipValue()
{
    switch (FToken.Type) {
    case FormToken::Kind::Symbol:
        DottedName("a value");
        return;
    case FormToken::Kind::Integer:
        if (FToken.size() > 18 && !FormNumber::ParseInteger(FLexer.Text(FToken)))
            Fail(u"a whole number of more than 64 bits; write a smaller one"_s);
        Advance();
        return;
    case FormToken::Kind::Real:
    case FormToken::Kind::Binary:
        Advance();
        return;
    case FormToken::Kind::String:
        SkipString();
        return;
    default:
        break;
    }
    if (FToken.Is('['))
        SkipSet();
    else if (FToken.Is('('))
        SkipList();
    else if (FToken.Is('<'))
        SkipCollection();
    else
        FailExpected(u"a value"_s);
}

void FormTextReader::SkipString()
{
    Advance();
    while (FToken.Is('+')) {
        Advance();
        if (FToken.Type != FormToken::Kind::String)
            FailExpected(u"the string that goes on behind the +"_s);
        Advance();
    }
}

void FormTextReader::SkipSet()
{
    Advance();
    while (!FToken.Is(']')) {
        DottedName("the name of an element of the set, or ]");
        if (FToken.Is(']'))
            break;
        ExpectMark(',', "elements of a set are parted by commas and the set ends with ]");
        if (FToken.Is(']'))
            FailExpected(u"an element of the set behind the comma"_s);
    }
    Advance();
}

void FormTextReader::SkipList()
{
    Enter();
    Advance();
    while (!FToken.Is(')'))
        SkipValue();
    Advance();
    Leave();
}

// A collection inside a list: it is part of the list's value, its items are no nodes.
void FormTextReader::SkipCollection()
{
    FormProperty::Pieces pieces;
    const auto start = FPieceStart;
    Collection(pieces, FTree.MakeProperty(FTree.MakeNode(FormNode::Kind::Item)));
    FPieceStart = start;
}

void FormTextReader::Collection(FormProperty::Pieces& pieces, FormProperty* property)
{
    Enter();
    Advance();
    pieces.IsCollection = true;
    pieces.Value = UpTo(FTokenEnd);
    const auto base = FNodes.size();
    while (!FToken.Is('>'))
        FNodes.push_back(Item());
    Advance();
    pieces.Close = UpTo(FTokenEnd);
    pieces.Items = FTree.Keep(std::span(FNodes).subspan(base));
    FNodes.resize(base);
    FTree.SetPieces(*property, pieces);
    Leave();
}

FormNode* FormTextReader::Item()
{
    if (!IsWord("item"))
        FailExpected(u"\"item\", or > at the end of the collection"_s);
    auto* node = FTree.MakeNode(FormNode::Kind::Item);
    Advance();
    FormNode::Header header;
    if (FToken.Is('['))
        header.Index = Index();
    header.Bytes = UpTo(EndOfLine(FTokenEnd));
    FTree.SetHeader(*node, header);
    Body(*node, false);
    Advance();
    FTree.SetFrame(*node, {}, UpTo(FTokenEnd));
    return node;
}

void FormTextReader::ExpectMark(char mark, const char* advice)
{
    if (!FToken.Is(mark))
        FailExpected(u"\"%1\" (%2)"_s.arg(QLatin1Char(mark)).arg(QLatin1StringView(advice)));
    Advance();
}

QString FormTextReader::Found() const
{
    const auto text = FLexer.Text(FToken);
    return FTree.Encoding.Decode(text.first(std::min<qsizetype>(text.size(), 40)));
}

void FormTextReader::FailExpected(const QString& what)
{
    if (FToken.Type == FormToken::Kind::End)
        Fail(u"the file ends where %1 should stand; it is cut off, take it from a backup"_s.arg(what));
    Fail(u"\"%1\" where %2 should stand; write that there"_s.arg(Found(), what));
}

void FormTextReader::Fail(const QString& message)
{
    FError = FormErrorAt(FTree.Source(), FTree.Prefix.size(), FTree.Encoding, FToken.Begin, message);
    throw Failure();
}
