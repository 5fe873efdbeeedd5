#include "menus/MenuItemPainters.h"

#include "MenuStage.h"
#include "menus/SystemMetrics.h"
#include "visual/TMainMenu.h"

#include <gtest/gtest.h>

namespace {

// A menu in the style of one painter, which logs its steps.
template <class Painter>
class Stage : public MenuStage {
public:
    template <class... Arguments>
    explicit Stage(Arguments... arguments)
        : painter(arguments...)
    {
        menu.SetStyle(msItemPainter);
        menu.SetItemPainter(&painter);
    }

    Logging<Painter> painter;
};

QColor role(QPalette::ColorRole role)
{
    return MenuStage::palette().color(QPalette::Active, role);
}

QImage framed(QSize size, const QColor& top, const QColor& bottom, const QColor& inside)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(bottom);
    QPainter painter(&image);
    painter.fillRect(0, 0, size.width() - 1, size.height() - 1, top);
    painter.fillRect(1, 1, size.width() - 2, size.height() - 2, inside);
    return image;
}

TBitmap filled(int width, int height, TColor color)
{
    TBitmap bitmap(width, height);
    bitmap.Image().fill(ToQColor(color));
    return bitmap;
}

// What a style adds to the four margins: measured as top + bottom and left + right, painted as left and top.
template <class Painter>
QString addedMargins(Stage<Painter>& stage)
{
    TImageList images(40, 40);
    images.Add(filled(40, 40, clRed));
    stage.menu.SetImages(&images);
    auto* item = stage.add(QStringLiteral("x"));
    item->SetImageIndex(0);
    const auto bare = stage.width(QStringLiteral("x")) + 40;
    const auto size = stage.measure(item);
    stage.painter.take();
    stage.paint(item, { 200, 100 });
    const auto step = QStringLiteral("DrawEnabledImage(");
    const auto steps = stage.painter.take();
    const auto x = steps.mid(steps.indexOf(step) + step.size()).section(u',', 0, 0);
    stage.menu.SetImages(nullptr);
    return QStringLiteral("wider %1, higher %2, x %3").arg(size.width() - bare).arg(size.height() - 40).arg(x);
}

}

// Standard

TEST(StandardMenuItemPainter, AddsNothingToTheMargins)
{
    Stage<TStandardMenuItemPainter> stage;
    EXPECT_EQ(addedMargins(stage), QStringLiteral("wider 0, higher 0, x 0"));
}

TEST(StandardMenuItemPainter, MakesRoomForACheckMarkWhenAnySiblingIsChecked)
{
    Stage<TStandardMenuItemPainter> stage;
    auto* item = stage.add(QStringLiteral("Cut"));
    auto* other = stage.add(QStringLiteral("Go"));
    const auto mark = GetSystemMetrics(71, stage.menu.SystemStyle(), stage.font());
    EXPECT_EQ(stage.measure(item).width(), stage.width(QStringLiteral("Cut")));
    other->SetChecked(true);
    EXPECT_EQ(stage.measure(item).width(), stage.width(QStringLiteral("Cut")) + mark);
    stage.menu.SetImageSize({ 1, 99 });
    EXPECT_EQ(stage.measure(item).width(), stage.width(QStringLiteral("Cut")) + 99);
}

// Owner-drawn

TEST(OwnerDrawMenuItemPainter, WithoutEventsAnItemHasNoSizeAndNothingIsPainted)
{
    MenuStage stage(msOwnerDraw);
    auto* item = stage.add(QStringLiteral("Cut"));
    EXPECT_EQ(stage.measure(item), QSize(0, 0));
    QImage untouched(20, 10, QImage::Format_RGB32);
    untouched.fill(Qt::magenta);
    EXPECT_EQ(stage.paint(item, { 20, 10 }, mdSelected), untouched);
}

TEST(OwnerDrawMenuItemPainter, LeavesMeasuringAndPaintingToTheEvents)
{
    MenuStage stage(msOwnerDraw);
    auto* item = stage.add(QStringLiteral("Cut"));
    stage.menu.OnMeasureItem = [&](QObject* sender, TMenuItem* measured, int& width, int& height) {
        EXPECT_EQ(sender, &stage.menu);
        EXPECT_EQ(measured, item);
        width = 12;
        height = 34;
    };
    stage.menu.OnDrawItem = [&](QObject* sender, TCanvas& canvas, const TRect& rect, TMenuOwnerDrawState state) {
        EXPECT_EQ(sender, item);
        EXPECT_EQ(state, TMenuOwnerDrawState(mdSelected));
        canvas.Brush.Color = clRed;
        canvas.FillRect(rect);
    };
    EXPECT_EQ(stage.measure(item), QSize(12, 34));
    QImage red(20, 10, QImage::Format_RGB32);
    red.fill(Qt::red);
    EXPECT_EQ(stage.paint(item, { 20, 10 }, mdSelected), red);
}

TEST(OwnerDrawMenuItemPainter, AnEventThatAsksForTheUsualLookGetsThatOfTheStandardStyle)
{
    MenuStage own(msOwnerDraw);
    own.menu.OnDrawItem = [&](QObject* sender, TCanvas&, const TRect& rect, TMenuOwnerDrawState state) {
        own.menu.DefaultDrawItem(qobject_cast<TMenuItem*>(sender), rect, state);
    };
    MenuStage standard;
    EXPECT_EQ(own.paint(own.add(QStringLiteral("Cut")), { 60, 20 }, mdSelected),
        standard.paint(standard.add(QStringLiteral("Cut")), { 60, 20 }, mdSelected));
}

// Buttons

TEST(BtnMenuItemPainter, AddsOneAboveAndBelow)
{
    Stage<TBtnMenuItemPainter> stage(true);
    EXPECT_EQ(addedMargins(stage), QStringLiteral("wider 0, higher 2, x 0"));
}

TEST(BtnMenuItemPainter, LoweredAndRaisedDifferInTheColoursOfTheFrameAlone)
{
    MenuStage lowered(msBtnLowered);
    MenuStage raised(msBtnRaised);
    const QSize size(30, 20);
    const auto face = role(QPalette::Window);
    EXPECT_EQ(lowered.paint(lowered.add(QString()), size, mdSelected),
        framed(size, role(QPalette::Dark), role(QPalette::Light), face));
    EXPECT_EQ(raised.paint(raised.add(QString()), size, mdSelected),
        framed(size, role(QPalette::Light), role(QPalette::Dark), face));
    EXPECT_EQ(
        lowered.paint(lowered.add(QStringLiteral("x")), size), raised.paint(raised.add(QStringLiteral("x")), size));
}

TEST(BtnMenuItemPainter, ADisabledTextIsInTheShadowColourOnLightAlsoWhenSelected)
{
    MenuStage stage(msBtnLowered);
    const auto image = stage.paint(stage.add(QStringLiteral("H")), { 30, 20 }, mdDisabled | mdSelected);
    int dark = 0;
    int light = 0;
    int text = 0;
    for (int y = 1; y < 19; ++y) {
        for (int x = 1; x < 29; ++x) {
            dark += image.pixelColor(x, y) == role(QPalette::Dark) ? 1 : 0;
            light += image.pixelColor(x, y) == role(QPalette::Light) ? 1 : 0;
            text += image.pixelColor(x, y) == QColor(130, 131, 132) ? 1 : 0;
        }
    }
    EXPECT_GT(dark, 0);
    EXPECT_GT(light, 0);
    EXPECT_EQ(text, 0);
}

// Office

TEST(OfficeMenuItemPainter, AddsTwoOnTheLeftAboveAndBelowAndThreeOnTheRight)
{
    Stage<TOfficeMenuItemPainter> stage;
    // Five of the picture's margins and three of the text's.
    EXPECT_EQ(addedMargins(stage), QStringLiteral("wider 8, higher 4, x 2"));
}

TEST(OfficeMenuItemPainter, FramesThePictureOfTheSelectedItemLikeAButton)
{
    Stage<TOfficeMenuItemPainter> stage;
    stage.menu.SetImageSize({ 16, 13 });
    auto* item = stage.add(QString());
    item->SetBitmap(filled(1, 1, clRed));
    item->SetBitmap(filled(2, 2, clRed));
    const auto image = stage.paint(item, { 50, 20 }, mdSelected);
    auto expected = framed({ 18, 20 }, role(QPalette::Light), role(QPalette::Dark), role(QPalette::Button));
    EXPECT_EQ(image.copy(0, 0, 18, 20), expected);
    // The ground of the frame is one pixel wider than the frame.
    EXPECT_EQ(image.pixelColor(18, 10), role(QPalette::Button));
    EXPECT_EQ(image.pixelColor(19, 10), role(QPalette::Highlight));
}

TEST(OfficeMenuItemPainter, FramesACheckedPictureLikeAPressedButton)
{
    Stage<TOfficeMenuItemPainter> stage;
    stage.menu.SetImageSize({ 16, 13 });
    auto* item = stage.add(QString());
    item->SetBitmap(filled(2, 2, clRed));
    item->SetChecked(true);
    const auto image = stage.paint(item, { 50, 20 });
    EXPECT_EQ(image.copy(0, 0, 18, 20),
        framed({ 18, 20 }, role(QPalette::Dark), role(QPalette::Light), role(QPalette::Button)));
}

TEST(OfficeMenuItemPainter, FillsTheGroundOfPicturesInTheColourThatIsSet)
{
    Stage<TOfficeMenuItemPainter> stage;
    stage.painter.SetImageBackgroundColor(clLime);
    stage.menu.SetImageSize({ 16, 13 });
    auto* item = stage.add(QString());
    item->SetBitmap(filled(2, 2, clRed));
    EXPECT_EQ(stage.paint(item, { 50, 20 }, mdSelected).pixelColor(18, 10), Qt::green);
}

TEST(OfficeMenuItemPainter, TextAndCheckStandInSmallerRectangles)
{
    Stage<TOfficeMenuItemPainter> stage;
    stage.menu.SetShowCheckMarks(true);
    auto* item = stage.add(QStringLiteral("x"));
    item->SetChecked(true);
    const auto mark = GetSystemMetrics(71, stage.menu.SystemStyle(), stage.font());
    stage.paint(item, { 90, 20 });
    const auto steps = stage.painter.take();
    // Shrunk by one and framed by one.
    EXPECT_TRUE(
        steps.contains(QStringLiteral("DrawCheckImage(0,0,%1,20)\nDrawGlyphCheck(4,2,%2,17)").arg(mark).arg(mark - 2)));
    MenuStage plain;
    plain.menu.SetStyle(msBtnLowered);
    MenuStage office(msOffice);
    office.menu.SetTextMargin(-3);
    const auto text = [](MenuStage& s, int height) { return s.paint(s.add(QStringLiteral("x")), { 30, height }); };
    office.menu.SetImageMargin({ 0, -2, -3, 0 });
    EXPECT_EQ(text(office, 21).copy(0, 0, 30, 20), text(plain, 20));
}

TEST(OfficeMenuItemPainter, OnABarTheItemIsFramed)
{
    Stage<TOfficeMenuItemPainter> stage;
    TMainMenu bar;
    auto* item = stage.add(QString(), scNone, &bar.Items());
    const QSize size(30, 20);
    EXPECT_EQ(stage.paint(item, size, mdSelected),
        framed(size, role(QPalette::Dark), role(QPalette::Light), role(QPalette::Button)));
    EXPECT_EQ(stage.paint(item, size, mdHotlight),
        framed(size, role(QPalette::Light), role(QPalette::Dark), role(QPalette::Button)));
}

TEST(OfficeMenuItemPainter, OnABarTheTextKeepsItsColourAndItsLightShadow)
{
    Stage<TOfficeMenuItemPainter> stage;
    TMainMenu bar;
    auto* item = stage.add(QStringLiteral("H"), scNone, &bar.Items());
    const auto has = [](const QImage& image, const QColor& color) {
        for (int i = 0; i < image.width() * image.height(); ++i) {
            if (image.pixelColor(i % image.width(), i / image.width()) == color)
                return true;
        }
        return false;
    };
    EXPECT_TRUE(has(stage.paint(item, { 30, 20 }, mdSelected), role(QPalette::WindowText)));
    EXPECT_TRUE(has(stage.paint(item, { 30, 20 }, mdSelected | mdDisabled).copy(1, 1, 28, 18), role(QPalette::Light)));
}
