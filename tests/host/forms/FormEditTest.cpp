#include "host/forms/FormFixture.h"

#include "forms/FormTextPrinter.h"
#include "forms/FormTree.h"
#include "support/Corpus.h"

#include <QDir>
#include <QFile>

#include <random>

using namespace Qt::StringLiterals;

// Edits on documents in every hand that form files are written in; the whole file is compared each time.

namespace {

std::string Text(const FormDocument& form)
{
    return form.Bytes().toStdString();
}

QByteArray WithCollection()
{
    return "object Form1: TForm1\n"
           "  object Grid: TGrid\n"
           "    Columns = <\n"
           "      item\n"
           "        Field = 'A'\n"
           "      end\n"
           "      item\n"
           "        Field = 'B'\n"
           "      end>\n"
           "    Left = 1\n"
           "  end\n"
           "end\n";
}

QByteArray ShortString(const QByteArray& bytes)
{
    return QByteArray(1, static_cast<char>(bytes.size())) + bytes;
}

// A binary object: what it says, its properties and its children.
QByteArray BinaryObject(const QByteArray& className, const QByteArray& name, const QByteArray& properties = {},
    const QByteArray& children = {})
{
    return ShortString(className) + ShortString(name) + properties + '\0' + children + '\0';
}

}

TEST(FormEdit, SetsEveryKindOfValueInTheHandOfTextForms)
{
    const auto form = ReadForm("object A: TA\r\nend\r\n");
    auto& root = form->Root();
    form->SetProperty(root, u"Int"_s, FormValue::Integer(-7));
    form->SetProperty(root, u"Real"_s, FormValue::Real(0.1));
    form->SetProperty(root, u"Whole"_s, FormValue::Real(24));
    form->SetProperty(root, u"Flag"_s, FormValue::Boolean(true));
    form->SetProperty(root, u"None"_s, FormValue::Nil());
    form->SetProperty(root, u"Void"_s, FormValue());
    form->SetProperty(root, u"Color"_s, FormValue::Identifier(u"clRed"_s));
    form->SetProperty(root, u"Anchors"_s, FormValue::Set({ u"akLeft"_s, u"akTop"_s }));
    form->SetProperty(root, u"Hint"_s, FormValue::String(u"It's \u00e4\u20ac\n"_s));
    form->SetProperty(root, u"SQL.Strings"_s, FormValue::Strings({ u"select"_s, u""_s }));
    form->SetProperty(root, u"Empty.Strings"_s, FormValue::Strings({}));
    form->SetProperty(root, u"Data"_s, FormValue::Binary(QByteArray(33, '\xAB')));
    form->SetProperty(root, u"Columns"_s,
        FormValue::Collection({ { std::nullopt, { { u"Width"_s, FormValue::Integer(64) } } }, { 3, {} } }));
    form->SetProperty(root, u"Long"_s, FormValue::String(QString(70, u'x')));
    EXPECT_EQ(form->Bytes().replace("\r\n", "\n").toStdString(), R"(object A: TA
  Int = -7
  Real = 0.100000000000000000
  Whole = 24.000000000000000000
  Flag = True
  None = nil
  Void = Null
  Color = clRed
  Anchors = [akLeft, akTop]
  Hint = 'It'#39's '#228#8364#10
  SQL.Strings = (
    'select'
    '')
  Empty.Strings = ()
  Data = {
    ABABABABABABABABABABABABABABABABABABABABABABABABABABABABABABABAB
    AB}
  Columns = <
    item
      Width = 64
    end
    item [3]
    end>
  Long = 
    'xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx' +
    'xxxxxx'
end
)");
    EXPECT_EQ(form->Bytes().count('\n'), form->Bytes().count("\r\n"));
}

TEST(FormEdit, ReadsBackWhatItWrote)
{
    const auto form = ReadForm("object A: TA\nend\n");
    const auto value = FormValue::List({ FormValue::String(QString(200, u'\u00e4') + u"'"_s), FormValue::Real(1e-20),
        FormValue::Binary("\x01\x02"), FormValue::Set({}), FormValue::String(u"\U0001F600"_s.repeated(50)),
        FormValue::List({ FormValue::Integer(std::numeric_limits<qint64>::min()) }) });
    form->SetProperty(form->Root(), u"p"_s, value);
    EXPECT_EQ(ReadForm(form->Bytes())->Root().Property(u"p")->Value(), value);
}

TEST(FormEdit, WritesRawCharactersWhereTheFileHasThem)
{
    const auto form = ReadForm("object A: TA\n  Caption = 'Op\xC3\xA7\xC3\xA3o'\nend\n");
    form->SetProperty(form->Root(), u"Hint"_s, FormValue::String(u"It's \u00e4\n"_s));
    form->SetProperty(form->Root(), u"Lines.Strings"_s, FormValue::Strings({ u"a"_s }));
    form->SetProperty(form->Root(), u"Zoom"_s, FormValue::Real(1.5));
    EXPECT_EQ(Text(*form),
        "object A: TA\n  Caption = 'Op\xC3\xA7\xC3\xA3o'\n  Hint = 'It''s \xC3\xA4'#10\n  Lines.Strings = (\n    'a'\n "
        " )\n"
        "  Zoom = 1.5\nend\n");
}

TEST(FormEdit, WritesAStringFromAFormInAnotherEncodingInTheHandOfThisOne)
{
    const auto value = ReadForm("object A: TA\n  Caption = 'Gr\xFC\xDF'\nend\n")->Root().Property(u"Caption")->Value();
    const auto plain = ReadForm("object A: TA\nend\n");
    plain->SetProperty(plain->Root(), u"p"_s, value);
    EXPECT_EQ(Text(*plain), "object A: TA\n  p = 'Gr'#252#223\nend\n");
    const auto raw = ReadForm("object A: TA\n  x = 'Op\xC3\xA7\xC3\xA3o'\nend\n");
    raw->SetProperty(raw->Root(), u"p"_s, value);
    EXPECT_EQ(Text(*raw), "object A: TA\n  x = 'Op\xC3\xA7\xC3\xA3o'\n  p = 'Gr\xC3\xBC\xC3\x9F'\nend\n");
    const auto binary = ReadForm("TPF0" + BinaryObject("TA", "A", "\1x\6\2\xC3\xA7"));
    binary->SetProperty(binary->Root(), u"p"_s, value);
    EXPECT_EQ(binary->Root().Property(u"p")->Value(), value);
}

TEST(FormEdit, KeepsTabsAndTheStepOfTheFile)
{
    const auto form = ReadForm("object A: TA\n\tCaption\t= 'x'\n\tobject B: TB\n\t\tLeft = 1\n\tend\nend");
    auto& added = form->AddChild(*form->Find(u"B"), FormNode::Kind::Object, u"TC"_s, u"C"_s);
    form->SetProperty(added, u"Lines.Strings"_s, FormValue::Strings({ u"a"_s }));
    EXPECT_EQ(Text(*form),
        "object A: TA\n\tCaption\t= 'x'\n\tobject B: TB\n\t\tLeft = 1\n\t\tobject C: TC\n\t\t\tLines.Strings = (\n"
        "\t\t\t\t'a')\n\t\tend\n\tend\nend");
}

TEST(FormEdit, KeepsWhatStandsAroundAValueThatIsReplaced)
{
    const auto form = ReadForm("object A: TA  \r\n  Left  =\t1  \n\n  Top=2\r\nend\r\n\x1A");
    form->SetProperty(form->Root(), u"LEFT"_s, FormValue::Integer(10));
    form->SetProperty(form->Root(), u"Top"_s, FormValue::Boolean(false));
    EXPECT_EQ(Text(*form), "object A: TA  \r\n  Left  =\t10  \n\n  Top=False\r\nend\r\n\x1A");
}

TEST(FormEdit, ReplacesALongStringThatBeganInALineOfItsOwn)
{
    const QByteArray before
        = "object A: TA\n  Caption = \n    'xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx' +\n    "
          "'xxxxxxxxxxxxxxxxxxxxx'\n  Top = 1\nend\n";
    const auto form = ReadForm(before);
    form->SetProperty(form->Root(), u"Caption"_s, FormValue::String(u"short"_s));
    EXPECT_EQ(Text(*form), "object A: TA\n  Caption = 'short'\n  Top = 1\nend\n");
    form->SetProperty(form->Root(), u"Caption"_s, FormValue::String(QString(65, u'y')));
    EXPECT_EQ(
        Text(*form), "object A: TA\n  Caption = \n    '" + std::string(64, 'y') + "' +\n    'y'\n  Top = 1\nend\n");
    form->UndoTo(0);
    EXPECT_EQ(form->Bytes(), before);
}

TEST(FormEdit, SpellsAValueAsItsNeighboursAreSpelled)
{
    const auto form
        = ReadForm("object A: TA\n  Caption = 'Op\xC3\xA7\xC3\xA3o'\n  Items.Strings = (\n    'a'\n    'b')\n"
                   "  Zoom = 2.000000000000000000\n  object B: TB [0]\n  end\nend\n",
            { u"Form.lfm"_s });
    form->SetProperty(form->Root(), u"Items.Strings"_s, FormValue::Strings({ u"a"_s, u"c"_s }));
    form->SetProperty(form->Root(), u"Zoom"_s, FormValue::Real(2.5));
    form->SetIndex(*form->Find(u"B"), 7);
    EXPECT_EQ(Text(*form),
        "object A: TA\n  Caption = 'Op\xC3\xA7\xC3\xA3o'\n  Items.Strings = (\n    'a'\n    'c')\n"
        "  Zoom = 2.500000000000000000\n  object B: TB [7]\n  end\nend\n");
}

namespace {

// The values of the corpus that would be spelled otherwise if they were set anew.
void CountOtherwise(const FormNode& node, const FormTextStyle& style, int& all, QStringList& otherwise)
{
    for (const auto* property : node.Properties()) {
        for (const auto* item : property->Items())
            CountOtherwise(*item, style, all, otherwise);
        if (property->IsCollection())
            continue;
        ++all;
        const auto indent = FormIndentOf(property->ThePieces().Lead);
        const auto anew = FormTextPrinter(style).Value(property->Value(), indent);
        if (anew.trimmed() != property->ValueBytes())
            otherwise << node.Name() + u'.' + property->Name();
    }
    for (const auto* child : node.Children())
        CountOtherwise(*child, style, all, otherwise);
}

}

TEST(FormEdit, SpellsNearlyEveryValueOfTheCorpusAsItStandsThere)
{
    int all = 0;
    QStringList otherwise;
    for (const auto& path : Corpus::files({ u"*.dfm"_s, u"*.lfm"_s })) {
        const auto form = FormDocument::Load(path);
        ASSERT_TRUE(form);
        if (form.Value()->Format() == FormFormat::Text)
            CountOtherwise(form.Value()->Root(), FormStyleOf(form.Value()->Tree(), path), all, otherwise);
    }
    if (all == 0)
        GTEST_SKIP() << "no corpus beside the checkout";
    EXPECT_LE(otherwise.size(), all / 1000) << qPrintable(otherwise.join(u' '));
}

TEST(FormEdit, RemovesTheLinesOfAProperty)
{
    const auto form = ReadForm("object A: TA\n  Left = 1\n  SQL.Strings = (\n    'a'\n    'b')\n  Top = 2\nend\n");
    EXPECT_TRUE(form->RemoveProperty(form->Root(), u"sql.strings"));
    EXPECT_FALSE(form->RemoveProperty(form->Root(), u"sql.strings"));
    EXPECT_EQ(Text(*form), "object A: TA\n  Left = 1\n  Top = 2\nend\n");
}

TEST(FormEdit, AddsAChildAtAPosition)
{
    const auto form = ReadForm("object A: TA\n  object B: TB\n  end\n  object C: TC\n  end\nend\n");
    form->AddChild(form->Root(), FormNode::Kind::Inherited, u"TD"_s, u"D"_s, 1);
    form->AddChild(form->Root(), FormNode::Kind::Inline, u"TE"_s, QString(), 0);
    EXPECT_EQ(Text(*form),
        "object A: TA\n  inline TE\n  end\n  object B: TB\n  end\n  inherited D: TD\n  end\n  object C: TC\n  "
        "end\nend\n");
}

TEST(FormEdit, RemovesAChildWithAllItsLines)
{
    const auto form = ReadForm(WithCollection());
    EXPECT_TRUE(form->Remove(*form->Find(u"Grid")));
    EXPECT_EQ(Text(*form), "object Form1: TForm1\nend\n");
    EXPECT_FALSE(form->Remove(form->Root()));
}

TEST(FormEdit, RenamesANodeInItsOneLine)
{
    const auto form
        = ReadForm("inherited A: TA\r\n  object  Old : TEdit [2]\r\n  end\r\n  object TX\r\n  end\r\nend\r\n");
    auto& node = *form->Find(u"Old");
    form->Rename(node, u"New"_s);
    form->SetClassName(node, u"TMemo"_s);
    form->SetIndex(node, 12);
    form->Rename(*form->Root().Children()[1], u"X"_s);
    EXPECT_EQ(
        Text(*form), "inherited A: TA\r\n  object New: TMemo [12]\r\n  end\r\n  object X: TX\r\n  end\r\nend\r\n");
    EXPECT_EQ(node.Name(), u"New"_s);
    EXPECT_EQ(node.ClassName(), u"TMemo"_s);
    EXPECT_EQ(node.Index(), 12);
    form->SetIndex(node, std::nullopt);
    form->SetKind(node, FormNode::Kind::Inherited);
    form->Rename(node, QString());
    EXPECT_EQ(Text(*form), "inherited A: TA\r\n  inherited TMemo\r\n  end\r\n  object X: TX\r\n  end\r\nend\r\n");
}

TEST(FormEdit, ReordersChildren)
{
    const auto form = ReadForm(
        "object A: TA\n  object B: TB\n    x = 1\n  end\n  object C: TC\n  end\n  object D: TD\n  end\nend\n");
    EXPECT_TRUE(form->Reorder(*form->Find(u"B"), 2));
    EXPECT_EQ(Text(*form),
        "object A: TA\n  object C: TC\n  end\n  object D: TD\n  end\n  object B: TB\n    x = 1\n  end\nend\n");
    EXPECT_EQ(form->Find(u"B")->Position(), 2);
    EXPECT_FALSE(form->Reorder(form->Root(), 0));
}

TEST(FormEdit, MovesANodeToAnotherDepthWithItsLines)
{
    const auto form = ReadForm("object A: TA\n"
                               "  object B: TB\n"
                               "  end\n"
                               "  object C: TC\n"
                               "    Lines.Strings = (\n"
                               "      'a')\n"
                               "    Items = <\n"
                               "      item\n"
                               "        x = 1\n"
                               "      end>\n"
                               "    object D: TD\n"
                               "    end\n"
                               "  end\n"
                               "end\n");
    EXPECT_TRUE(form->Move(*form->Find(u"C"), *form->Find(u"B")));
    EXPECT_EQ(Text(*form),
        "object A: TA\n"
        "  object B: TB\n"
        "    object C: TC\n"
        "      Lines.Strings = (\n"
        "        'a')\n"
        "      Items = <\n"
        "        item\n"
        "          x = 1\n"
        "        end>\n"
        "      object D: TD\n"
        "      end\n"
        "    end\n"
        "  end\n"
        "end\n");
    EXPECT_FALSE(form->Move(*form->Find(u"B"), *form->Find(u"D")));
    EXPECT_FALSE(form->Move(form->Root(), *form->Find(u"D")));
    EXPECT_EQ(form->Find(u"C")->Name(), u"C"_s);
}

TEST(FormEdit, EditsTheItemsOfACollectionAsNodes)
{
    const auto form = ReadForm(WithCollection());
    auto& grid = *form->Find(u"Grid");
    auto& added = form->AddItem(grid, u"Columns"_s);
    form->SetProperty(added, u"Field"_s, FormValue::String(u"C"_s));
    form->SetProperty(*grid.Property(u"Columns")->Items()[0], u"Width"_s, FormValue::Integer(9));
    form->Remove(*grid.Property(u"Columns")->Items()[1]);
    EXPECT_EQ(
        Text(*form), WithCollection().replace("'A'\n", "'A'\n        Width = 9\n").replace("'B'", "'C'").toStdString());
    EXPECT_EQ(added.Parent(), &grid);
    EXPECT_EQ(added.Collection(), grid.Property(u"Columns"));
    form->UndoTo(0);
    EXPECT_EQ(form->Bytes(), WithCollection());
}

TEST(FormEdit, MakesACollectionForItsFirstItem)
{
    const auto form = ReadForm("object A: TA\n  Top = 1\nend\n");
    form->AddItem(form->Root(), u"Params"_s);
    EXPECT_EQ(Text(*form), "object A: TA\n  Top = 1\n  Params = <\n    item\n    end>\nend\n");
}

TEST(FormEdit, LeavesTokensApartInFormsThatAreWrittenInOneLine)
{
    const QByteArray line
        = "object A:TA x=1 y='two'z=<item a=1 end item b=2 end>object B:TB end object TC q=(1 2)end end";
    for (int step = 0; step < 9; ++step) {
        const auto form = ReadForm(line);
        auto& root = form->Root();
        switch (step) {
        case 0:
            form->SetProperty(root, u"y"_s, FormValue::Boolean(true));
            break;
        case 1:
            form->RemoveProperty(root, u"y");
            break;
        case 2:
            form->SetProperty(root, u"new"_s, FormValue::Integer(1));
            break;
        case 3:
            form->AddChild(root, FormNode::Kind::Object, u"TD"_s, u"D"_s, 1);
            break;
        case 4:
            form->Reorder(*root.Children()[0], 1);
            break;
        case 5:
            form->AddItem(root, u"z"_s, 0);
            break;
        case 6:
            form->Reorder(*root.Property(u"z")->Items()[0], 1);
            break;
        case 7:
            form->Move(*root.Children()[1], *root.Children()[0]);
            break;
        default:
            form->Remove(*root.Children()[0]);
        }
        const auto again = ReadForm(form->Bytes());
        EXPECT_EQ(again->Root().Children().size(), form->Root().Children().size()) << step;
        EXPECT_EQ(again->Root().Properties().size(), form->Root().Properties().size()) << step;
        EXPECT_EQ(again->Root().Property(u"z")->Value(), form->Root().Property(u"z")->Value()) << step;
        form->UndoTo(0);
        EXPECT_EQ(form->Bytes(), line) << step;
    }
}

TEST(FormEdit, EditsABinaryFormAsItEditsText)
{
    const auto before = "TPF0" + BinaryObject("TA", "A", "\4Left\2\1", BinaryObject("TB", "B"));
    const auto form = ReadForm(before);
    auto& root = form->Root();
    form->SetProperty(root, u"left"_s, FormValue::Integer(300));
    form->SetProperty(root, u"Caption"_s, FormValue::String(u"x"_s));
    auto& added = form->AddChild(root, FormNode::Kind::Inherited, u"TC"_s, u"C"_s);
    form->SetProperty(added, u"Hint"_s, FormValue::String(u"\u20ac"_s));
    form->Rename(*form->Find(u"B"), u"Bee"_s);
    form->SetIndex(*form->Find(u"Bee"), 2);
    const auto after = "TPF0"
        + BinaryObject("TA", "A", "\4Left\3\x2C\1\7Caption\6\1x",
            "\xF2\2\2" + BinaryObject("TB", "Bee") + "\xF1"
                + BinaryObject("TC", "C", QByteArray("\4Hint\x12\1\0\0\0\xAC\x20", 12)));
    EXPECT_EQ(form->Bytes().toHex().toStdString(), after.toHex().toStdString());
    form->UndoTo(0);
    EXPECT_EQ(form->Bytes(), before);
}

TEST(FormEdit, KeepsTheSizeInTheResourceHeaderRight)
{
    const auto body = "TPF0" + BinaryObject("TA", "A");
    const QByteArray header("\xFF\x0A\0TA\0\x30\x10", 8);
    const auto form = ReadForm(header + QByteArray("\x0B\0\0\0", 4) + body);
    ASSERT_EQ(body.size(), 11);
    form->SetProperty(form->Root(), u"Tag"_s, FormValue::Integer(1));
    const auto after = "TPF0" + BinaryObject("TA", "A", "\3Tag\2\1");
    EXPECT_EQ(
        form->Bytes().toHex().toStdString(), (header + QByteArray("\x11\0\0\0", 4) + after).toHex().toStdString());
}

TEST(FormEdit, CountsOneStepForOneEditAndNoneForNoChange)
{
    const auto form = ReadForm(WithCollection());
    auto& grid = *form->Find(u"Grid");
    form->SetProperty(grid, u"Left"_s, FormValue::Integer(1));
    form->Rename(grid, u"Grid"_s);
    EXPECT_EQ(form->Position(), 0);
    form->SetProperty(grid, u"Items"_s, FormValue::Collection({ {}, {} }));
    EXPECT_EQ(form->Position(), 1);
    form->UndoTo(0);
    EXPECT_EQ(form->LastPosition(), 1);
    form->SetProperty(grid, u"Left"_s, FormValue::Integer(2));
    EXPECT_EQ(form->LastPosition(), 1);
    form->RedoTo(5);
    EXPECT_EQ(form->Position(), 1);
}

namespace {

std::vector<FormNode*> NodesOf(FormNode& root)
{
    std::vector<FormNode*> all { &root };
    for (size_t i = 0; i < all.size(); ++i) {
        auto* node = all[i];
        all.insert(all.end(), node->Children().begin(), node->Children().end());
        for (auto* property : node->Properties())
            all.insert(all.end(), property->Items().begin(), property->Items().end());
    }
    return all;
}

FormValue RandomValue(std::mt19937& random)
{
    switch (random() % 7) {
    case 0:
        return FormValue::Integer(int(random()));
    case 1:
        return FormValue::String(QString(int(random() % 100), QChar(char16_t(random() % 0x300 + 0x20))));
    case 2:
        return FormValue::Strings({ u"a"_s, u"b"_s });
    case 3:
        return FormValue::Collection({ { std::nullopt, { { u"x"_s, FormValue::Integer(1) } } }, { 2, {} } });
    case 4:
        return FormValue::Set({ u"a"_s });
    case 5:
        return FormValue::Real(1.25);
    default:
        return FormValue::Identifier(u"clRed"_s);
    }
}

void RandomEdit(FormDocument& form, std::mt19937& random)
{
    const auto all = NodesOf(form.Root());
    auto& node = *all[random() % all.size()];
    const auto properties = node.Properties();
    auto* property = properties.empty() ? nullptr : properties[random() % properties.size()];
    switch (random() % 9) {
    case 0:
        if (property)
            form.SetProperty(node, property->Name(), RandomValue(random));
        break;
    case 1:
        form.SetProperty(node, u"New%1"_s.arg(random() % 3), RandomValue(random));
        break;
    case 2:
        if (property)
            form.RemoveProperty(*property);
        break;
    case 3:
        if (node.TheKind() != FormNode::Kind::Item)
            form.AddChild(node, FormNode::Kind::Object, u"TNew"_s, u"New"_s, int(random() % 4) - 1);
        break;
    case 4:
        form.AddItem(node, u"Items"_s, int(random() % 4) - 1);
        break;
    case 5:
        form.Remove(node);
        break;
    case 6:
        if (node.TheKind() != FormNode::Kind::Item)
            form.Rename(node, u"Name%1"_s.arg(random() % 9));
        form.SetIndex(node, random() % 2 ? std::optional(int(random() % 500)) : std::nullopt);
        break;
    case 7:
        form.Reorder(node, int(random() % 4));
        break;
    default:
        if (auto& target = *all[random() % all.size()]; target.TheKind() != FormNode::Kind::Item)
            form.Move(node, target, int(random() % 4) - 1);
    }
}

std::string Shape(const FormNode& node)
{
    QString said
        = u"%1 %2:%3[%4]"_s.arg(int(node.TheKind())).arg(node.Name(), node.ClassName()).arg(node.Index().value_or(-1));
    for (const auto* property : node.Properties())
        said += u' ' + property->Name() + u'/' + QString::number(property->Items().size());
    std::string all = said.toStdString();
    for (const auto* property : node.Properties())
        for (const auto* item : property->Items())
            all += Shape(*item);
    all += '(';
    for (const auto* child : node.Children())
        all += Shape(*child);
    return all + ')';
}

// A walk of edits: the bytes always read as the tree that is held, and going back step by step gives each earlier
// state's bytes.
void Walk(const QByteArray& bytes, const std::string& where, unsigned seed, int steps)
{
    std::mt19937 random(seed);
    const auto form = ReadForm(bytes);
    QList<QByteArray> states { form->Bytes() };
    QList<int> positions { 0 };
    for (int i = 0; i < steps; ++i) {
        RandomEdit(*form, random);
        states << form->Bytes();
        positions << form->Position();
        const auto again = FormDocument::Read(states.back());
        ASSERT_TRUE(again) << where << " seed " << seed << ' ' << qPrintable(again.Error().ToString());
        ASSERT_EQ(Shape(again.Value()->Root()), Shape(form->Root())) << where << " seed " << seed;
    }
    for (auto i = states.size() - 1; i >= 0; --i) {
        form->UndoTo(positions[i]);
        ASSERT_EQ(form->Bytes().toStdString(), states[i].toStdString()) << where << " seed " << seed;
    }
    form->RedoTo(form->LastPosition());
    EXPECT_EQ(form->Bytes().toStdString(), states.back().toStdString()) << where << " seed " << seed;
}

}

TEST(FormEdit, WalksAtRandomAndBackOverEveryHandwrittenForm)
{
    const QDir folder(QStringLiteral(MORVANE_SOURCE_DIR "/tests/data/forms"));
    for (const auto& name : folder.entryList(QDir::Files)) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const auto bytes = file.readAll();
        for (unsigned seed = 1; seed <= 20; ++seed)
            Walk(bytes, name.toStdString(), seed, 20);
    }
}

TEST(FormEdit, WalksAtRandomAndBackOverTheCorpus)
{
    const auto files = Corpus::files({ u"*.dfm"_s, u"*.lfm"_s });
    if (files.isEmpty())
        GTEST_SKIP() << "no corpus beside the checkout";
    for (const auto& path : files) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        if (file.size() < 8000)
            Walk(file.readAll(), path.toStdString(), 7, 10);
    }
}
