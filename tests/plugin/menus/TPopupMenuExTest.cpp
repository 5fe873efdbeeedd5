#include "menus/TPopupMenuEx.h"

#include "MenuStage.h"
#include "menus/SystemMetrics.h"
#include "visual/TAction.h"

#include <QDataStream>
#include <QIODevice>

#include <gtest/gtest.h>

namespace {

void add(TImageList& images)
{
    TBitmap bitmap(images.Width(), images.Height());
    bitmap.Image().fill(Qt::red);
    images.Add(bitmap);
}

// The class of the painter in use.
QByteArray painterOf(const TPopupMenuEx& menu)
{
    return menu.GetActiveItemPainter().metaObject()->className();
}

QStringList captions(const TMenuItem& parent)
{
    QStringList list;
    for (int i = 0; i < parent.Count(); ++i) {
        list << parent.Items(i)->Caption();
        for (const auto& below : captions(*parent.Items(i)))
            list << u"> "_qs + below;
    }
    return list;
}

}

TEST(PopupMenuEx, BeginsAsAStandardMenu)
{
    const TPopupMenuEx menu;
    EXPECT_EQ(menu.Style(), msStandard);
    EXPECT_EQ(menu.Cursor(), crDefault);
    EXPECT_EQ(menu.TextVAlignment(), vaMiddle);
    EXPECT_EQ(menu.PopupPoint(), QPoint(-1, -1));
    EXPECT_EQ(menu.ImageMargin(), TImageMargin());
    EXPECT_EQ(menu.ImageSize(), TMenuImageSize());
    EXPECT_FALSE(menu.IsOwnerDrawMenu());
}

TEST(PopupMenuEx, EachStyleHasItsPainter)
{
    TPopupMenuEx menu;
    QList<QByteArray> painters;
    for (const auto style : { msStandard, msOwnerDraw, msBtnLowered, msBtnRaised, msOffice, msXP, msItemPainter }) {
        menu.SetStyle(style);
        painters << painterOf(menu);
    }
    EXPECT_EQ(painters,
        QList<QByteArray>({ "TStandardMenuItemPainter", "TOwnerDrawMenuItemPainter", "TBtnMenuItemPainter",
            "TBtnMenuItemPainter", "TOfficeMenuItemPainter", "TXPMenuItemPainter", "TStandardMenuItemPainter" }));
}

TEST(PopupMenuEx, ADifferentPainterIsUsedInTheStyleForItAlone)
{
    TPopupMenuEx menu;
    TXPMenuItemPainter painter;
    menu.SetItemPainter(&painter);
    EXPECT_EQ(painterOf(menu), "TStandardMenuItemPainter");
    menu.SetStyle(msItemPainter);
    EXPECT_EQ(&menu.GetActiveItemPainter(), &painter);
    menu.SetStyle(msOffice);
    EXPECT_EQ(menu.ItemPainter(), nullptr);
}

TEST(PopupMenuEx, WithoutAPainterOfTheProgramItPaintsAsAStandardMenu)
{
    MenuStage own(msItemPainter);
    MenuStage standard;
    EXPECT_EQ(painterOf(own.menu), "TStandardMenuItemPainter");
    for (const auto state : { TMenuOwnerDrawState(), TMenuOwnerDrawState(mdSelected) })
        EXPECT_EQ(own.paint(own.add(QStringLiteral("Cut")), { 50, 20 }, state),
            standard.paint(standard.add(QStringLiteral("Cut")), { 50, 20 }, state));
}

TEST(PopupMenuEx, TheFrameOfAnOpenMenuRunsThroughToItsEdge)
{
    MenuStage stage(msXP);
    stage.add(QStringLiteral("Cut"));
    auto* second = stage.add(QStringLiteral("Go"));
    stage.menu.Popup(10, 10);
    const auto edge
        = [&] { return stage.menu.grab().toImage().pixelColor(1, stage.menu.actionGeometry(second).top()); };
    EXPECT_EQ(edge(), QColor(216, 216, 209));
    stage.menu.setActiveAction(second);
    EXPECT_EQ(edge(), QColor(10, 36, 106));
    stage.menu.setActiveAction(stage.menu.Items().Items(0));
    EXPECT_EQ(edge(), QColor(216, 216, 209));
    stage.menu.close();
}

TEST(PopupMenuEx, LetsGoOfAPainterThatIsDeleted)
{
    TPopupMenuEx menu;
    menu.SetStyle(msItemPainter);
    {
        TXPMenuItemPainter painter;
        menu.SetItemPainter(&painter);
    }
    EXPECT_EQ(menu.ItemPainter(), nullptr);
    EXPECT_EQ(painterOf(menu), "TStandardMenuItemPainter");
}

TEST(PopupMenuEx, AStandardMenuDrawsItsItemsAsSoonAsThereIsAPicture)
{
    TPopupMenuEx menu;
    TImageList images;
    menu.SetImages(&images);
    EXPECT_FALSE(menu.IsOwnerDrawMenu());
    EXPECT_NE(menu.style()->metaObject()->className(), QByteArray("PopupMenuStyle"));
    add(images);
    EXPECT_TRUE(menu.IsOwnerDrawMenu());
    EXPECT_EQ(menu.style()->metaObject()->className(), QByteArray("PopupMenuStyle"));
    menu.SetImages(nullptr);
    EXPECT_FALSE(menu.IsOwnerDrawMenu());
    EXPECT_NE(menu.style()->metaObject()->className(), QByteArray("PopupMenuStyle"));
}

TEST(PopupMenuEx, LetsGoOfListsThatAreDeleted)
{
    TPopupMenuEx menu;
    {
        TImageList images;
        add(images);
        menu.SetImages(&images);
        menu.SetHotImages(&images);
        menu.SetDisabledImages(&images);
        EXPECT_TRUE(menu.IsOwnerDrawMenu());
    }
    EXPECT_EQ(menu.Images(), nullptr);
    EXPECT_EQ(menu.HotImages(), nullptr);
    EXPECT_EQ(menu.DisabledImages(), nullptr);
    EXPECT_FALSE(menu.IsOwnerDrawMenu());
}

TEST(PopupMenuEx, LetsGoOfWhatItIsToldThatItGoes)
{
    TPopupMenuEx menu;
    TImageList images;
    TXPMenuItemPainter painter;
    menu.SetStyle(msItemPainter);
    menu.SetItemPainter(&painter);
    menu.SetImages(&images);
    menu.SetHotImages(&images);
    menu.SetDisabledImages(&images);
    menu.Notification(&images, false);
    EXPECT_EQ(menu.Images(), &images);
    menu.Notification(&images, true);
    menu.Notification(&painter, true);
    EXPECT_EQ(menu.Images(), nullptr);
    EXPECT_EQ(menu.HotImages(), nullptr);
    EXPECT_EQ(menu.DisabledImages(), nullptr);
    EXPECT_EQ(menu.ItemPainter(), nullptr);
}

TEST(PopupMenuEx, AnOpenMenuIsAsWideAndHighAsItsItemsMeasure)
{
    MenuStage stage(msOffice);
    auto* item = stage.add(QStringLiteral("&Cut"), scCtrl | 'X');
    auto* line = stage.add(QStringLiteral("-"));
    auto* deep = stage.add(QStringLiteral("More"));
    stage.add(QStringLiteral("Deep"), scNone, deep);
    stage.menu.setFont(stage.font());
    stage.menu.Popup(10, 10);
    EXPECT_EQ(stage.menu.actionGeometry(item).size(), stage.measure(item));
    EXPECT_EQ(stage.menu.actionGeometry(line).height(), stage.measure(line).height());
    EXPECT_EQ(stage.menu.actionGeometry(deep).width(), stage.measure(item).width());
    stage.menu.close();
}

TEST(PopupMenuEx, SubmenusHaveTheStyleOfTheirMenuAlsoThoseAddedLater)
{
    TPopupMenuEx menu;
    auto* early = new TMenuItem;
    menu.Items().Add(early);
    early->Add(new TMenuItem);
    menu.SetStyle(msXP);
    auto* late = new TMenuItem;
    late->Add(new TMenuItem);
    menu.Items().Add(late);
    for (auto* item : { early, late })
        EXPECT_EQ(item->menu()->style(), menu.style());
    menu.SetStyle(msStandard);
    EXPECT_NE(early->menu()->style()->metaObject()->className(), QByteArray("PopupMenuStyle"));
}

TEST(PopupMenuEx, OpeningRunsTheHandlerAndMeasuresWhatItAdded)
{
    MenuStage stage(msXP);
    stage.menu.setFont(stage.font());
    TMenuItem* item = nullptr;
    stage.menu.OnPopup = [&](QObject*) { item = stage.add(QStringLiteral("late"), scCtrl | 'L'); };
    stage.menu.Popup(20, 30);
    EXPECT_EQ(stage.menu.pos(), QPoint(20, 30));
    EXPECT_EQ(stage.menu.actionGeometry(item).size(), stage.measure(item));
    stage.menu.close();
}

TEST(PopupMenuEx, GivesOutHotKeysWhenItIsToDoSo)
{
    TPopupMenuEx menu;
    auto* item = new TMenuItem;
    item->SetCaption(QStringLiteral("Cut"));
    menu.Items().Add(item);
    menu.Popup(1, 1);
    menu.close();
    EXPECT_EQ(item->Caption(), QStringLiteral("Cut"));
    menu.SetAutoHotkeys(maAutomatic);
    menu.Popup(1, 1);
    menu.close();
    EXPECT_EQ(item->Caption(), QStringLiteral("&Cut"));
}

TEST(PopupMenuEx, WhereScriptsRunFromRightToLeftItFollowsTheControlItIsOpenedOver)
{
    QWidget window;
    window.setLayoutDirection(Qt::RightToLeft);
    window.setGeometry(50, 50, 100, 100);
    window.show();
    TPopupMenuEx menu;
    menu.Items().Add(new TMenuItem);
    const auto openedAt = [&menu](int x, int y) {
        menu.Popup(x, y);
        menu.close();
        return menu.UseRightToLeftAlignment();
    };
    EXPECT_FALSE(openedAt(100, 100));
    const auto before = std::exchange(SysLocale.MiddleEast, true);
    EXPECT_TRUE(openedAt(100, 100));
    EXPECT_FALSE(openedAt(500, 500));
    menu.SetParentBiDiMode(false);
    EXPECT_FALSE(openedAt(100, 100));
    SysLocale.MiddleEast = before;
}

TEST(PopupMenuEx, DrawsNothingWithoutACanvas)
{
    MenuStage stage(msOwnerDraw);
    int drawn = 0;
    stage.menu.OnDrawItem = [&drawn](QObject*, TCanvas&, const TRect&, TMenuOwnerDrawState) { ++drawn; };
    auto* item = stage.add(QStringLiteral("Cut"));
    stage.menu.DrawItem(item, { 0, 0, 10, 10 }, {});
    stage.menu.DefaultDrawItem(item, { 0, 0, 10, 10 }, {});
    EXPECT_EQ(drawn, 0);
    EXPECT_FALSE(stage.menu.HasCanvas());
    stage.paint(item, { 10, 10 });
    EXPECT_EQ(drawn, 1);
    EXPECT_FALSE(stage.menu.HasCanvas());
}

TEST(PopupMenuEx, HasNoCanvasAfterAnEventHasFailed)
{
    MenuStage stage(msOwnerDraw);
    stage.menu.OnDrawItem = [](QObject*, TCanvas&, const TRect&, TMenuOwnerDrawState) { throw 1; };
    auto* item = stage.add(QStringLiteral("Cut"));
    EXPECT_THROW(stage.paint(item, { 10, 10 }), int);
    EXPECT_FALSE(stage.menu.HasCanvas());
}

TEST(PopupMenuEx, AnEventThatDrawsMayMeasure)
{
    MenuStage stage(msOwnerDraw);
    auto* item = stage.add(QStringLiteral("Cut"));
    stage.menu.OnDrawItem = [&](QObject*, TCanvas& canvas, const TRect& rect, TMenuOwnerDrawState) {
        stage.measure(item);
        canvas.Brush.Color = clRed;
        canvas.FillRect(rect);
    };
    EXPECT_EQ(stage.paint(item, { 10, 10 }).pixelColor(5, 5), Qt::red);
}

TEST(PopupMenuEx, PaintsOnlyWithinTheItem)
{
    MenuStage stage(msXP);
    const auto image = stage.paintInto(stage.add(QStringLiteral("Cut")), { 5, 5, 20, 10 }, { 40, 30 }, mdSelected);
    for (const auto outside : { QPoint(4, 8), QPoint(25, 8), QPoint(10, 4), QPoint(10, 15) })
        EXPECT_EQ(image.pixelColor(outside), Qt::magenta);
}

TEST(PopupMenuEx, TheStateOfAnItemIsMadeOfTheBitsOfASystem)
{
    EXPECT_EQ(int(mdSelected | mdGrayed | mdDisabled | mdChecked), 1 + 2 + 4 + 8);
    EXPECT_EQ(int(mdFocused | mdDefault | mdHotlight | mdInactive), 16 + 32 + 64 + 128);
    MenuStage stage(msOwnerDraw);
    TMenuOwnerDrawState seen;
    stage.menu.OnDrawItem = [&seen](QObject*, TCanvas&, const TRect&, TMenuOwnerDrawState state) { seen = state; };
    auto* item = stage.add(QStringLiteral("Cut"));
    item->SetChecked(true);
    item->SetDefault(true);
    stage.paint(item, { 10, 10 }, mdSelected | mdDisabled | mdHotlight);
    EXPECT_EQ(seen, mdSelected | mdGrayed | mdDisabled | mdChecked | mdDefault | mdHotlight);
}

TEST(PopupMenuEx, ASelectedItemStartsInTheColoursOfTheSelectionButForButtons)
{
    for (const auto style : { msOwnerDraw, msBtnLowered, msBtnRaised }) {
        MenuStage stage(style);
        TColor brush = 0;
        TColor text = 0;
        stage.menu.OnDrawItem = [&](QObject*, TCanvas& canvas, const TRect&, TMenuOwnerDrawState) {
            brush = canvas.Brush.Color;
            text = canvas.Font.Color;
        };
        stage.menu.OnGetItemParams
            = [&](QObject*, TMenuItem*, TMenuOwnerDrawState, TFont& font, TColor& color, const TGraphic*&, int&) {
                  brush = color;
                  text = font.Color;
              };
        stage.paint(stage.add(QStringLiteral("Cut")), { 10, 10 }, mdSelected);
        EXPECT_EQ(brush, style == msOwnerDraw ? clHighlight : clMenu);
        EXPECT_EQ(text, style == msOwnerDraw ? clHighlightText : clMenuText);
    }
}

TEST(PopupMenuEx, AsksForNoPictureWithoutAListAnItemOrForASeparator)
{
    TPopupMenuEx menu;
    int asked = 0;
    menu.OnGetImageIndex = [&asked](QObject*, TMenuItem*, TMenuOwnerDrawState, int&) { ++asked; };
    TMenuItem item;
    int index = 0;
    menu.GetImageIndex(&item, {}, index);
    EXPECT_EQ(asked, 0);
    TImageList images;
    menu.SetImages(&images);
    menu.GetImageIndex(nullptr, {}, index);
    item.SetCaption(QStringLiteral("-"));
    menu.GetImageIndex(&item, {}, index);
    EXPECT_EQ(asked, 0);
    item.SetCaption(QStringLiteral("Cut"));
    menu.GetImageIndex(&item, {}, index);
    EXPECT_EQ(asked, 1);
}

TEST(PopupMenuEx, TheMenuFontIsTheSystemsOrOneOfOldBySize8)
{
    TFont font;
    TPopupMenuEx::SetDefaultMenuFont(font);
    EXPECT_EQ(font.Font, QApplication::font("QMenu"));
    EXPECT_EQ(font.Color, clMenuText);
    NewStyleControls = false;
    TPopupMenuEx::SetDefaultMenuFont(font);
    NewStyleControls = true;
    EXPECT_EQ(font.Font.family(), QStringLiteral("System"));
    EXPECT_EQ(font.Font.pointSize(), 8);
}

TEST(PopupMenuEx, CopiesATreeOfItems)
{
    TAction action;
    action.SetCaption(QStringLiteral("From the action"));
    TMenuItem source;
    auto* top = new TMenuItem;
    top->SetAction(&action);
    top->SetShortCut(45);
    top->SetTag(7);
    int clicks = 0;
    top->OnClick = [&clicks](QObject*) { ++clicks; };
    source.Add(top);
    auto* below = new TMenuItem;
    below->SetCaption(QStringLiteral("Below"));
    below->SetRadioItem(true);
    below->SetChecked(true);
    top->Add(below);
    TMenuItem target;
    target.Add(new TMenuItem);
    TPopupMenuEx::AssignMenuItems(source, target);
    EXPECT_EQ(captions(target), QStringList({ u"From the action"_qs, u"> Below"_qs }));
    auto* copy = target.Items(0);
    EXPECT_EQ(copy->Action(), &action);
    EXPECT_EQ(copy->ShortCut(), 45);
    EXPECT_EQ(copy->Tag(), 7);
    EXPECT_TRUE(copy->Items(0)->RadioItem());
    EXPECT_TRUE(copy->Items(0)->Checked());
    copy->Click();
    EXPECT_EQ(clicks, 1);
}

TEST(PopupMenuEx, AssignedToItselfItKeepsItsItems)
{
    TPopupMenuEx menu;
    auto* item = new TMenuItem;
    item->SetCaption(QStringLiteral("Cut"));
    menu.Items().Add(item);
    menu.Assign(menu);
    EXPECT_EQ(captions(menu.Items()), QStringList(u"Cut"_qs));
}

TEST(PopupMenuEx, AnEventMayChangeTheStyleWhileAnItemIsPainted)
{
    MenuStage stage(msOffice);
    auto* item = stage.add(QStringLiteral("Cut"));
    stage.menu.OnGetItemParams = [&](QObject*, TMenuItem*, TMenuOwnerDrawState, TFont&, TColor&, const TGraphic*&,
                                     int&) { stage.menu.SetStyle(msXP); };
    stage.paint(item, { 50, 20 }, mdSelected);
    EXPECT_EQ(painterOf(stage.menu), "TXPMenuItemPainter");
    MenuStage xp(msXP);
    EXPECT_EQ(
        stage.paint(item, { 50, 20 }, mdSelected), xp.paint(xp.add(QStringLiteral("Cut")), { 50, 20 }, mdSelected));
}

TEST(PopupMenuEx, AssignTakesOverAllOfAnotherMenu)
{
    TImageList images;
    add(images);
    TXPMenuItemPainter painter;
    TPopupMenuEx source;
    source.SetStyle(msItemPainter);
    source.SetItemPainter(&painter);
    source.SetImages(&images);
    source.SetHotImages(&images);
    source.SetImageMargin({ 1, 2, 3, 4 });
    source.SetImageSize({ 5, 6 });
    source.SetTextMargin(7);
    source.SetShowCheckMarks(true);
    source.SetTextVAlignment(vaBottom);
    source.SetCursor(crHandPoint);
    source.Items().Add(new TMenuItem);
    TPopupMenuEx menu;
    menu.Assign(source);
    EXPECT_EQ(menu.Style(), msItemPainter);
    EXPECT_EQ(menu.ItemPainter(), &painter);
    EXPECT_EQ(menu.Images(), &images);
    EXPECT_EQ(menu.HotImages(), &images);
    EXPECT_EQ(menu.ImageMargin(), TImageMargin({ 1, 2, 3, 4 }));
    EXPECT_EQ(menu.ImageSize(), TMenuImageSize({ 5, 6 }));
    EXPECT_EQ(menu.TextMargin(), 7);
    EXPECT_TRUE(menu.ShowCheckMarks());
    EXPECT_EQ(menu.TextVAlignment(), vaBottom);
    EXPECT_EQ(menu.Cursor(), crHandPoint);
    EXPECT_EQ(menu.Items().Count(), 1);
}

TEST(PopupMenuEx, ReadsWhatItHasWritten)
{
    TPopupMenuEx written;
    written.SetStyle(msOffice);
    written.SetImageMargin({ 1, 2, 3, 4 });
    written.SetImageSize({ 5, 6 });
    written.SetTextMargin(7);
    written.SetShowCheckMarks(true);
    written.SetTextVAlignment(vaTop);
    written.SetCursor(crHelp);
    QByteArray bytes;
    QDataStream writer(&bytes, QIODevice::WriteOnly);
    written.WriteState(writer);
    TPopupMenuEx menu;
    QDataStream reader(bytes);
    menu.ReadState(reader);
    EXPECT_EQ(menu.Style(), msOffice);
    EXPECT_EQ(menu.ImageMargin(), written.ImageMargin());
    EXPECT_EQ(menu.ImageSize(), written.ImageSize());
    EXPECT_EQ(menu.TextMargin(), 7);
    EXPECT_TRUE(menu.ShowCheckMarks());
    EXPECT_EQ(menu.TextVAlignment(), vaTop);
    EXPECT_EQ(menu.Cursor(), crHelp);
    EXPECT_EQ(menu.style()->metaObject()->className(), QByteArray("PopupMenuStyle"));
    EXPECT_TRUE(reader.atEnd());
}
