#include "forms/FormConverter.h"

#include "host/forms/FormFixture.h"
#include "host/forms/FormPeer.h"
#include "support/Corpus.h"

#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>

#include <random>

using namespace Qt::StringLiterals;

namespace {

QByteArray readAll(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return file.readAll();
}

QStringList formFiles()
{
    auto found = Corpus::files({ u"*.dfm"_s, u"*.lfm"_s, u"*.fmx"_s });
    QDirIterator own(QStringLiteral(MORVANE_SOURCE_DIR "/tests/data/forms"), QDir::Files);
    while (own.hasNext())
        found << own.next();
    return found;
}

bool isText(const QByteArray& bytes)
{
    return !bytes.startsWith("TPF0") && !bytes.startsWith('\xFF');
}

QByteArray binaryOf(const QByteArray& text)
{
    const auto made = FormConverter::toBinary(*readForm(text));
    EXPECT_TRUE(made);
    return made ? made.value() : QByteArray();
}

// A property p with the value, as a whole form.
QByteArray formWith(const QByteArray& value)
{
    return "object A: T\n  p = " + value + "\nend\n";
}

long double inItsPrecision(const FormValue& value, const FormValue& like)
{
    switch (like.kind()) {
    case FormValue::Kind::Single:
        return static_cast<float>(value.toReal());
    case FormValue::Kind::Double:
    case FormValue::Kind::Date:
        return static_cast<double>(value.toReal());
    default:
        return value.toReal();
    }
}

// Kinds of numbers with a point become one on their way through a binary form.
void expectSame(const FormValue& one, const FormValue& other, const QString& where);

void expectSame(const QList<FormItem>& one, const QList<FormItem>& other, const QString& where)
{
    ASSERT_EQ(one.size(), other.size()) << qPrintable(where);
    for (qsizetype i = 0; i < one.size(); ++i) {
        EXPECT_EQ(one[i].index, other[i].index) << qPrintable(where);
        ASSERT_EQ(one[i].properties.size(), other[i].properties.size()) << qPrintable(where);
        for (qsizetype p = 0; p < one[i].properties.size(); ++p) {
            EXPECT_EQ(one[i].properties[p].name, other[i].properties[p].name) << qPrintable(where);
            expectSame(one[i].properties[p].value, other[i].properties[p].value, where);
        }
    }
}

void expectSame(const FormValue& one, const FormValue& other, const QString& where)
{
    if (one.isReal() && other.isReal()) {
        EXPECT_EQ(inItsPrecision(one, one), inItsPrecision(other, one)) << qPrintable(where);
        return;
    }
    ASSERT_EQ(one.kind(), other.kind()) << qPrintable(where);
    if (one.kind() == FormValue::Kind::Collection)
        return expectSame(one.toItems(), other.toItems(), where);
    if (one.kind() != FormValue::Kind::List) {
        EXPECT_EQ(one, other) << qPrintable(where);
        return;
    }
    const auto ours = one.toList();
    const auto theirs = other.toList();
    ASSERT_EQ(ours.size(), theirs.size()) << qPrintable(where);
    for (qsizetype i = 0; i < ours.size(); ++i)
        expectSame(ours[i], theirs[i], where);
}

void expectSame(const FormNode& one, const FormNode& other, const QString& where)
{
    const auto here = where + u'/' + one.name();
    EXPECT_EQ(one.kind(), other.kind()) << qPrintable(here);
    EXPECT_EQ(one.name(), other.name()) << qPrintable(here);
    EXPECT_EQ(one.className(), other.className()) << qPrintable(here);
    EXPECT_EQ(one.index(), other.index()) << qPrintable(here);
    ASSERT_EQ(one.properties().size(), other.properties().size()) << qPrintable(here);
    for (size_t i = 0; i < one.properties().size(); ++i) {
        EXPECT_EQ(one.properties()[i]->name(), other.properties()[i]->name()) << qPrintable(here);
        expectSame(
            one.properties()[i]->value(), other.properties()[i]->value(), here + u'.' + one.properties()[i]->name());
    }
    ASSERT_EQ(one.children().size(), other.children().size()) << qPrintable(here);
    for (size_t i = 0; i < one.children().size(); ++i)
        expectSame(*one.children()[i], *other.children()[i], here);
}

}

TEST(FormConverter, KeepsEveryValueFromTextToBinaryAndBackForEveryForm)
{
    int seen = 0;
    for (const auto& path : formFiles()) {
        const auto bytes = readAll(path);
        if (!isText(bytes))
            continue;
        const auto form = readForm(bytes);
        const auto binary = FormConverter::toBinary(*form);
        ASSERT_TRUE(binary) << qPrintable(path);
        const auto back = readForm(binary.value());
        const auto again = readForm(FormConverter::toText(*back, {}).value());
        expectSame(form->root(), again->root(), path);
        ++seen;
    }
    EXPECT_GT(seen, 0);
}

TEST(FormConverter, KeepsEveryValueFromBinaryToTextAndBackForEveryForm)
{
    int seen = 0;
    for (const auto& path : formFiles()) {
        const auto bytes = readAll(path);
        if (isText(bytes))
            continue;
        const auto form = readForm(bytes);
        const auto text = readForm(FormConverter::toText(*form, {}).value());
        expectSame(form->root(), text->root(), path);
        ++seen;
    }
    EXPECT_GT(seen, 0);
}

TEST(FormConverter, MakesTheSameBytesAsTheCompilersStreamReaderForEveryFormItAccepts)
{
    if (!FormPeer::isThere())
        GTEST_SKIP() << "the compiler that brings the stream reader is not installed";
    QStringList paths;
    QList<QByteArray> texts;
    for (const auto& path : formFiles()) {
        const auto bytes = readAll(path);
        if (!isText(bytes))
            continue;
        paths << path;
        texts << bytes;
    }
    const auto theirs = FormPeer::convert(texts);
    int compared = 0;
    for (qsizetype i = 0; i < texts.size(); ++i) {
        if (!theirs[i])
            continue;
        EXPECT_EQ(binaryOf(texts[i]).toHex().toStdString(), theirs[i]->toHex().toStdString()) << qPrintable(paths[i]);
        ++compared;
    }
    RecordProperty("compared", compared);
    EXPECT_GT(compared, 0);
}

TEST(FormConverter, SpellsEveryKindOfValueAsTheCompilersStreamReaderDoes)
{
    if (!FormPeer::isThere())
        GTEST_SKIP() << "the compiler that brings the stream reader is not installed";
    const QList<QByteArray> values { "5", "-5", "127", "128", "-128", "-129", "32767", "32768", "65535", "2147483647",
        "2147483648", "-2147483648", "-2147483649", "9223372036854775807", "$FF", "$FFFFFFFF", "$FFFFFFFFFFFFFFFF",
        "1.5", "1.", "1E10", "1.5E+003", "-1.5", "1.5s", "1.5c", "1.5d", "15c", "1e400", "1e5000", "0.00015c", "0.0",
        "-0.0", "Null", "NIL", "TRUE", "a.b.c", "[a, b]", "[]", "(1 2)", "('a' +\n 'b' 'c')",
        "((1) 2 <item x = 1 end>)", "<item x=1 end item y=2 end>", "{ 0A0B\n0c }", "{}", "'abc'", "'it''s'#13#10'x'",
        "#228", "#128", "#127", "'a'#8364'b'", "#0", "'\xC3\xA4'", "'\xE4'", "''", "()", "<>", "NAN", "end",
        "'a' + 'b'", "#8364 + 'b'", "'" + QByteArray(255, 'x') + "'", "'" + QByteArray(256, 'x') + "'",
        "'" + QByteArray(300, 'x') + "'#8364" };
    QList<QByteArray> forms;
    for (const auto& value : values)
        forms << formWith(value);
    const auto theirs = FormPeer::convert(forms);
    for (qsizetype i = 0; i < forms.size(); ++i) {
        ASSERT_TRUE(theirs[i]) << values[i].constData();
        EXPECT_EQ(binaryOf(forms[i]).toHex(' ').toStdString(), theirs[i]->toHex(' ').toStdString())
            << values[i].constData();
    }
}

TEST(FormConverter, ReadsDecimalNumbersToTheLastBitAsTheCompilersStreamReaderDoes)
{
    if (!FormPeer::isThere())
        GTEST_SKIP() << "the compiler that brings the stream reader is not installed";
    std::mt19937 random(20260);
    QByteArray list = "(";
    for (int i = 0; i < 5000; ++i) {
        list += "\n" + QByteArray::number(random() % 1000000) + '.' + QByteArray::number(quint64(random()) * random());
        if (i % 2)
            list += 'E' + QByteArray::number(int(random() % 600) - 300);
    }
    const auto form = formWith(list + ')');
    const auto theirs = FormPeer::convert({ form }).front();
    ASSERT_TRUE(theirs);
    EXPECT_EQ(binaryOf(form), *theirs);
}

TEST(FormConverter, WritesNumbersSoThatTheyReadBackToTheLastBit)
{
    std::mt19937 random(20261);
    QByteArray list = "(";
    for (int i = 0; i < 2000; ++i) {
        list += "\n" + QByteArray::number(random() % 1000) + '.' + QByteArray::number(quint64(random()) * random());
        list += 'E' + QByteArray::number(int(random() % 80) - 40);
    }
    const auto form = readForm(formWith(list + ')'));
    const auto binary = readForm(FormConverter::toBinary(*form).value());
    const auto text = readForm(FormConverter::toText(*binary, {}).value());
    EXPECT_EQ(text->root().property(u"p")->value(), form->root().property(u"p")->value());
}

TEST(FormConverter, DecodesRawCharactersBesideWideEscapesRatherThanWideningTheirBytes)
{
    const auto binary = readForm(binaryOf(formWith("'\xC3\xA4'#8364")));
    EXPECT_EQ(binary->root().property(u"p")->value().toString(), u"\u00e4\u20ac"_s);
}

TEST(FormConverter, RefusesANameForWhichABinaryFormHasNoRoom)
{
    const auto form = readForm("object A: T\n  x = 1\n  " + QByteArray(256, 'p') + " = 1\nend\n", { u"Unit1.dfm"_s });
    const auto made = FormConverter::toBinary(*form);
    ASSERT_FALSE(made);
    EXPECT_EQ(made.error().toString(),
        u"Unit1.dfm:3:3: a name of more than 255 bytes, for which a binary form has no room; shorten it"_s);
}

TEST(FormConverter, WritesTextInTheUsualHand)
{
    const auto form = readForm(readAll(QStringLiteral(MORVANE_SOURCE_DIR "/tests/data/forms/types.dfm")));
    const auto text = FormConverter::toText(*form, {}).value();
    EXPECT_EQ(QByteArray(text).replace("\r\n", "\n").replace('\xE4', '?').toStdString(), R"(inherited Form1: TForm1
  Null = Null
  List = (
    5
    'a')
  I8 = -1
  I16 = 256
  I32 = 65536
  Ext = 1.500000000000000000
  Str = 'a?b'
  Id = clUp
  F = False
  T = True
  Bin = {
    010203}
  Set = [a, b]
  LStr = 
    'yyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyy' +
    'yyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyy' +
    'yyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyy' +
    'yyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyy' +
    'yyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyy'
  Nil = nil
  Coll = <
    item
      X = 1
    end
    item [7]
    end>
  Sing = 1.500000000000000000s
  Cur = 922337203685477.5807c
  Date = 36921.250000000000000000d
  WStr = 'a'#8364
  I64 = -5
  U8 = #8364
  Dbl = 0.100000000000000000
  inline Frame1: TFrame1 [300]
    object Edit1: TEdit
      Left = 1
    end
  end
  object TNameless
  end
end
)");
}

TEST(FormConverter, ConvertsAFileInEitherDirection)
{
    const QTemporaryDir folder;
    const auto source = QStringLiteral(MORVANE_SOURCE_DIR "/tests/data/forms/tabs.dfm");
    EXPECT_FALSE(FormConverter::convertFile(source, folder.filePath(u"binary.dfm"_s)));
    EXPECT_FALSE(FormConverter::convertFile(folder.filePath(u"binary.dfm"_s), folder.filePath(u"text.dfm"_s)));
    EXPECT_EQ(readAll(folder.filePath(u"text.dfm"_s)),
        "object Form1: TForm1\r\n  Caption = 'x'\r\n  object Edit1: TEdit\r\n    Left = 1\r\n  end\r\nend\r\n");
}

TEST(FormConverter, LeavesTheTargetWholeWhereTheSourceCannotBeRead)
{
    const QTemporaryDir folder;
    QFile target(folder.filePath(u"out.dfm"_s));
    ASSERT_TRUE(target.open(QIODevice::WriteOnly));
    target.write("old");
    target.close();
    const auto missing = folder.filePath(u"missing.dfm"_s);
    const auto error = FormConverter::convertFile(missing, target.fileName());
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->toString().startsWith(missing + u":1:1: the file cannot be opened"_s))
        << qPrintable(error->toString());
    EXPECT_EQ(readAll(target.fileName()), "old");
}

TEST(FormConverter, RefusesNamesThatTextHasNoWayToWrite)
{
    const auto nameError = [](const QByteArray& properties) {
        const auto made = FormConverter::toText(*readForm("TPF0\1T\1A" + properties + QByteArray(2, '\0')), {});
        return made ? std::string() : made.error().message.toStdString();
    };
    const auto said = [](const std::string& name) {
        return "the name \"" + name + "\" cannot be written in text; rename it, or leave the form binary";
    };
    EXPECT_EQ(nameError("\3a.b\2\1"), "");
    EXPECT_EQ(nameError("\3a b\2\1"), said("a b"));
    EXPECT_EQ(nameError("\3end\2\1"), said("end"));
    EXPECT_EQ(nameError("\6Object\2\1"), said("Object"));
    EXPECT_EQ(nameError("\1p\7\2x."), said("x."));
    EXPECT_EQ(nameError(QByteArray("\1p\1\x0B\1a\1-\0\0", 10)), said("-"));
    EXPECT_EQ(nameError(QByteArray("\1p\x0E\1\6object\2\1\0\0", 15)), "");
    EXPECT_EQ(nameError(QByteArray("\1p\x0E\1\3END\2\1\0\0", 12)), said("END"));
}
