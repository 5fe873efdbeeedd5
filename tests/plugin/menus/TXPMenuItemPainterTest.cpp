#include "menus/TXPMenuItemPainter.h"

#include "MenuStage.h"
#include "menus/SystemMetrics.h"
#include "visual/TMainMenu.h"

#include <QProxyStyle>

#include <gtest/gtest.h>

namespace {

const QColor Shadow(136, 141, 157);
const QColor ImageBackground(216, 216, 209);
const QColor SelectionBrush(182, 189, 210);
const QColor SelectionPen(10, 36, 106);
const QColor Separator(166, 166, 166);
const QColor CheckedBack(212, 213, 216);
const QColor CheckedBackSelected(133, 146, 181);
const QColor Window(255, 255, 255);

class Stage : public MenuStage {
public:
    Stage()
    {
        menu.SetStyle(msItemPainter);
        menu.SetItemPainter(&painter);
    }

    // A picture of one pixel in the middle of nothing.
    TMenuItem* addWithImage(const QString& caption)
    {
        images.SetSize(3, 3);
        TBitmap bitmap(3, 3);
        bitmap.Image().fill(Qt::magenta);
        bitmap.SetPixel(1, 1, clRed);
        images.AddMasked(bitmap, clFuchsia);
        menu.SetImages(&images);
        auto* item = add(caption);
        item->SetImageIndex(0);
        return item;
    }

    TImageList images;
    Logging<TXPMenuItemPainter> painter;
};

// Menu bars with a frame this wide; those without one are flat.
class FramedBars : public QProxyStyle {
public:
    explicit FramedBars(int width)
        : QProxyStyle(QStringLiteral("Fusion"))
        , FWidth(width)
    {
    }

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override
    {
        return metric == PM_MenuBarPanelWidth ? FWidth : QProxyStyle::pixelMetric(metric, option, widget);
    }

private:
    int FWidth;
};

QPoint place(const QImage& image, const QColor& color)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == color)
                return { x, y };
        }
    }
    return { -1, -1 };
}

// The colours along a row or a column, each with the number of pixels: "name*count".
QString runs(const QImage& image, QPoint from, QPoint step)
{
    QStringList list;
    int count = 0;
    for (auto at = from; image.valid(at); at += step) {
        ++count;
        const auto next = at + step;
        if (!image.valid(next) || image.pixel(next) != image.pixel(at)) {
            list << QStringLiteral("%1*%2").arg(image.pixelColor(at).name()).arg(count);
            count = 0;
        }
    }
    return list.join(u' ');
}

QString row(const QImage& image, int y)
{
    return runs(image, { 0, y }, { 1, 0 });
}
QString column(const QImage& image, int x)
{
    return runs(image, { x, 0 }, { 0, 1 });
}

}

TEST(XPMenuItemPainter, ASeparatorIsThreeHighWhateverTheFont)
{
    Stage stage;
    auto* line = stage.add(QStringLiteral("-"));
    auto option = stage.option(*line);
    EXPECT_EQ(stage.menu.WMMeasureItem(*line, option).height(), 3);
    option.font.setPixelSize(60);
    EXPECT_EQ(stage.menu.WMMeasureItem(*line, option).height(), 3);
}

TEST(XPMenuItemPainter, AddsToTheMarginsOfPictureAndText)
{
    Stage stage;
    auto* item = stage.add(QStringLiteral("x"));
    stage.menu.SetImageSize({ 40, 50 });
    stage.menu.SetImageMargin({ 1, 2, 3, 4 });
    stage.menu.SetTextMargin(5);
    EXPECT_EQ(
        stage.measure(item), QSize(2 + 6 + 50 + 3 + 4 + 5 + 2 + stage.width(QStringLiteral("x")), 1 + 4 + 40 + 4 + 4));
}

TEST(XPMenuItemPainter, ThePicturesStandOnAColumnOfTheirOwnColour)
{
    Stage stage;
    stage.menu.SetImageSize({ 10, 10 });
    const auto image = stage.paint(stage.add(QString()), { 40, 20 });
    // The column of 6 + 10 + 4 leaves out its last pixel.
    EXPECT_EQ(row(image, 19), QStringLiteral("%1*19 %2*21").arg(ImageBackground.name(), Window.name()));
    EXPECT_EQ(column(image, 0), QStringLiteral("%1*20").arg(ImageBackground.name()));
}

TEST(XPMenuItemPainter, FromRightToLeftTheColumnReachesTheBorderOfThePopup)
{
    Stage stage;
    stage.menu.setLayoutDirection(Qt::RightToLeft);
    stage.menu.SetImageSize({ 10, 10 });
    auto* item = stage.add(QString());
    EXPECT_EQ(row(stage.paint(item, { 40, 20 }), 5),
        QStringLiteral("%2*20 %1*20").arg(ImageBackground.name(), Window.name()));
    // With check marks it is their column that stands at the border.
    stage.menu.SetShowCheckMarks(true);
    EXPECT_EQ(stage.paint(item, { 60, 20 }).pixelColor(59, 5), ImageBackground);
}

TEST(XPMenuItemPainter, TheCheckMarksStandOnTheSameColour)
{
    Stage stage;
    stage.menu.SetShowCheckMarks(true);
    const auto mark = GetSystemMetrics(71, stage.menu.SystemStyle(), stage.font());
    const auto image = stage.paint(stage.add(QString()), { 40, 20 });
    EXPECT_EQ(row(image, 5),
        QStringLiteral("%1*%3 %2*1 %1*9 %2*%4")
            .arg(ImageBackground.name(), Window.name())
            .arg(mark - 1)
            .arg(40 - mark - 9));
}

TEST(XPMenuItemPainter, TheSelectedItemHasAFrameFromTheEdgeOfTheWindow)
{
    Stage stage;
    QImage wide(40, 24, QImage::Format_RGB32);
    wide.fill(Qt::magenta);
    QPainter painter(&wide);
    auto* item = stage.add(QString());
    auto option = stage.option(*item, mdSelected);
    option.rect = QRect(0, 2, 38, 20);
    stage.menu.WMDrawItem(painter, *item, option);
    const auto pen = SelectionPen.name();
    const auto brush = SelectionBrush.name();
    EXPECT_EQ(row(wide, 2), QStringLiteral("%1*38 #ff00ff*2").arg(pen));
    EXPECT_EQ(row(wide, 10), QStringLiteral("%1*1 %2*36 %1*1 #ff00ff*2").arg(pen, brush));
    EXPECT_EQ(row(wide, 20), QStringLiteral("%1*38 #ff00ff*2").arg(pen));
    EXPECT_EQ(row(wide, 21), QStringLiteral("%1*38 #ff00ff*2").arg(brush));
    EXPECT_EQ(column(wide, 20), QStringLiteral("#ff00ff*2 %1*1 %2*17 %1*1 %2*1 #ff00ff*2").arg(pen, brush));
}

TEST(XPMenuItemPainter, TheFrameBeginsAtZeroWhereverTheItemBegins)
{
    class Unclipped : public TXPMenuItemPainter {
    public:
        void Paint(TMenuItem* item, const TRect& rect, TMenuOwnerDrawState state) override
        {
            Canvas().Handle()->setClipping(false);
            TXPMenuItemPainter::Paint(item, rect, state);
        }
    };
    MenuStage stage(msItemPainter);
    Unclipped painter;
    stage.menu.SetItemPainter(&painter);
    const auto image = stage.paintInto(stage.add(QString()), { 5, 0, 20, 10 }, { 40, 20 }, mdSelected);
    const auto pen = SelectionPen.name();
    const auto brush = SelectionBrush.name();
    EXPECT_EQ(row(image, 0), QStringLiteral("%1*25 %2*1 #ff00ff*14").arg(pen, brush));
    EXPECT_EQ(row(image, 5), QStringLiteral("%2*5 %1*1 %2*18 %1*1 %2*1 #ff00ff*14").arg(pen, brush));
    EXPECT_EQ(row(image, 12), QStringLiteral("%1*26 #ff00ff*14").arg(brush));
    EXPECT_EQ(row(image, 13), QStringLiteral("#ff00ff*40"));
}

TEST(XPMenuItemPainter, ASelectedTextKeepsItsColour)
{
    Stage stage;
    const auto image = stage.paint(stage.add(QStringLiteral("H")), { 60, 20 }, mdSelected);
    EXPECT_NE(place(image, MenuStage::palette().color(QPalette::WindowText)), QPoint(-1, -1));
}

TEST(XPMenuItemPainter, ACheckedPictureStandsInAFrameThatIsDarkerWhenSelected)
{
    Stage stage;
    stage.menu.SetImageSize({ 10, 10 });
    auto* item = stage.add(QString());
    TBitmap bitmap(2, 2);
    item->SetBitmap(bitmap);
    item->SetChecked(true);
    const auto image = stage.paint(item, { 40, 20 });
    const auto pen = SelectionPen.name();
    // 20 wide less 3; from 1 below the top to 2 above the bottom.
    EXPECT_EQ(row(image, 1), QStringLiteral("%1*17 %2*2 %3*21").arg(pen, ImageBackground.name(), Window.name()));
    EXPECT_EQ(column(image, 3),
        QStringLiteral("%2*1 %1*1 %3*15 %1*1 %2*2").arg(pen, ImageBackground.name(), CheckedBack.name()));
    EXPECT_EQ(stage.paint(item, { 40, 20 }, mdSelected).pixelColor(3, 10), CheckedBackSelected);
}

TEST(XPMenuItemPainter, TheLineOfASeparatorBeginsBehindTheColumns)
{
    Stage stage;
    stage.menu.SetImageSize({ 10, 10 });
    stage.menu.SetTextMargin(3);
    auto* line = stage.add(QStringLiteral("-"));
    const auto image = stage.paint(line, { 60, 3 });
    // 6 + 10 + 4 and the text's 3 + 2.
    EXPECT_EQ(
        row(image, 1), QStringLiteral("%1*19 %2*6 %3*35").arg(ImageBackground.name(), Window.name(), Separator.name()));
    EXPECT_EQ(column(image, 40), QStringLiteral("%2*1 %1*1 %2*1").arg(Separator.name(), Window.name()));
    stage.menu.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(row(stage.paint(line, { 60, 3 }), 1),
        QStringLiteral("%3*35 %2*5 %1*20").arg(ImageBackground.name(), Window.name(), Separator.name()));
}

TEST(XPMenuItemPainter, APictureStandsThreePixelsToTheLeftOrFromRightToLeftToTheRight)
{
    Stage stage;
    auto* item = stage.addWithImage(QString());
    EXPECT_EQ(place(stage.paint(item, { 40, 19 }), Qt::red), QPoint(6 - 3 + 1, 8 + 1));
    stage.menu.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(place(stage.paint(item, { 40, 19 }), Qt::red), QPoint(40 - 6 - 3 + 3 + 1, 8 + 1));
}

TEST(XPMenuItemPainter, TheSelectedPictureIsRaisedAboveItsShadow)
{
    Stage stage;
    auto* item = stage.addWithImage(QString());
    const auto image = stage.paint(item, { 40, 19 }, mdSelected);
    const QPoint rest(6 - 3 + 1, 8 + 1);
    EXPECT_EQ(place(image, Qt::red), rest - QPoint(1, 1));
    EXPECT_EQ(place(image, Shadow), rest + QPoint(1, 1));
}

TEST(XPMenuItemPainter, TheHotPictureIsRaisedInPlaceOfTheOther)
{
    Stage stage;
    TImageList hot(3, 3);
    TBitmap bitmap(3, 3);
    bitmap.Image().fill(Qt::magenta);
    bitmap.SetPixel(2, 0, clLime);
    hot.AddMasked(bitmap, clFuchsia);
    stage.menu.SetHotImages(&hot);
    auto* item = stage.addWithImage(QString());
    const auto image = stage.paint(item, { 40, 19 }, mdSelected);
    EXPECT_EQ(place(image, Qt::green), QPoint(6 - 3 + 2 - 1, 8 - 1));
    EXPECT_EQ(place(image, Shadow), QPoint(6 - 3 + 2 + 1, 8 + 1));
    EXPECT_EQ(place(image, Qt::red), QPoint(-1, -1));
}

TEST(XPMenuItemPainter, ADisabledPictureIsShiftedLikeTheOthers)
{
    Stage stage;
    auto* item = stage.addWithImage(QString());
    const auto image = stage.paint(item, { 40, 19 }, mdDisabled | mdSelected);
    EXPECT_EQ(place(image, QColor(130, 131, 132)), QPoint(6 - 3 + 1, 8 + 1));
}

TEST(XPMenuItemPainter, ASelectedBitmapIsRaisedToo)
{
    Stage stage;
    auto* item = stage.add(QString());
    TBitmap bitmap(3, 3);
    bitmap.Image().fill(Qt::magenta);
    bitmap.SetPixel(1, 1, clRed);
    item->SetBitmap(bitmap);
    stage.menu.SetImageSize({ 3, 3 });
    // The column is 6 + 3 + 4 wide.
    EXPECT_EQ(place(stage.paint(item, { 40, 19 }), Qt::red), QPoint(6, 9));
    const auto selected = stage.paint(item, { 40, 19 }, mdSelected);
    EXPECT_EQ(place(selected, Qt::red), QPoint(5, 8));
    EXPECT_EQ(place(selected, Shadow), QPoint(7, 10));
    EXPECT_EQ(place(stage.paint(item, { 40, 19 }, mdSelected | mdDisabled), Shadow), QPoint(-1, -1));
}

TEST(XPMenuItemPainter, TheShadowLeavesOutTheColourOfTheLowerLeftPixel)
{
    Stage stage;
    auto* item = stage.add(QString());
    TBitmap bitmap(2, 2);
    bitmap.Image().fill(Qt::red);
    bitmap.SetPixel(0, 1, clBlue);
    bitmap.SetTransparentColor(clRed);
    item->SetBitmap(bitmap);
    stage.menu.SetImageSize({ 2, 2 });
    // At rest at (5, 9): the shadow of all but the lower left pixel at (6, 10), that pixel raised to (4, 9).
    const auto selected = stage.paint(item, { 40, 20 }, mdSelected);
    EXPECT_EQ(
        row(selected.copy(5, 10, 5, 1), 0), QStringLiteral("%1*1 %2*2 %1*2").arg(SelectionBrush.name(), Shadow.name()));
    EXPECT_EQ(
        row(selected.copy(5, 11, 5, 1), 0), QStringLiteral("%1*2 %2*1 %1*2").arg(SelectionBrush.name(), Shadow.name()));
    EXPECT_EQ(place(selected, Qt::blue), QPoint(4, 9));
}

TEST(XPMenuItemPainter, TextAndCheckStandInSmallerRectangles)
{
    Stage stage;
    stage.menu.SetShowCheckMarks(true);
    const auto mark = GetSystemMetrics(71, stage.menu.SystemStyle(), stage.font());
    auto* item = stage.add(QStringLiteral("x"));
    item->SetChecked(true);
    stage.paint(item, { 60, 20 });
    // From two to the left and one higher at the bottom; shrunk by one and framed by one.
    EXPECT_TRUE(stage.painter.take().contains(
        QStringLiteral("DrawCheckImage(0,0,%1,20)\nDrawGlyphCheck(0,2,%2,17)").arg(mark).arg(mark - 4)));
    // The text as the standard style has it, in a rectangle lower by one.
    const auto text = MenuStage::palette().color(QPalette::WindowText);
    MenuStage standard;
    for (const int height : { 20, 21 })
        EXPECT_EQ(place(stage.paint(stage.add(QStringLiteral("x")), { 60, height }), text).y(),
            place(standard.paint(standard.add(QStringLiteral("x")), { 60, height - 1 }), text).y());
}

TEST(XPMenuItemPainter, OnABarTheGroundIsThatOfTheMenusAndOfThePointedAtItemThatOfTheSelection)
{
    Stage stage;
    TMainMenu bar;
    auto* item = stage.add(QString(), scNone, &bar.Items());
    for (const auto& [frame, ground] : { std::pair(0, QPalette::Window), { 1, QPalette::Button } }) {
        QApplication::setStyle(new FramedBars(frame));
        EXPECT_EQ(
            row(stage.paint(item, { 30, 20 }), 10), MenuStage::palette().color(ground).name() + QStringLiteral("*30"));
    }
    QApplication::setStyle(QStringLiteral("Fusion"));
    EXPECT_EQ(row(stage.paint(item, { 30, 20 }, mdHotlight), 10),
        QStringLiteral("%1*1 %2*28 %1*1").arg(SelectionPen.name(), SelectionBrush.name()));
    EXPECT_EQ(row(stage.paint(item, { 30, 20 }, mdSelected), 10), QStringLiteral("#808080*1 #c0c0c0*28 #808080*1"));
}

TEST(XPMenuItemPainter, RemembersTheLastSelectedAndCheckedItem)
{
    Stage stage;
    auto* first = stage.add(QString());
    auto* second = stage.add(QString());
    second->SetChecked(true);
    EXPECT_TRUE(stage.painter.SelRect().IsEmpty());
    EXPECT_EQ(stage.painter.CheckedPoint(), QPoint(0, 0));
    stage.paintInto(first, { 3, 3, 40, 20 }, { 46, 46 }, mdSelected);
    stage.paintInto(second, { 3, 23, 40, 20 }, { 46, 46 });
    EXPECT_EQ(stage.painter.SelRect(), TRect(3, 3, 43, 23));
    EXPECT_EQ(stage.painter.CheckedPoint(), QPoint(3, 23));
    stage.paintInto(first, { 3, 3, 40, 20 }, { 46, 46 });
    EXPECT_TRUE(stage.painter.SelRect().IsEmpty());
}

TEST(XPMenuItemPainter, ASubmenuForgetsTheSelectedItemOfTheMenuItHangsOn)
{
    Stage stage;
    auto* above = stage.add(QString());
    auto* below = stage.add(QString(), scNone, above);
    stage.paint(above, { 40, 20 }, mdSelected);
    stage.paintInto(below, { 0, 30, 40, 20 }, { 40, 50 });
    EXPECT_TRUE(stage.painter.SelRect().IsEmpty());
}

TEST(XPMenuItemPainter, TheBorderOfThePopupContinuesTheColumnAndTheFrame)
{
    for (const auto direction : { Qt::LeftToRight, Qt::RightToLeft }) {
        Stage stage;
        stage.menu.setLayoutDirection(direction);
        stage.menu.SetImageSize({ 10, 10 });
        QImage image(46, 46, QImage::Format_RGB32);
        QPainter painter(&image);
        const QRect rects[] { { 3, 3, 40, 20 }, { 3, 23, 40, 20 } };
        for (const auto& rect : rects) {
            auto* item = stage.add(QString());
            auto option = stage.option(*item, rect.y() == 23 ? mdSelected : TMenuOwnerDrawFlag {});
            option.rect = rect;
            stage.menu.WMDrawItem(painter, *item, option);
        }
        stage.painter.DrawPopupBorder(painter, { 1, 1, 45, 45 }, 2);
        painter.end();
        if (direction == Qt::RightToLeft)
            image = image.mirrored(true, false);
        EXPECT_EQ(column(image.copy(0, 1, 46, 44), 1),
            QStringLiteral("%1*22 %2*1 %3*17 %2*1 %3*1 %1*2")
                .arg(ImageBackground.name(), SelectionPen.name(), SelectionBrush.name()));
        // Above the first item the column is as wide as below.
        EXPECT_EQ(image.pixelColor(20, 2), ImageBackground);
        EXPECT_EQ(image.pixelColor(24, 2), Window);
        EXPECT_EQ(image.pixelColor(44, 30), Window);
    }
}

TEST(XPMenuItemPainter, OnADarkDesktopEachColourIsAsLightAsItWasDark)
{
    Stage stage;
    auto* item = stage.add(QString());
    stage.menu.SetImageSize({ 10, 10 });
    QImage image(40, 20, QImage::Format_RGB32);
    QPainter painter(&image);
    auto option = stage.option(*item, mdSelected);
    option.rect = image.rect();
    option.palette = QPalette(QColor(50, 50, 50), QColor(40, 40, 40));
    stage.menu.WMDrawItem(painter, *item, option);
    EXPECT_EQ(image.pixelColor(20, 0).lightness(), 255 - SelectionPen.lightness());
    EXPECT_EQ(image.pixelColor(20, 10).lightness(), 255 - SelectionBrush.lightness());
    option.state.setFlag(QStyle::State_Selected, false);
    stage.menu.WMDrawItem(painter, *item, option);
    EXPECT_EQ(image.pixelColor(0, 10).lightness(), 255 - ImageBackground.lightness());
    stage.painter.SetImageBackgroundColor(clRed);
    stage.menu.WMDrawItem(painter, *item, option);
    EXPECT_EQ(image.pixelColor(0, 10), Qt::red);
}
