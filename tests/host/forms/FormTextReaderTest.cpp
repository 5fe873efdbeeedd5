#include "forms/FormTextReader.h"

#include "forms/FormBinaryReader.h"
#include "forms/FormWriter.h"

#include <gtest/gtest.h>

namespace {

std::string quoted(QByteArrayView piece)
{
    return '|' + piece.toByteArray().replace("\n", "~").toStdString();
}

// The pieces of a node in their order, with ~ for a line end.
std::string pieces(const FormNode& node)
{
    auto all = quoted(node.header().bytes);
    for (const auto* property : node.properties()) {
        all += quoted(property->pieces().lead) + quoted(property->pieces().value);
        for (const auto* item : property->items())
            all += " <" + pieces(*item) + "> ";
        if (property->isCollection())
            all += quoted(property->pieces().close);
        all += quoted(property->pieces().trail);
    }
    for (const auto* child : node.children())
        all += " (" + pieces(*child) + ") ";
    return all + quoted(node.footer());
}

std::string readPieces(const QByteArray& text)
{
    FormTree tree(text);
    const auto error = FormTextReader(tree, 0).read();
    if (error)
        return error->message.toStdString();
    EXPECT_EQ(FormWriter::bytes(tree), text);
    return pieces(*tree.root) + quoted(tree.suffix);
}

}

TEST(FormTextReader, GivesEveryByteToOnePiece)
{
    EXPECT_EQ(readPieces("object A: TA\n  Left = 1 \n  object B: TB [2]\n  end\nend\n"),
        "|object A: TA~|  Left = |1| ~ (|  object B: TB [2]~|  end~) |end~|");
}

TEST(FormTextReader, GivesAnItemTheLineEndBeforeIt)
{
    EXPECT_EQ(readPieces("object A: TA\n  C = <\n    item\n      x = 1\n    end\n    item\n    end>\nend"),
        "|object A: TA~|  C = |< <|~    item~|      x = |1|~|    end>  <|~    item~|    end> |>|~|end|");
}

TEST(FormTextReader, LeavesWhatStandsInOneLineBesideOneAnother)
{
    EXPECT_EQ(readPieces("object A:TA x=1y='z'object TB end end rest"),
        "|object A:TA| x=|1||y=|'z'| (|object TB| end) | end| rest");
}

TEST(FormTextReader, KeepsAListWithItsCollectionsAsOneValue)
{
    EXPECT_EQ(readPieces("object A: TA\n  x = ('a' +\n 'b' <item y = (1) end>)\nend\n"),
        "|object A: TA~|  x = |('a' +~ 'b' <item y = (1) end>)|~|end~|");
}

TEST(FormTextReader, PutsADottedNameTogetherThatWasWrittenWithBlanks)
{
    FormTree tree("object A: TA\n  Font . Name = 'x'\nend\n");
    ASSERT_FALSE(FormTextReader(tree, 0).read());
    EXPECT_EQ(tree.root->property(u"Font.Name")->nameBytes().toByteArray(), "Font.Name");
}

TEST(FormTextReader, TakesAClassWithItsUnit)
{
    FormTree tree("object A: Unit1/TA\nend\n");
    ASSERT_FALSE(FormTextReader(tree, 0).read());
    EXPECT_EQ(tree.root->className(), QStringLiteral("Unit1/TA"));
}

TEST(FormTextReader, TellsKeywordsWhateverTheirCase)
{
    EXPECT_EQ(readPieces("OBJECT A: TA\nInline B: TB\nEnd\nEND"), "|OBJECT A: TA~ (|Inline B: TB~|End~) |END|");
}
