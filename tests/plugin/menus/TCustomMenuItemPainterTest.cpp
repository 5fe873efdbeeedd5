#include "menus/TCustomMenuItemPainter.h"

#include "MenuStage.h"
#include "menus/SystemMetrics.h"
#include "rtl/Dialogs.h"
#include "visual/TMainMenu.h"

#include <QTimer>

#include <gtest/gtest.h>

namespace {

using Painter = Logging<TCustomMenuItemPainter>;

// A menu with a painter that is the base and nothing else.
class Stage : public MenuStage {
public:
    Stage()
    {
        menu.SetStyle(msItemPainter);
        menu.SetItemPainter(&painter);
    }

    int lineHeight() { return std::max(GetSystemMetrics(15, menu.SystemStyle(), font()), metrics().height()); }
    int checkWidth() { return GetSystemMetrics(71, menu.SystemStyle(), font()); }

    Painter painter;
};

TBitmap filled(int width, int height, TColor color)
{
    TBitmap bitmap(width, height);
    bitmap.Image().fill(ToQColor(color));
    return bitmap;
}

void add(TImageList& images, TColor color)
{
    images.Add(filled(images.Width(), images.Height(), color));
}

int count(const QImage& image, const QColor& color)
{
    int pixels = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            pixels += image.pixelColor(x, y) == color ? 1 : 0;
    }
    return pixels;
}

// The smallest rectangle around all pixels of a colour.
QRect extent(const QImage& image, const QColor& color)
{
    QRect around;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == color)
                around |= QRect(x, y, 1, 1);
        }
    }
    return around;
}

QColor role(QPalette::ColorRole role)
{
    return MenuStage::palette().color(QPalette::Active, role);
}

}

// Measuring

TEST(MenuItemMeasure, IsAsWideAsTheWidestCaptionOfTheMenu)
{
    Stage stage;
    auto* narrow = stage.add(QStringLiteral("&Cut"));
    stage.add(QStringLiteral("A wider caption"));
    EXPECT_EQ(stage.measure(narrow), QSize(stage.width(QStringLiteral("A wider caption")), stage.lineHeight()));
}

TEST(MenuItemMeasure, AShortCutAddsTheWidestOneAndEightBlanks)
{
    Stage stage;
    auto* item = stage.add(QStringLiteral("&Cut"), scCtrl | 'X');
    EXPECT_EQ(stage.measure(item).width(),
        stage.width(QStringLiteral("Cut")) + stage.width(QStringLiteral("Ctrl+X")) + stage.width(QString(8, u' ')));
    stage.add(QStringLiteral("Go"), scCtrl | scShift | 'W');
    EXPECT_EQ(stage.measure(item).width(),
        stage.width(QStringLiteral("Cut")) + stage.width(QStringLiteral("Ctrl+Shift+W"))
            + stage.width(QString(8, u' ')));
}

TEST(MenuItemMeasure, ASubmenuAddsTwoBlanksUnlessThereAreShortCuts)
{
    Stage stage;
    auto* item = stage.add(QStringLiteral("Cut"));
    stage.add(QStringLiteral("x"), scNone, item);
    EXPECT_EQ(stage.measure(item).width(), stage.width(QStringLiteral("Cut")) + stage.width(QStringLiteral("  ")));
    stage.add(QStringLiteral("Go"), scCtrl | 'G');
    EXPECT_EQ(stage.measure(item).width(),
        stage.width(QStringLiteral("Cut")) + stage.width(QStringLiteral("Ctrl+G")) + stage.width(QString(8, u' ')));
}

TEST(MenuItemMeasure, OfAHiddenSiblingTheCaptionCountsAndTheShortCutDoesNot)
{
    Stage stage;
    auto* item = stage.add(QStringLiteral("Cut"));
    stage.add(QStringLiteral("A hidden caption"), scCtrl | 'H')->SetVisible(false);
    EXPECT_EQ(stage.measure(item).width(), stage.width(QStringLiteral("A hidden caption")));
}

TEST(MenuItemMeasure, FollowsWhateverChangesInTheMenu)
{
    Stage stage;
    auto* item = stage.add(QStringLiteral("Cut"));
    stage.measure(item);
    auto* other = stage.add(QStringLiteral("Longer"));
    EXPECT_EQ(stage.measure(item).width(), stage.width(QStringLiteral("Longer")));
    other->SetCaption(QStringLiteral("Longer still"));
    EXPECT_EQ(stage.measure(item).width(), stage.width(QStringLiteral("Longer still")));
    delete other;
    EXPECT_EQ(stage.measure(item).width(), stage.width(QStringLiteral("Cut")));
}

TEST(MenuItemMeasure, TextsAreMeasuredOnceAsLongAsNoneIsSaidToHaveChanged)
{
    Stage stage;
    auto* item = stage.add(QStringLiteral("Cut"));
    auto* other = stage.add(QStringLiteral("Go"));
    stage.measure(item);
    other->blockSignals(true);
    other->SetCaption(QStringLiteral("A much longer one"));
    other->blockSignals(false);
    EXPECT_EQ(stage.measure(item).width(), stage.width(QStringLiteral("Cut")));
    EXPECT_EQ(stage.measure(other).width(), stage.width(QStringLiteral("Cut")));
}

TEST(MenuItemMeasure, AllColumnsAddUp)
{
    Stage stage;
    TImageList images(20, 24);
    add(images, clRed);
    stage.menu.SetImages(&images);
    stage.menu.SetImageMargin({ 1, 2, 3, 4 });
    stage.menu.SetTextMargin(5);
    stage.menu.SetShowCheckMarks(true);
    stage.painter.SetLeftMargin(30);
    auto* item = stage.add(QStringLiteral("Cut"));
    EXPECT_EQ(stage.measure(item),
        QSize(stage.checkWidth() + 2 + 20 + 3 + 5 + stage.width(QStringLiteral("Cut")) + 30, 1 + 24 + 4));
}

TEST(MenuItemMeasure, IsAsHighAsALineOfTheMenuBarAtLeast)
{
    Stage stage;
    TImageList images(8, 4);
    add(images, clRed);
    stage.menu.SetImages(&images);
    EXPECT_EQ(stage.measure(stage.add(QStringLiteral("Cut"))).height(), stage.lineHeight());
}

TEST(MenuItemMeasure, ASeparatorIsHalfALineHighAndNineAtLeast)
{
    Stage stage;
    auto* line = stage.add(QStringLiteral("-"));
    EXPECT_EQ(stage.measure(line).height(), std::max(9, stage.metrics().height() / 2));
    auto option = stage.option(*line);
    option.font.setPixelSize(60);
    EXPECT_EQ(stage.menu.WMMeasureItem(*line, option).height(), QFontMetrics(option.font).height() / 2);
    EXPECT_GT(stage.menu.WMMeasureItem(*line, option).height(), 9);
}

TEST(MenuItemMeasure, WithoutAListAPictureHasItsSetSizeOr16)
{
    Stage stage;
    auto* item = stage.add(QStringLiteral("Cut"));
    const auto text = stage.width(QStringLiteral("Cut"));
    EXPECT_EQ(stage.measure(item).width(), text);
    item->SetBitmap(filled(30, 30, clRed));
    EXPECT_EQ(stage.measure(item).width(), text + 16);
    stage.menu.SetImageSize({ 40, 25 });
    EXPECT_EQ(stage.measure(item), QSize(text + 25, 40));
}

TEST(MenuItemMeasure, ADefaultItemIsMeasuredInBold)
{
    Stage stage;
    auto* item = stage.add(QStringLiteral("A caption"));
    item->SetDefault(true);
    auto bold = stage.font();
    bold.setBold(true);
    EXPECT_EQ(stage.measure(item).width(), QFontMetrics(bold).size(0, QStringLiteral("A caption")).width());
}

TEST(MenuItemMeasure, AnItemOfABarHasNoColumnsAndNoHotKeyMark)
{
    Stage stage;
    TMainMenu bar;
    auto* item = stage.add(QStringLiteral("&File"), scCtrl | 'F', &bar.Items());
    stage.add(QStringLiteral("A wider caption"), scNone, &bar.Items());
    stage.menu.SetShowCheckMarks(true);
    stage.menu.SetTextMargin(7);
    stage.painter.SetLeftMargin(30);
    EXPECT_EQ(stage.measure(item), QSize(7 + stage.width(QStringLiteral("File")), stage.lineHeight()));
}

TEST(MenuItemMeasure, AnItemBelowABarIsThatOfAPopup)
{
    Stage stage;
    TMainMenu bar;
    auto* file = stage.add(QStringLiteral("&File"), scNone, &bar.Items());
    auto* open = stage.add(QStringLiteral("Open"), scNone, file);
    stage.menu.SetTextMargin(7);
    stage.painter.SetLeftMargin(30);
    EXPECT_EQ(stage.measure(open).width(), 7 + stage.width(QStringLiteral("Open")) + 30);
}

// The steps

TEST(MenuItemPaint, GoesThroughItsStepsInTheirOrder)
{
    Stage stage;
    TImageList images(16, 16);
    add(images, clRed);
    stage.menu.SetImages(&images);
    stage.menu.SetImageMargin({ 0, 2, 3, 0 });
    stage.menu.SetTextMargin(4);
    stage.menu.SetShowCheckMarks(true);
    auto* item = stage.add(QStringLiteral("&Cut"), scCtrl | 'X');
    item->SetImageIndex(0);
    item->SetChecked(true);
    stage.paint(item, { 200, 20 }, mdSelected);
    const auto check = stage.checkWidth();
    const auto blanks = stage.width(QStringLiteral("  "));
    EXPECT_EQ(stage.painter.take(),
        QStringLiteral("PreparePaint(0,0,200,20)\n"
                       "DrawItemBackground(0,0,200,20)\n"
                       "DrawCheckMarkBackground(0,0,%1,20)\n"
                       "DrawImageBackground(%1,0,%2,20)\n"
                       "DrawTextBackground(%2,0,200,20)\n"
                       "DrawSelectedFrame(0,0,200,20)\n"
                       "DrawCheckImage(0,0,%1,20)\n"
                       "DrawGlyphCheck(2,2,%3,18)\n"
                       "DrawNotCheckedImageBack(%1,0,%2,20)\n"
                       "DrawEnabledImage(%4,2)\n"
                       "DrawItemText(%5,0,200,20) &Cut 352\n"
                       "DrawItemText(%6,0,%7,20) Ctrl+X 354")
            .arg(check)
            .arg(check + 21)
            .arg(check - 2)
            .arg(check + 2)
            .arg(check + 21 + 4)
            .arg(200 - blanks - stage.width(QStringLiteral("Ctrl+X")))
            .arg(200 - blanks));
}

TEST(MenuItemPaint, FromRightToLeftTheColumnsAreMirrored)
{
    Stage stage;
    TImageList images(16, 16);
    add(images, clRed);
    stage.menu.SetImages(&images);
    stage.menu.SetImageMargin({ 0, 2, 3, 0 });
    stage.menu.SetTextMargin(4);
    stage.menu.setLayoutDirection(Qt::RightToLeft);
    auto* item = stage.add(QStringLiteral("Cut"), scCtrl | 'X');
    item->SetImageIndex(0);
    stage.paint(item, { 200, 20 });
    const auto blanks = stage.width(QStringLiteral("  "));
    EXPECT_EQ(stage.painter.take(),
        QStringLiteral("PreparePaint(0,0,200,20)\n"
                       "DrawItemBackground(0,0,200,20)\n"
                       "DrawImageBackground(179,0,200,20)\n"
                       "DrawTextBackground(0,0,179,20)\n"
                       "DrawNotCheckedImageBack(179,0,200,20)\n"
                       "DrawEnabledImage(182,2)\n"
                       "DrawItemText(0,0,175,20) Cut 352\n"
                       "DrawItemText(%1,0,%2,20) Ctrl+X 354")
            .arg(blanks)
            .arg(blanks + stage.width(QStringLiteral("Ctrl+X"))));
}

TEST(MenuItemPaint, OfABarItemAllColumnsAreTheItem)
{
    Stage stage;
    TMainMenu bar;
    stage.menu.SetShowCheckMarks(true);
    auto* item = stage.add(QStringLiteral("File"), scCtrl | 'F', &bar.Items());
    item->SetChecked(true);
    stage.paint(item, { 60, 20 });
    EXPECT_EQ(stage.painter.take(),
        QStringLiteral("PreparePaint(0,0,60,20)\nDrawItemBackground(0,0,60,20)\nDrawItemText(0,0,60,20) File 352"));
}

TEST(MenuItemPaint, ASeparatorEndsWithItsLine)
{
    Stage stage;
    auto* line = stage.add(QStringLiteral("-"), scCtrl | 'X');
    stage.paint(line, { 50, 9 });
    EXPECT_EQ(stage.painter.take(),
        QStringLiteral("PreparePaint(0,0,50,9)\nDrawItemBackground(0,0,50,9)\nDrawImageBackground(0,0,0,9)\n"
                       "DrawTextBackground(0,0,50,9)\nDrawSeparator(0,0,50,9)"));
}

TEST(MenuItemPaint, ACheckedItemWithoutCheckMarksHasItsMarkInTheColumnOfPictures)
{
    Stage stage;
    stage.menu.SetImageSize({ 16, 16 });
    auto* item = stage.add(QString());
    item->SetChecked(true);
    stage.paint(item, { 50, 20 });
    EXPECT_EQ(stage.painter.take(),
        QStringLiteral("PreparePaint(0,0,50,20)\nDrawItemBackground(0,0,50,20)\nDrawImageBackground(0,0,16,20)\n"
                       "DrawTextBackground(16,0,50,20)\nDrawCheckedImageBack(0,0,16,20)\nDrawCheckImage(0,0,16,20)\n"
                       "DrawGlyphCheck(2,2,14,18)\nDrawItemText(16,0,50,20)  352"));
}

TEST(MenuItemPaint, ACheckedPictureWithoutCheckMarksHasTheBackOfACheckedOne)
{
    Stage stage;
    TImageList images(16, 16);
    add(images, clRed);
    stage.menu.SetImages(&images);
    auto* item = stage.add(QStringLiteral("Cut"));
    item->SetImageIndex(0);
    item->SetChecked(true);
    stage.paint(item, { 50, 16 }, mdDisabled);
    EXPECT_TRUE(stage.painter.take().contains(
        QStringLiteral("DrawCheckedImageBack(0,0,16,16)\nDrawDisabledImage(0,0)\nDrawItemText")));
}

TEST(MenuItemPaint, ABitmapIsCentredInTheColumn)
{
    Stage stage;
    stage.menu.SetImageSize({ 16, 16 });
    stage.menu.SetImageMargin({ 0, 2, 2, 0 });
    auto* item = stage.add(QStringLiteral("Cut"));
    item->SetBitmap(filled(10, 8, clRed));
    stage.paint(item, { 50, 20 });
    EXPECT_TRUE(stage.painter.take().contains(
        QStringLiteral("DrawNotCheckedImageBack(0,0,20,20)\nDrawMenuBitmap(5,6) 10x8\nDrawItemText")));
}

TEST(MenuItemPaint, AnItemWithASubmenuDoesNotShowItsShortCut)
{
    Stage stage;
    auto* item = stage.add(QStringLiteral("More"), scCtrl | 'M');
    stage.add(QStringLiteral("x"), scNone, item);
    stage.paint(item, { 90, 20 });
    EXPECT_TRUE(stage.painter.take().endsWith(QStringLiteral("DrawItemText(0,0,90,20) More 352")));
}

TEST(MenuItemPaint, ANilItemPaintsTheGroundsAndTellsTheUserWhenThePaintingIsOver)
{
    class NilMenu : public TPopupMenuEx {
    public:
        void DrawItem(TMenuItem*, const TRect& rect, TMenuOwnerDrawState state) override
        {
            TPopupMenuEx::DrawItem(nullptr, rect, state);
        }
    };
    NilMenu menu;
    Painter painter;
    menu.SetStyle(msItemPainter);
    menu.SetItemPainter(&painter);
    painter.SetLeftMargin(10);
    auto* item = new TMenuItem;
    menu.Items().Add(item);
    QStringList messages;
    SetMessageDlgHandler([&messages](const QString& message, TMsgDlgType, TMsgDlgButtons) {
        messages << message;
        return mrOk;
    });
    QImage image(50, 20, QImage::Format_RGB32);
    QPainter qpainter(&image);
    QStyleOptionMenuItem option;
    option.rect = image.rect();
    option.state = QStyle::State_Enabled | QStyle::State_Selected;
    menu.WMDrawItem(qpainter, *item, option);
    EXPECT_TRUE(messages.isEmpty());
    QCoreApplication::processEvents();
    SetMessageDlgHandler({});
    EXPECT_EQ(messages, QStringList(u"!!! asked to draw nil item !!!\r\nerror in menu painter"_qs));
    EXPECT_EQ(painter.take(),
        QStringLiteral("PreparePaint(0,0,50,20)\nDrawItemBackground(0,0,50,20)\nDrawLeftMargin(0,0,10,0)\n"
                       "DrawImageBackground(10,0,10,20)\nDrawTextBackground(10,0,50,20)\n"
                       "DrawSelectedFrame(10,0,50,20)"));
}

// The band

TEST(MenuItemPaint, TheBandRunsOverTheHeightOfAllItemsAndBelongsToNone)
{
    Stage stage;
    stage.painter.SetLeftMargin(20);
    auto* first = stage.add(QStringLiteral("Cut"));
    stage.add(QStringLiteral("hidden"))->SetVisible(false);
    stage.add(QStringLiteral("-"));
    auto* last = stage.add(QStringLiteral("Go"));
    last->SetChecked(true);
    const auto line = stage.measure(first).height();
    const auto separator = stage.measure(stage.menu.Items().Items(2)).height();
    stage.painter.take();
    stage.paint(first, { 90, line }, mdSelected);
    const auto steps = stage.painter.take();
    const auto band = QStringLiteral("DrawLeftMargin(0,%1,20,%2)");
    EXPECT_TRUE(steps.contains(band.arg(0).arg(2 * line + separator)));
    EXPECT_TRUE(steps.contains(QStringLiteral("DrawSelectedFrame(20,0,90,%1)").arg(line)));
    EXPECT_TRUE(steps.endsWith(QStringLiteral("DrawItemText(20,0,90,%1) Cut 352").arg(line)));
    // Items further down draw their part of the same band.
    stage.paintInto(last, { 0, 100, 90, line }, { 90, 100 + line });
    EXPECT_TRUE(stage.painter.take().contains(band.arg(100 - line - separator).arg(100 + line)));
}

TEST(MenuItemPaint, TheBandOfAnOpenMenuIsAsHighAsTheMenuThoughLinesAreLeftOut)
{
    Stage stage;
    stage.painter.SetLeftMargin(20);
    QList<TRect> bands;
    stage.painter.SetOnDrawLeftMargin([&bands](QObject*, const TRect& rect) { bands << rect; });
    // The first line, the second of two and the last do not show.
    for (const char* caption : { "-", "Cut", "-", "-", "Go", "-", "-" })
        stage.add(QString::fromLatin1(caption));
    stage.menu.Popup(10, 10);
    const auto first = stage.menu.actionGeometry(stage.menu.Items().Items(1));
    const auto last = stage.menu.actionGeometry(stage.menu.Items().Items(4));
    bands.clear();
    stage.menu.grab();
    stage.menu.close();
    EXPECT_EQ(bands, QList<TRect>(3, TRect(first.left(), first.top(), first.left() + 20, last.bottom() + 1)));
}

TEST(MenuItemPaint, MeasuringTheBandLeavesTheStateOfTheItem)
{
    Stage stage;
    TImageList images(16, 16);
    add(images, clRed);
    stage.menu.SetImages(&images);
    stage.painter.SetLeftMargin(20);
    auto* first = stage.add(QStringLiteral("Cut"));
    first->SetImageIndex(0);
    stage.add(QStringLiteral("Go"));
    stage.paint(first, { 90, 20 }, mdSelected | mdDisabled);
    const auto steps = stage.painter.take();
    EXPECT_TRUE(steps.contains(QStringLiteral("DrawSelectedFrame")));
    EXPECT_TRUE(steps.contains(QStringLiteral("DrawDisabledImage(20,2)")));
}

TEST(MenuItemPaint, TheUsualBandIsAGradientFromBlueToItsQuarterWithAnEdge)
{
    Stage stage;
    stage.painter.SetLeftMargin(20);
    auto* item = stage.add(QStringLiteral("Cut"));
    const auto height = stage.measure(item).height();
    const auto image = stage.paint(item, { 90, height });
    EXPECT_EQ(image.pixelColor(0, 0), QColor(0, 0, 255));
    EXPECT_EQ(image.pixelColor(16, 0), QColor(0, 0, 255));
    EXPECT_EQ(image.pixelColor(0, height - 1), QColor(0, 0, 63));
    EXPECT_EQ(image.pixelColor(17, 3), role(QPalette::Button));
    EXPECT_EQ(image.pixelColor(18, 3), role(QPalette::Dark));
    EXPECT_EQ(image.pixelColor(19, height - 1), role(QPalette::Light));
    EXPECT_EQ(image.pixelColor(20, 3), role(QPalette::Window));
}

TEST(MenuItemPaint, AnEventDrawsTheBandInsteadOfThePainter)
{
    Stage stage;
    stage.painter.SetLeftMargin(20);
    TRect given;
    stage.painter.SetOnDrawLeftMargin([&given](QObject*, const TRect& rect) { given = rect; });
    auto* item = stage.add(QStringLiteral("Cut"));
    const auto image = stage.paint(item, { 90, 20 });
    EXPECT_EQ(given, TRect(0, 0, 20, stage.measure(item).height()));
    EXPECT_EQ(image.pixelColor(0, 0), role(QPalette::Window));
}

// Texts

TEST(MenuItemText, StandsInTheMiddleAtTheTopOrAtTheBottom)
{
    const auto top = [](TVerticalAlignment alignment) {
        Stage stage;
        stage.menu.SetTextVAlignment(alignment);
        return extent(stage.paint(stage.add(QStringLiteral("Cut")), { 90, 41 }), role(QPalette::WindowText)).top();
    };
    const auto height = MenuStage::metrics().height();
    EXPECT_EQ(top(vaMiddle) - top(vaTop), (41 - height + 1) / 2);
    EXPECT_EQ(top(vaBottom) - top(vaTop), 41 - height);
}

TEST(MenuItemText, FromRightToLeftItStandsOnTheRight)
{
    Stage stage;
    auto* item = stage.add(QStringLiteral("H"));
    const auto plain = extent(stage.paint(item, { 90, 20 }), role(QPalette::WindowText));
    stage.menu.setLayoutDirection(Qt::RightToLeft);
    const auto mirrored = extent(stage.paint(item, { 90, 20 }), role(QPalette::WindowText));
    EXPECT_EQ(mirrored.left() - plain.left(), 90 - stage.width(QStringLiteral("H")));
}

TEST(MenuItemText, ABarItemIsCentred)
{
    Stage stage;
    TMainMenu bar;
    auto* item = stage.add(QStringLiteral("H"), scNone, &bar.Items());
    const auto wide = extent(stage.paint(item, { 90, 20 }), role(QPalette::WindowText));
    const auto narrow = extent(stage.paint(item, { stage.width(QStringLiteral("H")), 20 }), role(QPalette::WindowText));
    EXPECT_EQ(wide.left() - narrow.left(), (90 - stage.width(QStringLiteral("H"))) / 2);
}

TEST(MenuItemText, ADisabledOneHasALightShadowBelowAndToTheRight)
{
    Stage stage;
    auto* item = stage.add(QStringLiteral("H"));
    const auto image = stage.paint(item, { 90, 20 }, mdDisabled);
    const auto gray = extent(image, role(QPalette::Dark));
    const auto light = extent(image, role(QPalette::Light));
    EXPECT_FALSE(gray.isEmpty());
    EXPECT_EQ(light.bottomRight(), gray.bottomRight() + QPoint(1, 1));
    EXPECT_EQ(count(image, role(QPalette::WindowText)), 0);
}

TEST(MenuItemText, ADisabledOneThatIsSelectedIsDrawnOnceInTheGrayOfTexts)
{
    Stage stage;
    const auto image = stage.paint(stage.add(QStringLiteral("H")), { 90, 20 }, mdDisabled | mdSelected);
    EXPECT_EQ(count(image, role(QPalette::Light)), 0);
    EXPECT_GT(count(image, QColor(130, 131, 132)), 0);
}

TEST(MenuItemText, ASelectedOneHasALightShadowOnlyWhereTheGrayIsTheColourOfTheSelection)
{
    Stage stage;
    auto* item = stage.add(QStringLiteral("H"));
    QImage image(90, 20, QImage::Format_RGB32);
    QPainter painter(&image);
    auto option = stage.option(*item, mdDisabled | mdSelected);
    option.rect = image.rect();
    option.palette.setColor(QPalette::Disabled, QPalette::Text, role(QPalette::Highlight));
    stage.menu.WMDrawItem(painter, *item, option);
    EXPECT_GT(count(image, role(QPalette::Light)), 0);
}

TEST(MenuItemText, WithoutControlsOfTheNewStyleNothingHasALightShadow)
{
    Stage stage;
    NewStyleControls = false;
    const auto image = stage.paint(stage.add(QStringLiteral("H")), { 90, 20 }, mdDisabled);
    NewStyleControls = true;
    EXPECT_EQ(count(image, role(QPalette::Light)), 0);
    EXPECT_GT(count(image, role(QPalette::Dark)), 0);
}

TEST(MenuItemText, TheSelectedItemHasTheColoursOfTheSelection)
{
    Stage stage;
    const auto image = stage.paint(stage.add(QStringLiteral("H")), { 90, 20 }, mdSelected);
    EXPECT_EQ(image.pixelColor(80, 10), role(QPalette::Highlight));
    EXPECT_GT(count(image, role(QPalette::HighlightedText)), 0);
}

// Marks and lines

TEST(MenuItemSeparator, IsADarkLineAboveALightOneInTheMiddle)
{
    Stage stage;
    const auto image = stage.paintInto(stage.add(QStringLiteral("-")), { 2, 0, 5, 9 }, { 9, 9 });
    EXPECT_EQ(extent(image, role(QPalette::Dark)), QRect(2, 3, 5, 1));
    EXPECT_EQ(extent(image, role(QPalette::Light)), QRect(2, 4, 5, 1));
}

TEST(MenuItemSeparator, WithoutControlsOfTheNewStyleIsOneThickLine)
{
    Stage stage;
    NewStyleControls = false;
    const auto image = stage.paint(stage.add(QStringLiteral("-")), { 9, 10 });
    NewStyleControls = true;
    EXPECT_EQ(extent(image, role(QPalette::Shadow)), QRect(0, 4, 9, 2));
}

TEST(MenuItemCheck, StandsOnAPatternInAFrame)
{
    Stage stage;
    stage.menu.SetImageSize({ 16, 20 });
    auto* item = stage.add(QString());
    item->SetChecked(true);
    const auto image = stage.paint(item, { 50, 20 });
    // The column is 20 wide: shrunk by one, framed by one.
    EXPECT_EQ(image.pixelColor(0, 0), role(QPalette::Window));
    EXPECT_EQ(image.pixelColor(1, 1), role(QPalette::Dark));
    EXPECT_EQ(image.pixelColor(18, 18), role(QPalette::Light));
    EXPECT_EQ(image.pixelColor(2, 2), role(QPalette::Button));
    EXPECT_EQ(image.pixelColor(3, 2), role(QPalette::Light));
    EXPECT_GT(count(image, role(QPalette::WindowText)), 0);
    const auto selected = stage.paint(item, { 50, 20 }, mdSelected);
    EXPECT_EQ(selected.pixelColor(2, 2), role(QPalette::Highlight));
    EXPECT_EQ(selected.pixelColor(1, 1), QColor(130, 131, 132));
}

TEST(MenuItemCheck, ARadioItemHasADifferentMark)
{
    Stage stage;
    stage.menu.SetImageSize({ 16, 20 });
    auto* item = stage.add(QString());
    item->SetChecked(true);
    const auto check = stage.paint(item, { 50, 20 });
    item->SetRadioItem(true);
    EXPECT_NE(stage.paint(item, { 50, 20 }), check);
}

// Pictures

TEST(MenuItemImage, TheSelectedItemShowsTheHotPictureAndTheDisabledOneThatForIt)
{
    Stage stage;
    TImageList images(4, 4);
    TImageList hot(4, 4);
    TImageList disabled(4, 4);
    add(images, clRed);
    add(hot, clLime);
    add(disabled, clBlue);
    stage.menu.SetImages(&images);
    stage.menu.SetHotImages(&hot);
    stage.menu.SetDisabledImages(&disabled);
    auto* item = stage.add(QStringLiteral("x"));
    item->SetImageIndex(0);
    const auto color = [&](TMenuOwnerDrawState state) {
        return stage.paint(item, { 50, 20 }, state).pixelColor(1, 10);
    };
    EXPECT_EQ(color({}), Qt::red);
    EXPECT_EQ(color(mdSelected), Qt::green);
    EXPECT_EQ(color(mdDisabled), Qt::blue);
    EXPECT_EQ(color(mdDisabled | mdSelected), Qt::blue);
    item->SetImageIndex(1);
    EXPECT_EQ(color({}), role(QPalette::Window));
}

TEST(MenuItemImage, WithoutADisabledListTheDisabledPictureIsItsShadow)
{
    Stage stage;
    TImageList images(4, 4);
    add(images, clRed);
    stage.menu.SetImages(&images);
    auto* item = stage.add(QStringLiteral(""));
    item->SetImageIndex(0);
    const auto image = stage.paint(item, { 50, 4 }, mdDisabled);
    EXPECT_EQ(extent(image, role(QPalette::Dark)), QRect(0, 0, 4, 4));
}

TEST(MenuItemImage, TheEventsDecideWhichPictureIsShown)
{
    Stage stage;
    TImageList images(4, 4);
    TImageList hot(4, 4);
    TImageList disabled(4, 4);
    for (auto* list : { &images, &hot, &disabled }) {
        add(*list, clRed);
        add(*list, clLime);
        add(*list, clBlue);
    }
    stage.menu.SetImages(&images);
    auto* item = stage.add(QStringLiteral("x"));
    const auto color = [&](TMenuOwnerDrawState state) {
        return stage.paint(item, { 50, 20 }, state).pixelColor(1, 10);
    };
    stage.menu.OnGetImageIndex = [](QObject*, TMenuItem*, TMenuOwnerDrawState, int& index) { index = 0; };
    stage.menu.OnGetHotImageIndex = [](QObject*, TMenuItem*, TMenuOwnerDrawState, int& index) { index = 1; };
    stage.menu.OnGetDisabledImageIndex = [](QObject*, TMenuItem*, TMenuOwnerDrawState, int& index) { index = 2; };
    EXPECT_EQ(color(mdSelected), Qt::red);
    stage.menu.SetHotImages(&hot);
    stage.menu.SetDisabledImages(&disabled);
    EXPECT_EQ(color({}), Qt::red);
    EXPECT_EQ(color(mdSelected), Qt::green);
    EXPECT_EQ(color(mdDisabled), Qt::blue);
}

TEST(MenuItemImage, TheParametersOfAnItemMayBeChangedByAnEvent)
{
    Stage stage;
    auto glyph = filled(8, 4, clRed);
    for (int y = 0; y < 4; ++y) {
        for (int x = 4; x < 8; ++x)
            glyph.SetPixel(x, y, clBlue);
    }
    glyph.SetTransparentColor(clFuchsia);
    stage.menu.OnGetItemParams = [&glyph](QObject*, TMenuItem*, TMenuOwnerDrawState, TFont& font, TColor& color,
                                     const TGraphic*& graphic, int& numGlyphs) {
        font.Color = clRed;
        color = clLime;
        graphic = &glyph;
        numGlyphs = 2;
    };
    auto* item = stage.add(QString());
    const auto image = stage.paint(item, { 50, 20 });
    EXPECT_EQ(extent(image, Qt::red), QRect(6, 8, 4, 4));
    EXPECT_EQ(count(image, Qt::blue), 0);
    EXPECT_EQ(image.pixelColor(40, 10), Qt::green);
    // Disabled, the second cell is shown, as a shadow.
    EXPECT_EQ(extent(stage.paint(item, { 50, 20 }, mdDisabled), role(QPalette::Dark)), QRect(6, 8, 4, 4));
}

TEST(MenuItemImage, ASeparatorHasNoGlyphWhateverTheEventSays)
{
    Stage stage;
    auto glyph = filled(4, 4, clRed);
    stage.menu.OnGetItemParams = [&glyph](QObject*, TMenuItem*, TMenuOwnerDrawState, TFont&, TColor&,
                                     const TGraphic*& graphic, int&) { graphic = &glyph; };
    stage.paint(stage.add(QStringLiteral("-")), { 50, 9 });
    EXPECT_FALSE(stage.painter.take().contains(QStringLiteral("DrawMenuBitmap")));
}

TEST(MenuItemImage, ABitmapIsDrawnButForItsTransparentColour)
{
    Stage stage;
    auto bitmap = filled(4, 4, clLime);
    bitmap.SetPixel(1, 1, clRed);
    auto* item = stage.add(QString());
    item->SetBitmap(bitmap);
    const auto image = stage.paint(item, { 50, 20 });
    EXPECT_EQ(count(image, Qt::green), 0);
    EXPECT_EQ(extent(image, Qt::red), QRect(7, 9, 1, 1));
}

TEST(MenuItemImage, ABlackAndWhiteBitmapIsDrawnWholeUnlessItStandsForACheck)
{
    Stage stage;
    auto bitmap = TBitmap(4, 4, pf1bit);
    bitmap.SetPixel(1, 1, clBlack);
    auto* item = stage.add(QString());
    item->SetBitmap(bitmap);
    EXPECT_EQ(count(stage.paint(item, { 50, 20 }), Qt::white), 15);
    item->SetChecked(true);
    EXPECT_EQ(count(stage.paint(item, { 50, 20 }), Qt::white), 0);
    stage.menu.SetShowCheckMarks(true);
    EXPECT_EQ(count(stage.paint(item, { 50, 20 }), Qt::white), 15);
}

TEST(MenuItemImage, ADisabledBitmapIsAShadowOnItsHighlight)
{
    Stage stage;
    auto bitmap = filled(4, 4, clLime);
    bitmap.SetPixel(1, 1, clRed);
    auto* item = stage.add(QString());
    item->SetBitmap(bitmap);
    const auto image = stage.paint(item, { 50, 20 }, mdDisabled);
    EXPECT_EQ(extent(image, role(QPalette::Dark)), QRect(7, 9, 1, 1));
    EXPECT_EQ(extent(image, role(QPalette::Light)), QRect(8, 10, 1, 1));
}

TEST(MenuItemPainter, HasASlotThatDoesNothingUntilItIsFilled)
{
    Stage stage;
    QImage image(4, 4, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter qpainter(&image);
    TCanvas canvas(qpainter);
    stage.painter.OnDrawItem()(nullptr, canvas, { 0, 0, 4, 4 }, {});
    EXPECT_EQ(count(image, Qt::magenta), 16);
    stage.painter.SetOnDrawItem([](QObject*, TCanvas& given, const TRect& rect, TMenuOwnerDrawState) {
        given.Brush.Color = clRed;
        given.FillRect(rect);
    });
    stage.painter.OnDrawItem()(nullptr, canvas, { 0, 0, 4, 4 }, {});
    EXPECT_EQ(count(image, Qt::red), 16);
    stage.painter.SetOnDrawItem({});
    stage.painter.OnDrawItem()(nullptr, canvas, { 0, 0, 4, 4 }, {});
}

TEST(MenuItemPainter, MeasuresAndPaintsNothingWhileTheMenuDoesNot)
{
    Stage stage;
    auto* item = stage.add(QStringLiteral("Cut"));
    int width = -1;
    int height = -1;
    stage.painter.Measure(item, width, height);
    stage.painter.Paint(item, { 0, 0, 10, 10 }, {});
    EXPECT_EQ(width, -1);
    EXPECT_EQ(stage.painter.take(), QString());
    Painter unbound;
    unbound.Paint(item, { 0, 0, 10, 10 }, {});
    TMainMenu bar;
    unbound.SetMenu(&bar);
    EXPECT_EQ(unbound.PopupMenu(), nullptr);
    unbound.Measure(item, width, height);
    EXPECT_EQ(width, -1);
}
