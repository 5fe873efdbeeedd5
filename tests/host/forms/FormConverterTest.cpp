#include "forms/FormConverter.h"

#include "host/forms/FormFixture.h"
#include "host/forms/FormPeer.h"
#include "support/Corpus.h"
#include "support/FileSizeLimit.h"

#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>

#include <random>

using namespace Qt::StringLiterals;

namespace {

QByteArray ReadAll(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return file.readAll();
}

QStringList FormFiles()
{
    auto found = Corpus::files({ u"*.dfm"_s, u"*.lfm"_s, u"*.fmx"_s });
    QDirIterator own(QStringLiteral(MORVANE_SOURCE_DIR "/tests/data/forms"), QDir::Files);
    while (own.hasNext())
        found << own.next();
    return found;
}

bool IsText(const QByteArray& bytes)
{
    return !bytes.startsWith("TPF0") && !bytes.startsWith('\xFF');
}

QByteArray BinaryOf(const QByteArray& text)
{
    const auto made = FormConverter::ToBinary(*ReadForm(text));
    EXPECT_TRUE(made);
    return made ? made.Value() : QByteArray();
}

// A property p with the value, as a whole form.
QByteArray FormWith(const QByteArray& value)
{
    return "object A: T\n  p = " + value + "\nend\n";
}

long double InItsPrecision(const FormValue& value, const FormValue& like)
{
    switch (like.TheKind()) {
    case FormValue::Kind::Single:
        return static_cast<float>(value.ToReal());
    case FormValue::Kind::Double:
    case FormValue::Kind::Date:
        return static_cast<double>(value.ToReal());
    default:
        return value.ToReal();
    }
}

// Kinds of numbers with a point become one on their way through a binary form.
void ExpectSame(const FormValue& one, const FormValue& other, const QString& where);

void ExpectSame(const QList<FormItem>& one, const QList<FormItem>& other, const QString& where)
{
    ASSERT_EQ(one.size(), other.size()) << qPrintable(where);
    for (qsizetype i = 0; i < one.size(); ++i) {
        EXPECT_EQ(one[i].Index, other[i].Index) << qPrintable(where);
        ASSERT_EQ(one[i].Properties.size(), other[i].Properties.size()) << qPrintable(where);
        for (qsizetype p = 0; p < one[i].Properties.size(); ++p) {
            EXPECT_EQ(one[i].Properties[p].Name, other[i].Properties[p].Name) << qPrintable(where);
            ExpectSame(one[i].Properties[p].Value, other[i].Properties[p].Value, where);
        }
    }
}

void ExpectSame(const FormValue& one, const FormValue& other, const QString& where)
{
    if (one.IsReal() && other.IsReal()) {
        EXPECT_EQ(InItsPrecision(one, one), InItsPrecision(other, one)) << qPrintable(where);
        return;
    }
    ASSERT_EQ(one.TheKind(), other.TheKind()) << qPrintable(where);
    if (one.TheKind() == FormValue::Kind::Collection)
        return ExpectSame(one.ToItems(), other.ToItems(), where);
    if (one.TheKind() != FormValue::Kind::List) {
        EXPECT_EQ(one, other) << qPrintable(where);
        return;
    }
    const auto ours = one.ToList();
    const auto theirs = other.ToList();
    ASSERT_EQ(ours.size(), theirs.size()) << qPrintable(where);
    for (qsizetype i = 0; i < ours.size(); ++i)
        ExpectSame(ours[i], theirs[i], where);
}

void ExpectSame(const FormNode& one, const FormNode& other, const QString& where)
{
    const auto here = where + u'/' + one.Name();
    EXPECT_EQ(one.TheKind(), other.TheKind()) << qPrintable(here);
    EXPECT_EQ(one.Name(), other.Name()) << qPrintable(here);
    EXPECT_EQ(one.ClassName(), other.ClassName()) << qPrintable(here);
    EXPECT_EQ(one.Index(), other.Index()) << qPrintable(here);
    ASSERT_EQ(one.Properties().size(), other.Properties().size()) << qPrintable(here);
    for (size_t i = 0; i < one.Properties().size(); ++i) {
        EXPECT_EQ(one.Properties()[i]->Name(), other.Properties()[i]->Name()) << qPrintable(here);
        ExpectSame(
            one.Properties()[i]->Value(), other.Properties()[i]->Value(), here + u'.' + one.Properties()[i]->Name());
    }
    ASSERT_EQ(one.Children().size(), other.Children().size()) << qPrintable(here);
    for (size_t i = 0; i < one.Children().size(); ++i)
        ExpectSame(*one.Children()[i], *other.Children()[i], here);
}

}

TEST(FormConverter, KeepsEveryValueFromTextToBinaryAndBackForEveryForm)
{
    int seen = 0;
    for (const auto& path : FormFiles()) {
        const auto bytes = ReadAll(path);
        if (!IsText(bytes))
            continue;
        const auto form = ReadForm(bytes);
        const auto binary = FormConverter::ToBinary(*form);
        ASSERT_TRUE(binary) << qPrintable(path);
        const auto back = ReadForm(binary.Value());
        const auto again = ReadForm(FormConverter::ToText(*back, {}).Value());
        ExpectSame(form->Root(), again->Root(), path);
        ++seen;
    }
    EXPECT_GT(seen, 0);
}

TEST(FormConverter, KeepsEveryValueFromBinaryToTextAndBackForEveryForm)
{
    int seen = 0;
    for (const auto& path : FormFiles()) {
        const auto bytes = ReadAll(path);
        if (IsText(bytes))
            continue;
        const auto form = ReadForm(bytes);
        const auto text = ReadForm(FormConverter::ToText(*form, {}).Value());
        ExpectSame(form->Root(), text->Root(), path);
        ++seen;
    }
    EXPECT_GT(seen, 0);
}

TEST(FormConverter, MakesTheSameBytesAsTheCompilersStreamReaderForEveryFormItAccepts)
{
    if (!FormPeer::IsThere())
        GTEST_SKIP() << "the compiler that brings the stream reader is not installed";
    QStringList paths;
    QList<QByteArray> texts;
    for (const auto& path : FormFiles()) {
        const auto bytes = ReadAll(path);
        if (!IsText(bytes))
            continue;
        paths << path;
        texts << bytes;
    }
    const auto theirs = FormPeer::Convert(texts);
    int compared = 0;
    for (qsizetype i = 0; i < texts.size(); ++i) {
        if (!theirs[i])
            continue;
        EXPECT_EQ(BinaryOf(texts[i]).toHex().toStdString(), theirs[i]->toHex().toStdString()) << qPrintable(paths[i]);
        ++compared;
    }
    RecordProperty("compared", compared);
    EXPECT_GT(compared, 0);
}

TEST(FormConverter, SpellsEveryKindOfValueAsTheCompilersStreamReaderDoes)
{
    if (!FormPeer::IsThere())
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
        forms << FormWith(value);
    const auto theirs = FormPeer::Convert(forms);
    for (qsizetype i = 0; i < forms.size(); ++i) {
        ASSERT_TRUE(theirs[i]) << values[i].constData();
        EXPECT_EQ(BinaryOf(forms[i]).toHex(' ').toStdString(), theirs[i]->toHex(' ').toStdString())
            << values[i].constData();
    }
}

TEST(FormConverter, ReadsDecimalNumbersToTheLastBitAsTheCompilersStreamReaderDoes)
{
    if (!FormPeer::IsThere())
        GTEST_SKIP() << "the compiler that brings the stream reader is not installed";
    std::mt19937 random(20260);
    QByteArray list = "(";
    for (int i = 0; i < 5000; ++i) {
        list += "\n" + QByteArray::number(random() % 1000000) + '.' + QByteArray::number(quint64(random()) * random());
        if (i % 2)
            list += 'E' + QByteArray::number(int(random() % 600) - 300);
    }
    const auto form = FormWith(list + ')');
    const auto theirs = FormPeer::Convert({ form }).front();
    ASSERT_TRUE(theirs);
    EXPECT_EQ(BinaryOf(form), *theirs);
}

TEST(FormConverter, WritesNumbersSoThatTheyReadBackToTheLastBit)
{
    std::mt19937 random(20261);
    QByteArray list = "(";
    for (int i = 0; i < 2000; ++i) {
        list += "\n" + QByteArray::number(random() % 1000) + '.' + QByteArray::number(quint64(random()) * random());
        list += 'E' + QByteArray::number(int(random() % 80) - 40);
    }
    const auto form = ReadForm(FormWith(list + ')'));
    const auto binary = ReadForm(FormConverter::ToBinary(*form).Value());
    const auto text = ReadForm(FormConverter::ToText(*binary, {}).Value());
    EXPECT_EQ(text->Root().Property(u"p")->Value(), form->Root().Property(u"p")->Value());
}

TEST(FormConverter, DecodesRawCharactersBesideWideEscapesRatherThanWideningTheirBytes)
{
    const auto binary = ReadForm(BinaryOf(FormWith("'\xC3\xA4'#8364")));
    EXPECT_EQ(binary->Root().Property(u"p")->Value().ToString(), u"\u00e4\u20ac"_s);
}

TEST(FormConverter, RefusesANameForWhichABinaryFormHasNoRoom)
{
    const auto form = ReadForm("object A: T\n  x = 1\n  " + QByteArray(256, 'p') + " = 1\nend\n", { u"Unit1.dfm"_s });
    const auto made = FormConverter::ToBinary(*form);
    ASSERT_FALSE(made);
    EXPECT_EQ(made.Error().ToString(),
        u"Unit1.dfm:3:3: a name of more than 255 bytes, for which a binary form has no room; shorten it"_s);
}

TEST(FormConverter, WritesTextInTheUsualHand)
{
    const auto form = ReadForm(ReadAll(QStringLiteral(MORVANE_SOURCE_DIR "/tests/data/forms/types.dfm")));
    const auto text = FormConverter::ToText(*form, {}).Value();
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
    EXPECT_FALSE(FormConverter::ConvertFile(source, folder.filePath(u"binary.dfm"_s)));
    EXPECT_FALSE(FormConverter::ConvertFile(folder.filePath(u"binary.dfm"_s), folder.filePath(u"text.dfm"_s)));
    EXPECT_EQ(ReadAll(folder.filePath(u"text.dfm"_s)),
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
    const auto error = FormConverter::ConvertFile(missing, target.fileName());
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->ToString().startsWith(missing + u":1:1: the file cannot be opened"_s))
        << qPrintable(error->ToString());
    EXPECT_EQ(ReadAll(target.fileName()), "old");
}

TEST(FormConverter, LeavesTheTargetWholeWhereTheDiskIsFull)
{
    const QTemporaryDir folder;
    QFile target(folder.filePath(u"out.dfm"_s));
    ASSERT_TRUE(target.open(QIODevice::WriteOnly));
    target.write("old");
    target.close();
    std::optional<FormError> error;
    {
        const FileSizeLimit full(10);
        error = FormConverter::ConvertFile(
            QStringLiteral(MORVANE_SOURCE_DIR "/tests/data/forms/tabs.dfm"), target.fileName());
    }
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Message,
        u"the file cannot be written (File too large); see that its folder is there and may be written to"_s);
    EXPECT_EQ(ReadAll(target.fileName()), "old");
}

TEST(FormConverter, RefusesNamesThatTextHasNoWayToWrite)
{
    const auto nameError = [](const QByteArray& properties) {
        const auto made = FormConverter::ToText(*ReadForm("TPF0\1T\1A" + properties + QByteArray(2, '\0')), {});
        return made ? std::string() : made.Error().Message.toStdString();
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
