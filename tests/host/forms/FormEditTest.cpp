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

std::string text(const FormDocument& form)
{
    return form.bytes().toStdString();
}

QByteArray withCollection()
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

QByteArray shortString(const QByteArray& bytes)
{
    return QByteArray(1, static_cast<char>(bytes.size())) + bytes;
}

// A binary object: what it says, its properties and its children.
QByteArray binaryObject(const QByteArray& className, const QByteArray& name, const QByteArray& properties = {},
    const QByteArray& children = {})
{
    return shortString(className) + shortString(name) + properties + '\0' + children + '\0';
}

}

TEST(FormEdit, SetsEveryKindOfValueInTheHandOfTextForms)
{
    const auto form = readForm("object A: TA\r\nend\r\n");
    auto& root = form->root();
    form->setProperty(root, u"Int"_s, FormValue::integer(-7));
    form->setProperty(root, u"Real"_s, FormValue::real(0.1));
    form->setProperty(root, u"Whole"_s, FormValue::real(24));
    form->setProperty(root, u"Flag"_s, FormValue::boolean(true));
    form->setProperty(root, u"None"_s, FormValue::nil());
    form->setProperty(root, u"Void"_s, FormValue());
    form->setProperty(root, u"Color"_s, FormValue::identifier(u"clRed"_s));
    form->setProperty(root, u"Anchors"_s, FormValue::set({ u"akLeft"_s, u"akTop"_s }));
    form->setProperty(root, u"Hint"_s, FormValue::string(u"It's \u00e4\u20ac\n"_s));
    form->setProperty(root, u"SQL.Strings"_s, FormValue::strings({ u"select"_s, u""_s }));
    form->setProperty(root, u"Empty.Strings"_s, FormValue::strings({}));
    form->setProperty(root, u"Data"_s, FormValue::binary(QByteArray(33, '\xAB')));
    form->setProperty(root, u"Columns"_s,
        FormValue::collection({ { std::nullopt, { { u"Width"_s, FormValue::integer(64) } } }, { 3, {} } }));
    form->setProperty(root, u"Long"_s, FormValue::string(QString(70, u'x')));
    EXPECT_EQ(form->bytes().replace("\r\n", "\n").toStdString(), R"(object A: TA
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
    EXPECT_EQ(form->bytes().count('\n'), form->bytes().count("\r\n"));
}

TEST(FormEdit, ReadsBackWhatItWrote)
{
    const auto form = readForm("object A: TA\nend\n");
    const auto value = FormValue::list({ FormValue::string(QString(200, u'\u00e4') + u"'"_s), FormValue::real(1e-20),
        FormValue::binary("\x01\x02"), FormValue::set({}), FormValue::string(u"\U0001F600"_s.repeated(50)),
        FormValue::list({ FormValue::integer(std::numeric_limits<qint64>::min()) }) });
    form->setProperty(form->root(), u"p"_s, value);
    EXPECT_EQ(readForm(form->bytes())->root().property(u"p")->value(), value);
}

TEST(FormEdit, WritesRawCharactersWhereTheFileHasThem)
{
    const auto form = readForm("object A: TA\n  Caption = 'Op\xC3\xA7\xC3\xA3o'\nend\n");
    form->setProperty(form->root(), u"Hint"_s, FormValue::string(u"It's \u00e4\n"_s));
    form->setProperty(form->root(), u"Lines.Strings"_s, FormValue::strings({ u"a"_s }));
    form->setProperty(form->root(), u"Zoom"_s, FormValue::real(1.5));
    EXPECT_EQ(text(*form),
        "object A: TA\n  Caption = 'Op\xC3\xA7\xC3\xA3o'\n  Hint = 'It''s \xC3\xA4'#10\n  Lines.Strings = (\n    'a'\n "
        " )\n"
        "  Zoom = 1.5\nend\n");
}

TEST(FormEdit, WritesAStringFromAFormInAnotherEncodingInTheHandOfThisOne)
{
    const auto value = readForm("object A: TA\n  Caption = 'Gr\xFC\xDF'\nend\n")->root().property(u"Caption")->value();
    const auto plain = readForm("object A: TA\nend\n");
    plain->setProperty(plain->root(), u"p"_s, value);
    EXPECT_EQ(text(*plain), "object A: TA\n  p = 'Gr'#252#223\nend\n");
    const auto raw = readForm("object A: TA\n  x = 'Op\xC3\xA7\xC3\xA3o'\nend\n");
    raw->setProperty(raw->root(), u"p"_s, value);
    EXPECT_EQ(text(*raw), "object A: TA\n  x = 'Op\xC3\xA7\xC3\xA3o'\n  p = 'Gr\xC3\xBC\xC3\x9F'\nend\n");
    const auto binary = readForm("TPF0" + binaryObject("TA", "A", "\1x\6\2\xC3\xA7"));
    binary->setProperty(binary->root(), u"p"_s, value);
    EXPECT_EQ(binary->root().property(u"p")->value(), value);
}

TEST(FormEdit, KeepsTabsAndTheStepOfTheFile)
{
    const auto form = readForm("object A: TA\n\tCaption\t= 'x'\n\tobject B: TB\n\t\tLeft = 1\n\tend\nend");
    auto& added = form->addChild(*form->find(u"B"), FormNode::Kind::Object, u"TC"_s, u"C"_s);
    form->setProperty(added, u"Lines.Strings"_s, FormValue::strings({ u"a"_s }));
    EXPECT_EQ(text(*form),
        "object A: TA\n\tCaption\t= 'x'\n\tobject B: TB\n\t\tLeft = 1\n\t\tobject C: TC\n\t\t\tLines.Strings = (\n"
        "\t\t\t\t'a')\n\t\tend\n\tend\nend");
}

TEST(FormEdit, KeepsWhatStandsAroundAValueThatIsReplaced)
{
    const auto form = readForm("object A: TA  \r\n  Left  =\t1  \n\n  Top=2\r\nend\r\n\x1A");
    form->setProperty(form->root(), u"LEFT"_s, FormValue::integer(10));
    form->setProperty(form->root(), u"Top"_s, FormValue::boolean(false));
    EXPECT_EQ(text(*form), "object A: TA  \r\n  Left  =\t10  \n\n  Top=False\r\nend\r\n\x1A");
}

TEST(FormEdit, ReplacesALongStringThatBeganInALineOfItsOwn)
{
    const QByteArray before
        = "object A: TA\n  Caption = \n    'xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx' +\n    "
          "'xxxxxxxxxxxxxxxxxxxxx'\n  Top = 1\nend\n";
    const auto form = readForm(before);
    form->setProperty(form->root(), u"Caption"_s, FormValue::string(u"short"_s));
    EXPECT_EQ(text(*form), "object A: TA\n  Caption = 'short'\n  Top = 1\nend\n");
    form->setProperty(form->root(), u"Caption"_s, FormValue::string(QString(65, u'y')));
    EXPECT_EQ(
        text(*form), "object A: TA\n  Caption = \n    '" + std::string(64, 'y') + "' +\n    'y'\n  Top = 1\nend\n");
    form->undoTo(0);
    EXPECT_EQ(form->bytes(), before);
}

TEST(FormEdit, SpellsAValueAsItsNeighboursAreSpelled)
{
    const auto form
        = readForm("object A: TA\n  Caption = 'Op\xC3\xA7\xC3\xA3o'\n  Items.Strings = (\n    'a'\n    'b')\n"
                   "  Zoom = 2.000000000000000000\n  object B: TB [0]\n  end\nend\n",
            { u"Form.lfm"_s });
    form->setProperty(form->root(), u"Items.Strings"_s, FormValue::strings({ u"a"_s, u"c"_s }));
    form->setProperty(form->root(), u"Zoom"_s, FormValue::real(2.5));
    form->setIndex(*form->find(u"B"), 7);
    EXPECT_EQ(text(*form),
        "object A: TA\n  Caption = 'Op\xC3\xA7\xC3\xA3o'\n  Items.Strings = (\n    'a'\n    'c')\n"
        "  Zoom = 2.500000000000000000\n  object B: TB [7]\n  end\nend\n");
}

namespace {

// The values of the corpus that would be spelled otherwise if they were set anew.
void countOtherwise(const FormNode& node, const FormTextStyle& style, int& all, QStringList& otherwise)
{
    for (const auto* property : node.properties()) {
        for (const auto* item : property->items())
            countOtherwise(*item, style, all, otherwise);
        if (property->isCollection())
            continue;
        ++all;
        const auto indent = formIndentOf(property->pieces().lead);
        const auto anew = FormTextPrinter(style).value(property->value(), indent);
        if (anew.trimmed() != property->valueBytes())
            otherwise << node.name() + u'.' + property->name();
    }
    for (const auto* child : node.children())
        countOtherwise(*child, style, all, otherwise);
}

}

TEST(FormEdit, SpellsNearlyEveryValueOfTheCorpusAsItStandsThere)
{
    int all = 0;
    QStringList otherwise;
    for (const auto& path : Corpus::files({ u"*.dfm"_s, u"*.lfm"_s })) {
        const auto form = FormDocument::load(path);
        ASSERT_TRUE(form);
        if (form.value()->format() == FormFormat::Text)
            countOtherwise(form.value()->root(), formStyleOf(form.value()->tree(), path), all, otherwise);
    }
    if (all == 0)
        GTEST_SKIP() << "no corpus beside the checkout";
    EXPECT_LE(otherwise.size(), all / 1000) << qPrintable(otherwise.join(u' '));
}

TEST(FormEdit, RemovesTheLinesOfAProperty)
{
    const auto form = readForm("object A: TA\n  Left = 1\n  SQL.Strings = (\n    'a'\n    'b')\n  Top = 2\nend\n");
    EXPECT_TRUE(form->removeProperty(form->root(), u"sql.strings"));
    EXPECT_FALSE(form->removeProperty(form->root(), u"sql.strings"));
    EXPECT_EQ(text(*form), "object A: TA\n  Left = 1\n  Top = 2\nend\n");
}

TEST(FormEdit, AddsAChildAtAPosition)
{
    const auto form = readForm("object A: TA\n  object B: TB\n  end\n  object C: TC\n  end\nend\n");
    form->addChild(form->root(), FormNode::Kind::Inherited, u"TD"_s, u"D"_s, 1);
    form->addChild(form->root(), FormNode::Kind::Inline, u"TE"_s, QString(), 0);
    EXPECT_EQ(text(*form),
        "object A: TA\n  inline TE\n  end\n  object B: TB\n  end\n  inherited D: TD\n  end\n  object C: TC\n  "
        "end\nend\n");
}

TEST(FormEdit, RemovesAChildWithAllItsLines)
{
    const auto form = readForm(withCollection());
    EXPECT_TRUE(form->remove(*form->find(u"Grid")));
    EXPECT_EQ(text(*form), "object Form1: TForm1\nend\n");
    EXPECT_FALSE(form->remove(form->root()));
}

TEST(FormEdit, RenamesANodeInItsOneLine)
{
    const auto form
        = readForm("inherited A: TA\r\n  object  Old : TEdit [2]\r\n  end\r\n  object TX\r\n  end\r\nend\r\n");
    auto& node = *form->find(u"Old");
    form->rename(node, u"New"_s);
    form->setClassName(node, u"TMemo"_s);
    form->setIndex(node, 12);
    form->rename(*form->root().children()[1], u"X"_s);
    EXPECT_EQ(
        text(*form), "inherited A: TA\r\n  object New: TMemo [12]\r\n  end\r\n  object X: TX\r\n  end\r\nend\r\n");
    EXPECT_EQ(node.name(), u"New"_s);
    EXPECT_EQ(node.className(), u"TMemo"_s);
    EXPECT_EQ(node.index(), 12);
    form->setIndex(node, std::nullopt);
    form->setKind(node, FormNode::Kind::Inherited);
    form->rename(node, QString());
    EXPECT_EQ(text(*form), "inherited A: TA\r\n  inherited TMemo\r\n  end\r\n  object X: TX\r\n  end\r\nend\r\n");
}

TEST(FormEdit, ReordersChildren)
{
    const auto form = readForm(
        "object A: TA\n  object B: TB\n    x = 1\n  end\n  object C: TC\n  end\n  object D: TD\n  end\nend\n");
    EXPECT_TRUE(form->reorder(*form->find(u"B"), 2));
    EXPECT_EQ(text(*form),
        "object A: TA\n  object C: TC\n  end\n  object D: TD\n  end\n  object B: TB\n    x = 1\n  end\nend\n");
    EXPECT_EQ(form->find(u"B")->position(), 2);
    EXPECT_FALSE(form->reorder(form->root(), 0));
}

TEST(FormEdit, MovesANodeToAnotherDepthWithItsLines)
{
    const auto form = readForm("object A: TA\n"
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
    EXPECT_TRUE(form->move(*form->find(u"C"), *form->find(u"B")));
    EXPECT_EQ(text(*form),
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
    EXPECT_FALSE(form->move(*form->find(u"B"), *form->find(u"D")));
    EXPECT_FALSE(form->move(form->root(), *form->find(u"D")));
    EXPECT_EQ(form->find(u"C")->name(), u"C"_s);
}

TEST(FormEdit, EditsTheItemsOfACollectionAsNodes)
{
    const auto form = readForm(withCollection());
    auto& grid = *form->find(u"Grid");
    auto& added = form->addItem(grid, u"Columns"_s);
    form->setProperty(added, u"Field"_s, FormValue::string(u"C"_s));
    form->setProperty(*grid.property(u"Columns")->items()[0], u"Width"_s, FormValue::integer(9));
    form->remove(*grid.property(u"Columns")->items()[1]);
    EXPECT_EQ(
        text(*form), withCollection().replace("'A'\n", "'A'\n        Width = 9\n").replace("'B'", "'C'").toStdString());
    EXPECT_EQ(added.parent(), &grid);
    EXPECT_EQ(added.collection(), grid.property(u"Columns"));
    form->undoTo(0);
    EXPECT_EQ(form->bytes(), withCollection());
}

TEST(FormEdit, MakesACollectionForItsFirstItem)
{
    const auto form = readForm("object A: TA\n  Top = 1\nend\n");
    form->addItem(form->root(), u"Params"_s);
    EXPECT_EQ(text(*form), "object A: TA\n  Top = 1\n  Params = <\n    item\n    end>\nend\n");
}

TEST(FormEdit, LeavesTokensApartInFormsThatAreWrittenInOneLine)
{
    const QByteArray line
        = "object A:TA x=1 y='two'z=<item a=1 end item b=2 end>object B:TB end object TC q=(1 2)end end";
    for (int step = 0; step < 9; ++step) {
        const auto form = readForm(line);
        auto& root = form->root();
        switch (step) {
        case 0:
            form->setProperty(root, u"y"_s, FormValue::boolean(true));
            break;
        case 1:
            form->removeProperty(root, u"y");
            break;
        case 2:
            form->setProperty(root, u"new"_s, FormValue::integer(1));
            break;
        case 3:
            form->addChild(root, FormNode::Kind::Object, u"TD"_s, u"D"_s, 1);
            break;
        case 4:
            form->reorder(*root.children()[0], 1);
            break;
        case 5:
            form->addItem(root, u"z"_s, 0);
            break;
        case 6:
            form->reorder(*root.property(u"z")->items()[0], 1);
            break;
        case 7:
            form->move(*root.children()[1], *root.children()[0]);
            break;
        default:
            form->remove(*root.children()[0]);
        }
        const auto again = readForm(form->bytes());
        EXPECT_EQ(again->root().children().size(), form->root().children().size()) << step;
        EXPECT_EQ(again->root().properties().size(), form->root().properties().size()) << step;
        EXPECT_EQ(again->root().property(u"z")->value(), form->root().property(u"z")->value()) << step;
        form->undoTo(0);
        EXPECT_EQ(form->bytes(), line) << step;
    }
}

TEST(FormEdit, EditsABinaryFormAsItEditsText)
{
    const auto before = "TPF0" + binaryObject("TA", "A", "\4Left\2\1", binaryObject("TB", "B"));
    const auto form = readForm(before);
    auto& root = form->root();
    form->setProperty(root, u"left"_s, FormValue::integer(300));
    form->setProperty(root, u"Caption"_s, FormValue::string(u"x"_s));
    auto& added = form->addChild(root, FormNode::Kind::Inherited, u"TC"_s, u"C"_s);
    form->setProperty(added, u"Hint"_s, FormValue::string(u"\u20ac"_s));
    form->rename(*form->find(u"B"), u"Bee"_s);
    form->setIndex(*form->find(u"Bee"), 2);
    const auto after = "TPF0"
        + binaryObject("TA", "A", "\4Left\3\x2C\1\7Caption\6\1x",
            "\xF2\2\2" + binaryObject("TB", "Bee") + "\xF1"
                + binaryObject("TC", "C", QByteArray("\4Hint\x12\1\0\0\0\xAC\x20", 12)));
    EXPECT_EQ(form->bytes().toHex().toStdString(), after.toHex().toStdString());
    form->undoTo(0);
    EXPECT_EQ(form->bytes(), before);
}

TEST(FormEdit, KeepsTheSizeInTheResourceHeaderRight)
{
    const auto body = "TPF0" + binaryObject("TA", "A");
    const QByteArray header("\xFF\x0A\0TA\0\x30\x10", 8);
    const auto form = readForm(header + QByteArray("\x0B\0\0\0", 4) + body);
    ASSERT_EQ(body.size(), 11);
    form->setProperty(form->root(), u"Tag"_s, FormValue::integer(1));
    const auto after = "TPF0" + binaryObject("TA", "A", "\3Tag\2\1");
    EXPECT_EQ(
        form->bytes().toHex().toStdString(), (header + QByteArray("\x11\0\0\0", 4) + after).toHex().toStdString());
}

TEST(FormEdit, CountsOneStepForOneEditAndNoneForNoChange)
{
    const auto form = readForm(withCollection());
    auto& grid = *form->find(u"Grid");
    form->setProperty(grid, u"Left"_s, FormValue::integer(1));
    form->rename(grid, u"Grid"_s);
    EXPECT_EQ(form->position(), 0);
    form->setProperty(grid, u"Items"_s, FormValue::collection({ {}, {} }));
    EXPECT_EQ(form->position(), 1);
    form->undoTo(0);
    EXPECT_EQ(form->lastPosition(), 1);
    form->setProperty(grid, u"Left"_s, FormValue::integer(2));
    EXPECT_EQ(form->lastPosition(), 1);
    form->redoTo(5);
    EXPECT_EQ(form->position(), 1);
}

namespace {

std::vector<FormNode*> nodesOf(FormNode& root)
{
    std::vector<FormNode*> all { &root };
    for (size_t i = 0; i < all.size(); ++i) {
        auto* node = all[i];
        all.insert(all.end(), node->children().begin(), node->children().end());
        for (auto* property : node->properties())
            all.insert(all.end(), property->items().begin(), property->items().end());
    }
    return all;
}

FormValue randomValue(std::mt19937& random)
{
    switch (random() % 7) {
    case 0:
        return FormValue::integer(int(random()));
    case 1:
        return FormValue::string(QString(int(random() % 100), QChar(char16_t(random() % 0x300 + 0x20))));
    case 2:
        return FormValue::strings({ u"a"_s, u"b"_s });
    case 3:
        return FormValue::collection({ { std::nullopt, { { u"x"_s, FormValue::integer(1) } } }, { 2, {} } });
    case 4:
        return FormValue::set({ u"a"_s });
    case 5:
        return FormValue::real(1.25);
    default:
        return FormValue::identifier(u"clRed"_s);
    }
}

void randomEdit(FormDocument& form, std::mt19937& random)
{
    const auto all = nodesOf(form.root());
    auto& node = *all[random() % all.size()];
    const auto properties = node.properties();
    auto* property = properties.empty() ? nullptr : properties[random() % properties.size()];
    switch (random() % 9) {
    case 0:
        if (property)
            form.setProperty(node, property->name(), randomValue(random));
        break;
    case 1:
        form.setProperty(node, u"New%1"_s.arg(random() % 3), randomValue(random));
        break;
    case 2:
        if (property)
            form.removeProperty(*property);
        break;
    case 3:
        if (node.kind() != FormNode::Kind::Item)
            form.addChild(node, FormNode::Kind::Object, u"TNew"_s, u"New"_s, int(random() % 4) - 1);
        break;
    case 4:
        form.addItem(node, u"Items"_s, int(random() % 4) - 1);
        break;
    case 5:
        form.remove(node);
        break;
    case 6:
        if (node.kind() != FormNode::Kind::Item)
            form.rename(node, u"Name%1"_s.arg(random() % 9));
        form.setIndex(node, random() % 2 ? std::optional(int(random() % 500)) : std::nullopt);
        break;
    case 7:
        form.reorder(node, int(random() % 4));
        break;
    default:
        if (auto& target = *all[random() % all.size()]; target.kind() != FormNode::Kind::Item)
            form.move(node, target, int(random() % 4) - 1);
    }
}

std::string shape(const FormNode& node)
{
    QString said
        = u"%1 %2:%3[%4]"_s.arg(int(node.kind())).arg(node.name(), node.className()).arg(node.index().value_or(-1));
    for (const auto* property : node.properties())
        said += u' ' + property->name() + u'/' + QString::number(property->items().size());
    std::string all = said.toStdString();
    for (const auto* property : node.properties())
        for (const auto* item : property->items())
            all += shape(*item);
    all += '(';
    for (const auto* child : node.children())
        all += shape(*child);
    return all + ')';
}

// A walk of edits: the bytes always read as the tree that is held, and going back step by step gives each earlier
// state's bytes.
void walk(const QByteArray& bytes, const std::string& where, unsigned seed, int steps)
{
    std::mt19937 random(seed);
    const auto form = readForm(bytes);
    QList<QByteArray> states { form->bytes() };
    QList<int> positions { 0 };
    for (int i = 0; i < steps; ++i) {
        randomEdit(*form, random);
        states << form->bytes();
        positions << form->position();
        const auto again = FormDocument::read(states.back());
        ASSERT_TRUE(again) << where << " seed " << seed << ' ' << qPrintable(again.error().toString());
        ASSERT_EQ(shape(again.value()->root()), shape(form->root())) << where << " seed " << seed;
    }
    for (auto i = states.size() - 1; i >= 0; --i) {
        form->undoTo(positions[i]);
        ASSERT_EQ(form->bytes().toStdString(), states[i].toStdString()) << where << " seed " << seed;
    }
    form->redoTo(form->lastPosition());
    EXPECT_EQ(form->bytes().toStdString(), states.back().toStdString()) << where << " seed " << seed;
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
            walk(bytes, name.toStdString(), seed, 20);
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
            walk(file.readAll(), path.toStdString(), 7, 10);
    }
}
