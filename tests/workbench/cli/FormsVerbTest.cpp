#include "cli/CommandLineFixture.h"

#include "support/Corpus.h"

using FormsVerb = CommandLineFixture;

TEST_F(FormsVerb, CountsTheFormsOfTheExamples)
{
    const auto ran = Morvane({ QStringLiteral("forms"), QStringLiteral(MORVANE_SOURCE_DIR "/examples") });
    EXPECT_EQ(ran.Status, 0) << qPrintable(ran.Errors);
    EXPECT_TRUE(ran.Output.endsWith(QStringLiteral("failed 0\n"))) << qPrintable(ran.Output);
}

TEST_F(FormsVerb, ReadsEveryPublicFormAndWouldWriteItAsItIs)
{
    if (Corpus::folder().isEmpty())
        GTEST_SKIP() << "no corpus beside the checkout";
    const auto ran = Morvane({ QStringLiteral("forms"), Corpus::folder() });
    EXPECT_EQ(ran.Output.toStdString(), "files 299, read 299, identical 299, failed 0\n");
}

TEST_F(FormsVerb, NamesTheFileLineAndColumnOfWhatFails)
{
    QFile form(Folder.filePath(QStringLiteral("Broken.dfm")));
    ASSERT_TRUE(form.open(QIODevice::WriteOnly));
    form.write("object Form1: TForm1\r\n  Caption = =\r\nend\r\n");
    form.close();
    const auto ran = Morvane({ QStringLiteral("forms"), Folder.path() });
    EXPECT_EQ(ran.Status, 1);
    EXPECT_TRUE(ran.Errors.contains(QStringLiteral("Broken.dfm:2:13:"))) << qPrintable(ran.Errors);
    EXPECT_EQ(ran.Output.toStdString(), "files 1, read 0, identical 0, failed 1\n");
}

TEST_F(FormsVerb, ConvertsAFormToBinaryAndBack)
{
    const auto text = QStringLiteral(MORVANE_SOURCE_DIR "/examples/bookshop/Main.dfm");
    const auto binary = Folder.filePath(QStringLiteral("Main.bin.dfm"));
    const auto back = Folder.filePath(QStringLiteral("Back.dfm"));
    EXPECT_EQ(Morvane({ QStringLiteral("convert"), text, binary }).Status, 0);
    EXPECT_EQ(Morvane({ QStringLiteral("convert"), binary, back }).Status, 0);
    QFile one(text);
    QFile other(back);
    ASSERT_TRUE(one.open(QIODevice::ReadOnly) && other.open(QIODevice::ReadOnly));
    EXPECT_EQ(one.readAll().toStdString(), other.readAll().toStdString());
}
