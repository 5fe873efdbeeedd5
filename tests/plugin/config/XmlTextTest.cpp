#include "config/StreamWriter.h"
#include "config/XmlTextReader.h"
#include "config/XmlTextWriter.h"
#include "support/PrintQt.h"

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

// The nodes of a text, a word each: "<name a=1", ">name", "'text'".
QString Nodes(QByteArray text)
{
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    XmlTextReader reader(buffer, u"test"_qs);
    QStringList nodes;
    while (reader.Read()) {
        if (reader.GetNodeType() == ntText)
            nodes << u'\'' + reader.GetValue().toString() + u'\'';
        else
            nodes << (reader.IsStart() ? u'<' : u'>') + reader.GetFullName().toString();
        for (int i = 0; i < reader.GetAttributeCount(); ++i) {
            reader.MoveToAttribute(i);
            nodes.last() += u' ' + reader.GetFullName().toString() + u'=' + reader.GetValue().toString();
        }
    }
    return nodes.join(u' ');
}

class XmlWriter : public testing::Test {
protected:
    QByteArray Written(const std::function<void(XmlTextWriter&)>& write) const
    {
        const auto name = Folder.filePath(u"file"_qs);
        StreamWriter stream(name);
        XmlTextWriter writer(stream);
        write(writer);
        stream.Close();
        return Content(name);
    }
    static QByteArray Content(const QString& name)
    {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
    }
    QTemporaryDir Folder;
};

}

TEST(XmlReader, GivesStartsTextsAndEnds)
{
    EXPECT_EQ(Nodes("<a><b>text</b></a>"), u"<a <b 'text' >b >a"_qs);
}

TEST(XmlReader, AnEmptyElementIsAStartAndAnEnd)
{
    EXPECT_EQ(Nodes("<a><b x='1'/></a>"), u"<a <b x=1 >b >a"_qs);
}

TEST(XmlReader, PassesOverWhiteSpaceCommentsAndInstructions)
{
    EXPECT_EQ(Nodes("<?xml version='1.0'?>\n<!DOCTYPE a>\n<a>\n  <!-- x --><?y z?>\n</a>\n<!-- end -->"), u"<a >a"_qs);
}

TEST(XmlReader, GivesAttributesInTheOrderOfTheDocument)
{
    EXPECT_EQ(Nodes("<a z='1' b='2' m='3'/>"), u"<a z=1 b=2 m=3 >a"_qs);
}

TEST(XmlReader, GivesFullNamesAndAsksNoPrefixToBeDeclared)
{
    EXPECT_EQ(Nodes("<p:a q:x='1'/>"), u"<p:a q:x=1 >p:a"_qs);
}

TEST(XmlReader, TheNameOfTheNodeComesBackWithTheNextRead)
{
    QByteArray text("<a x='1'>t</a>");
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    XmlTextReader reader(buffer, u"test"_qs);
    reader.Read();
    reader.MoveToAttribute(0);
    EXPECT_EQ(reader.GetFullName().toString(), u"x"_qs);
    reader.Read();
    EXPECT_EQ(reader.GetValue().toString(), u"t"_qs);
    EXPECT_EQ(reader.GetAttributeCount(), 0);
}

TEST(XmlReader, TellsTheSameAttributeTwice)
{
    EXPECT_THROW(Nodes("<a x='1' x='2'/>"), EXmlError);
}

TEST(XmlReader, TellsTheFileAndThePlaceOfAFault)
{
    try {
        Nodes("<a>\n<3b/></a>");
        FAIL();
    } catch (const EXmlError& error) {
        EXPECT_TRUE(error.Message().startsWith(u"test:2:"_qs)) << qPrintable(error.Message());
    }
}

TEST_F(XmlWriter, ClosesAnElementWithoutContentShort)
{
    EXPECT_EQ(Written([](auto& writer) {
        writer.WriteStartElement(u"a"_qs);
        writer.WriteAttributeString(u"x"_qs, u"1"_qs);
        writer.WriteEndElement();
    }),
        "<a x=\"1\" />\r\n");
}

TEST_F(XmlWriter, TheFullEndOfAnElementWithoutContentStandsOnALineOfItsOwn)
{
    EXPECT_EQ(Written([](auto& writer) {
        writer.WriteStartElement(u"a"_qs);
        writer.WriteStartElement(u"b"_qs);
        writer.WriteFullEndElement();
        writer.WriteFullEndElement();
    }),
        "<a>\r\n  <b>\r\n  </b>\r\n</a>\r\n");
}

TEST_F(XmlWriter, TheShortEndOfAnElementWithContentIsTheFullOne)
{
    EXPECT_EQ(Written([](auto& writer) {
        writer.WriteStartElement(u"a"_qs);
        writer.WriteElementString(u"b"_qs, u"text"_qs);
        writer.WriteEndElement();
    }),
        "<a>\r\n  <b>text</b>\r\n</a>\r\n");
}

TEST_F(XmlWriter, WritesNamesAsTheyAreGiven)
{
    EXPECT_EQ(Written([](auto& writer) {
        writer.WriteStartElement(u"3 a"_qs);
        writer.WriteAttributeString(QString(), u"1"_qs);
        writer.WriteEndElement();
    }),
        "<3 a =\"1\" />\r\n");
}

TEST_F(XmlWriter, WithoutACloseTheOldFileStays)
{
    const auto name = Folder.filePath(u"file"_qs);
    {
        StreamWriter stream(name);
        stream.Write(u"old");
        stream.Close();
    }
    {
        StreamWriter stream(name);
        stream.Write(u"new");
    }
    EXPECT_EQ(Content(name), "old");
}

TEST_F(XmlWriter, ADirectoryThatIsMissingIsACreateErrorThatNamesTheFile)
{
    const auto name = Folder.filePath(u"missing/file"_qs);
    try {
        StreamWriter stream(name);
        FAIL();
    } catch (const EFCreateError& error) {
        EXPECT_TRUE(error.Message().contains(name)) << qPrintable(error.Message());
    }
}
