#include "forms/FormBinaryReader.h"

#include <QUtf8StringView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr uchar FlagMask = 0xF0;
constexpr uchar FlagInherited = 1;
constexpr uchar FlagPlace = 2;
constexpr uchar FlagInline = 4;

FormNode::Kind KindOf(uchar flags)
{
    if (flags & FlagInline)
        return FormNode::Kind::Inline;
    return flags & FlagInherited ? FormNode::Kind::Inherited : FormNode::Kind::Object;
}

}

FormBinaryReader::FormBinaryReader(FormTree& tree, qsizetype start, qsizetype end, bool doubles)
    : FTree(tree)
    , FCursor(tree.Source().first(end), start + 4)
    , FEnd(end)
    , FPieceStart(start + 4)
    , FDoubles(doubles)
{
    FTree.Prefix = tree.Source().first(start + 4);
    FTree.Doubles = doubles;
}

std::optional<FormError> FormBinaryReader::Read()
{
    try {
        FTree.Root = Object();
    } catch (const Failure&) {
        return FError;
    }
    FTree.Suffix = FTree.Source().sliced(FPieceStart);
    if (FNonAscii && FUtf8)
        FTree.Encoding = FormEncoding::Utf8();
    return std::nullopt;
}

QByteArrayView FormBinaryReader::Name()
{
    const auto found = FCursor.ShortString();
    Note(found);
    return found;
}

// Nothing in a binary form says what its narrow strings are in: it is UTF-8 where all of them are valid UTF-8.
void FormBinaryReader::Note(QByteArrayView text)
{
    if (std::all_of(text.begin(), text.end(), [](char c) { return static_cast<uchar>(c) < 0x80; }))
        return;
    FNonAscii = true;
    FUtf8 = FUtf8 && QUtf8StringView(text.data(), text.size()).isValidUtf8();
}

QByteArrayView FormBinaryReader::UpTo(qsizetype end)
{
    const auto piece = FTree.Source().sliced(FPieceStart, end - FPieceStart);
    FPieceStart = end;
    return piece;
}

void FormBinaryReader::Enter()
{
    if (++FDepth > MaximumDepth)
        Fail(u"more than %1 levels inside one another; no program can show such a form, take out levels"_s.arg(
                 MaximumDepth),
            FCursor.At());
}

void FormBinaryReader::Check(const char* what)
{
    if (FCursor.Failed())
        Fail(u"%1 reaches beyond the end of the form; the file is cut off or damaged, take it from a backup"_s.arg(
                 QLatin1StringView(what)),
            FCursor.At());
}

void FormBinaryReader::Fail(const QString& message, qsizetype at)
{
    FError = FormError { {}, 0, 0, at, message };
    throw Failure();
}

FormNode* FormBinaryReader::Object()
{
    Enter();
    auto* node = FTree.MakeNode(FCursor.Peek() >= FlagMask ? KindOf(FCursor.Peek()) : FormNode::Kind::Object);
    header(*node);
    Body(*node);
    const auto middle = UpTo(FCursor.At());
    Children(*node);
    FTree.SetFrame(*node, middle, UpTo(FCursor.At()));
    Leave();
    return node;
}

void FormBinaryReader::header(FormNode& node)
{
    FormNode::Header made;
    if (FCursor.Peek() >= FlagMask && FCursor.Number<uchar>() & FlagPlace)
        made.Index = Place();
    made.ClassName = Name();
    Check("the name of a class");
    if (made.ClassName.isEmpty())
        Fail(u"an object without a class; the file is damaged, take it from a backup"_s, FCursor.At());
    made.Name = Name();
    Check("the name of an object");
    made.Bytes = UpTo(FCursor.At());
    FTree.SetHeader(node, made);
}

int FormBinaryReader::Place()
{
    const auto at = FCursor.At();
    const auto type = static_cast<BinaryType>(FCursor.Number<uchar>());
    Check("the place among the siblings");
    if (type < BinaryType::Int8 || type > BinaryType::Int32)
        Fail(u"no whole number where the place among the siblings should stand; the file is damaged"_s, at);
    const auto found = static_cast<int>(FCursor.Integer(type));
    Check("the place among the siblings");
    return found;
}

void FormBinaryReader::Body(FormNode& node)
{
    const auto base = FProperties.size();
    while (FCursor.Peek() != 0)
        FProperties.push_back(Property(node));
    FCursor.Take(1);
    Check("the list of properties");
    FTree.SetProperties(node, FTree.Keep(std::span(FProperties).subspan(base)));
    FProperties.resize(base);
}

void FormBinaryReader::Children(FormNode& node)
{
    const auto base = FNodes.size();
    while (FCursor.Peek() != 0)
        FNodes.push_back(Object());
    FCursor.Take(1);
    Check("the list of child objects");
    FTree.SetChildren(node, FTree.Keep(std::span(FNodes).subspan(base)));
    FNodes.resize(base);
}

FormProperty* FormBinaryReader::Property(FormNode& owner)
{
    auto* made = FTree.MakeProperty(&owner);
    FormProperty::Pieces pieces;
    pieces.Name = Name();
    Check("the name of a property");
    pieces.Lead = UpTo(FCursor.At());
    if (static_cast<BinaryType>(FCursor.Peek()) == BinaryType::Collection) {
        Collection(pieces, made);
        return made;
    }
    SkipValue();
    pieces.Value = UpTo(FCursor.At());
    FTree.SetPieces(*made, pieces);
    return made;
}

void FormBinaryReader::SkipValue()
{
    FValueStart = FCursor.At();
    switch (static_cast<BinaryType>(FCursor.Number<uchar>())) {
    case BinaryType::Null:
    case BinaryType::False:
    case BinaryType::True:
    case BinaryType::Nil:
        break;
    case BinaryType::Int8:
        return SkipFixed(1);
    case BinaryType::Int16:
        return SkipFixed(2);
    case BinaryType::Int32:
    case BinaryType::Single:
        return SkipFixed(4);
    case BinaryType::Int64:
    case BinaryType::QWord:
    case BinaryType::Currency:
    case BinaryType::Date:
        return SkipFixed(8);
    case BinaryType::Extended:
        return SkipFixed(10);
    case BinaryType::String:
    case BinaryType::Ident:
        Name();
        break;
    case BinaryType::LString:
        Note(FCursor.LongString());
        break;
    case BinaryType::Utf8String:
    case BinaryType::Binary:
        FCursor.LongString();
        break;
    case BinaryType::WString:
        FCursor.WideString();
        break;
    case BinaryType::Double:
        return SkipAmbiguous();
    case BinaryType::Set:
        return SkipSet();
    case BinaryType::List:
        return SkipList();
    case BinaryType::Collection:
        return SkipCollection();
    default:
        Fail(u"a value of a kind that is not known; the file is damaged or newer than this program"_s, FValueStart);
    }
    Check("a value");
}

void FormBinaryReader::SkipFixed(int size)
{
    FCursor.Take(size);
    Check("a number");
}

void FormBinaryReader::SkipAmbiguous()
{
    FAmbiguous = true;
    if (FDoubles)
        FCursor.Take(8);
    else
        FCursor.WideString();
    Check("a value");
}

void FormBinaryReader::SkipSet()
{
    while (!Name().isEmpty())
        Check("an element of a set");
    Check("a set");
}

void FormBinaryReader::SkipList()
{
    Enter();
    while (FCursor.Peek() != 0)
        SkipValue();
    FCursor.Take(1);
    Check("a list");
    Leave();
}

void FormBinaryReader::SkipCollection()
{
    FormProperty::Pieces pieces;
    const auto start = FPieceStart;
    FCursor = FormBinaryCursor(FTree.Source().first(FEnd), FCursor.At() - 1);
    Collection(pieces, FTree.MakeProperty(FTree.MakeNode(FormNode::Kind::Item)));
    FPieceStart = start;
}

void FormBinaryReader::Collection(FormProperty::Pieces& pieces, FormProperty* property)
{
    Enter();
    FCursor.Take(1);
    pieces.IsCollection = true;
    pieces.Value = UpTo(FCursor.At());
    const auto base = FNodes.size();
    while (FCursor.Peek() != 0)
        FNodes.push_back(Item());
    FCursor.Take(1);
    Check("a collection");
    pieces.Close = UpTo(FCursor.At());
    pieces.Items = FTree.Keep(std::span(FNodes).subspan(base));
    FNodes.resize(base);
    FTree.SetPieces(*property, pieces);
    Leave();
}

FormNode* FormBinaryReader::Item()
{
    auto* node = FTree.MakeNode(FormNode::Kind::Item);
    FormNode::Header header;
    if (static_cast<BinaryType>(FCursor.Peek()) != BinaryType::List)
        header.Index = Place();
    const auto at = FCursor.At();
    if (static_cast<BinaryType>(FCursor.Number<uchar>()) != BinaryType::List)
        Fail(u"no list of properties where an item of a collection begins; the file is damaged"_s, at);
    header.Bytes = UpTo(FCursor.At());
    FTree.SetHeader(*node, header);
    Body(*node);
    FTree.SetFrame(*node, {}, UpTo(FCursor.At()));
    return node;
}
