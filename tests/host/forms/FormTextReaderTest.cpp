#include "forms/FormTextReader.h"

#include "forms/FormBinaryReader.h"
#include "forms/FormWriter.h"

#include <gtest/gtest.h>

namespace {

std::string Quoted(QByteArrayView piece)
{
    return '|' + piece.toByteArray().replace("\n", "~").toStdString();
}

// The pieces of a node in their order, with ~ for a line end.
std::string Pieces(const FormNode& node)
{
    auto all = Quoted(node.TheHeader().Bytes);
    for (const auto* property : node.Properties()) {
        all += Quoted(property->ThePieces().Lead) + Quoted(property->ThePieces().Value);
        for (const auto* item : property->Items())
            all += " <" + Pieces(*item) + "> ";
        if (property->IsCollection())
            all += Quoted(property->ThePieces().Close);
        all += Quoted(property->ThePieces().Trail);
    }
    for (const auto* child : node.Children())
        all += " (" + Pieces(*child) + ") ";
    return all + Quoted(node.Footer());
}

std::string ReadPieces(const QByteArray& text)
{
    FormTree tree(text);
    const auto error = FormTextReader(tree, 0).Read();
    if (error)
        return error->Message.toStdString();
    EXPECT_EQ(FormWriter::Bytes(tree), text);
    return Pieces(*tree.Root) + Quoted(tree.Suffix);
}

}

TEST(FormTextReader, GivesEveryByteToOnePiece)
{
    EXPECT_EQ(ReadPieces("object A: TA\n  Left = 1 \n  object B: TB [2]\n  end\nend\n"),
        "|object A: TA~|  Left = |1| ~ (|  object B: TB [2]~|  end~) |end~|");
}

TEST(FormTextReader, GivesAnItemTheLineEndBeforeIt)
{
    EXPECT_EQ(ReadPieces("object A: TA\n  C = <\n    item\n      x = 1\n    end\n    item\n    end>\nend"),
        "|object A: TA~|  C = |< <|~    item~|      x = |1|~|    end>  <|~    item~|    end> |>|~|end|");
}

TEST(FormTextReader, LeavesWhatStandsInOneLineBesideOneAnother)
{
    EXPECT_EQ(ReadPieces("object A:TA x=1y='z'object TB end end rest"),
        "|object A:TA| x=|1||y=|'z'| (|object TB| end) | end| rest");
}

TEST(FormTextReader, KeepsAListWithItsCollectionsAsOneValue)
{
    EXPECT_EQ(ReadPieces("object A: TA\n  x = ('a' +\n 'b' <item y = (1) end>)\nend\n"),
        "|object A: TA~|  x = |('a' +~ 'b' <item y = (1) end>)|~|end~|");
}

TEST(FormTextReader, PutsADottedNameTogetherThatWasWrittenWithBlanks)
{
    FormTree tree("object A: TA\n  Font . Name = 'x'\nend\n");
    ASSERT_FALSE(FormTextReader(tree, 0).Read());
    EXPECT_EQ(tree.Root->Property(u"Font.Name")->NameBytes().toByteArray(), "Font.Name");
}

TEST(FormTextReader, TakesAClassWithItsUnit)
{
    FormTree tree("object A: Unit1/TA\nend\n");
    ASSERT_FALSE(FormTextReader(tree, 0).Read());
    EXPECT_EQ(tree.Root->ClassName(), QStringLiteral("Unit1/TA"));
}

TEST(FormTextReader, TellsKeywordsWhateverTheirCase)
{
    EXPECT_EQ(ReadPieces("OBJECT A: TA\nInline B: TB\nEnd\nEND"), "|OBJECT A: TA~ (|Inline B: TB~|End~) |END|");
}
