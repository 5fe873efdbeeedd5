#include "cli/CommandLineFixture.h"

#include <QStandardPaths>

// A field is dropped on the Lazarus example; the form goes through the real compiler, and the program that comes out
// shows the row's value in the new control.
class LazarusJourney : public CommandLineFixture { };

TEST_F(LazarusJourney, TheDroppedControlShowsTheRowInTheProgramThatLazbuildMakes)
{
    for (const auto* tool : { "lazbuild", "Xvfb", "xdotool", "xclip" })
        if (QStandardPaths::findExecutable(QString::fromLatin1(tool)).isEmpty())
            GTEST_SKIP() << tool << " is not installed";
    CopyExample(QStringLiteral("bookshop-lazarus"));
    const auto dropped = Morvane({ QStringLiteral("drop"), InCopy(QStringLiteral("shop.lpi")), QStringLiteral("--form"),
        QStringLiteral("frmMain"), QStringLiteral("--item"), QStringLiteral("dmShop.qryBooks.Title"),
        QStringLiteral("--at"), QStringLiteral("260,240") });
    ASSERT_EQ(dropped.Status, 0) << qPrintable(dropped.Errors);
    const auto built = Run(QStringLiteral("lazbuild"),
        { QStringLiteral("--lazarusdir=/usr/lib/lazarus/2.2.6"), QStringLiteral("--ws=gtk2"),
            InCopy(QStringLiteral("shop.lpi")) });
    ASSERT_EQ(built.Status, 0) << qPrintable(built.Output) << qPrintable(built.Errors);
    const auto shown = Run(QStringLiteral(MORVANE_SOURCE_DIR "/tests/workbench/journey/read-dropped-control.sh"),
        { InCopy(QStringLiteral("shop")), QStringLiteral("280"), QStringLiteral("275") });
    EXPECT_EQ(shown.Output.trimmed().toStdString(), "Jane Eyre") << qPrintable(shown.Errors);
}
