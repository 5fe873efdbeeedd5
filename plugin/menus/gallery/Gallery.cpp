#include "menus/gallery/Gallery.h"

#include <QApplication>
#include <QPainter>

namespace {

constexpr int Gap = 12;

// What a program has to write for a style of its own: a band down the side, and the selected item in round corners.
class RoundPainter : public TCustomMenuItemPainter {
public:
    RoundPainter() { SetLeftMargin(22); }

protected:
    void DrawItemBackground(const TRect& rect) override
    {
        Canvas().Brush = { clWindow, bsSolid };
        TCustomMenuItemPainter::DrawItemBackground(rect);
    }

    void DrawSelectedFrame(const TRect& rect) override
    {
        auto& painter = *Canvas().Handle();
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(ToQColor(clHighlight, Canvas().Palette()));
        painter.drawRoundedRect(rect.ToQRect().adjusted(2, 1, -2, -1), 5, 5);
        painter.restore();
    }
};

enum Icon { icNew, icOpen, icSave, icPrint };

QImage icon(Icon number, int saturation)
{
    QImage image(16, 16, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    const auto color = [saturation](int hue, int value = 220) { return QColor::fromHsv(hue, saturation, value); };
    switch (number) {
    case icNew:
        painter.fillRect(3, 1, 10, 14, color(210, 120));
        painter.fillRect(4, 2, 8, 12, Qt::white);
        break;
    case icOpen:
        painter.fillRect(1, 4, 14, 10, color(40, 170));
        painter.fillRect(2, 6, 12, 7, color(45));
        break;
    case icSave:
        painter.fillRect(2, 2, 12, 12, color(220, 150));
        painter.fillRect(4, 3, 8, 5, Qt::white);
        painter.fillRect(5, 10, 6, 4, color(220, 90));
        break;
    case icPrint:
        painter.fillRect(1, 6, 14, 6, color(120, 130));
        painter.fillRect(4, 1, 8, 5, Qt::white);
        painter.fillRect(4, 10, 8, 5, Qt::white);
        break;
    }
    return image;
}

void fillList(TImageList& images, int saturation)
{
    for (const auto number : { icNew, icOpen, icSave, icPrint })
        images.Add(TBitmap(icon(number, saturation)));
}

TMenuItem* add(TMenuItem& parent, const QString& caption, TShortCut shortCut = scNone, int image = -1)
{
    auto* item = new TMenuItem;
    item->SetCaption(caption);
    item->SetShortCut(shortCut);
    item->SetImageIndex(image);
    parent.Add(item);
    return item;
}

void fillMenu(TMenuItem& root)
{
    add(root, QStringLiteral("&New"), scCtrl | 'N', icNew)->SetDefault(true);
    add(root, QStringLiteral("&Open..."), scCtrl | 'O', icOpen);
    add(root, QStringLiteral("&Save"), scCtrl | 'S', icSave)->SetEnabled(false);
    add(root, QStringLiteral("-"));
    add(root, QStringLiteral("Show &grid"))->SetChecked(true);
    auto* byForm = add(root, QStringLiteral("By &form"));
    byForm->SetRadioItem(true);
    byForm->SetChecked(true);
    add(root, QStringLiteral("&Print preview"), scNone, icPrint)->SetChecked(true);
    add(root, QStringLiteral("&Close all"))->SetEnabled(false);
    add(*add(root, QStringLiteral("&Recent files")), QStringLiteral("bookshop.dproj"));
}

void drawOwn(QObject* sender, TCanvas& canvas, const TRect& rect, TMenuOwnerDrawState state)
{
    const auto* item = qobject_cast<TMenuItem*>(sender);
    canvas.Brush.Color = state.testFlag(mdSelected) ? clHighlight : clInfoBk;
    canvas.Font.Color = state.testFlag(mdSelected) ? clHighlightText : clInfoText;
    if (state.testFlag(mdDisabled))
        canvas.Font.Color = clGrayText;
    canvas.FillRect(rect);
    canvas.Brush.Style = bsClear;
    const auto& menu = *dynamic_cast<const TPopupMenuEx*>(item->GetParentMenu());
    const auto rightToLeft = menu.UseRightToLeftAlignment();
    const auto iconLeft = rightToLeft ? rect.Right - 22 : rect.Left + 6;
    menu.Images()->Draw(*canvas.Handle(), iconLeft, rect.Top + 3, item->ImageIndex());
    if (state.testFlag(mdChecked) && item->ImageIndex() < 0)
        canvas.DrawText(QStringLiteral("x"), { iconLeft + 5, rect.Top + 3, rect.Right, rect.Bottom }, DT_SINGLELINE);
    canvas.DrawText(item->IsLine() ? QStringLiteral("* * *") : item->Caption(),
        { rect.Left + 28, rect.Top + 3, rect.Right - 28, rect.Bottom },
        DT_SINGLELINE | (rightToLeft ? DT_RIGHT | DT_RTLREADING : DT_LEFT));
}

// Pictures and painter of a menu, which must outlive it.
struct Parts {
    TImageList images;
    TImageList hot;
    RoundPainter own;
};

void dress(TPopupMenuEx& menu, Parts& parts, const Gallery::Look& look)
{
    fillList(parts.images, 130);
    fillList(parts.hot, 255);
    menu.SetImages(&parts.images);
    menu.SetHotImages(&parts.hot);
    menu.SetImageMargin({ 2, 2, 4, 2 });
    menu.SetTextMargin(3);
    menu.SetItemPainter(&parts.own);
    menu.OnMeasureItem = [](QObject*, TMenuItem*, int& width, int& height) {
        width = 150;
        height = 22;
    };
    menu.OnDrawItem = drawOwn;
    menu.SetStyle(look.style);
    menu.SetItemPainter(look.style == msItemPainter ? &parts.own : nullptr);
}

}

namespace Gallery {

const std::array<Look, 7> Looks { {
    { "standard", msStandard },
    { "ownerdraw", msOwnerDraw },
    { "btnlowered", msBtnLowered },
    { "btnraised", msBtnRaised },
    { "office", msOffice },
    { "xp", msXP },
    { "itempainter", msItemPainter },
} };

QPalette lightPalette()
{
    QPalette palette(QColor(236, 233, 230));
    palette.setColor(QPalette::Highlight, QColor(49, 106, 197));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

QPalette darkPalette()
{
    QPalette palette(QColor(58, 60, 64), QColor(46, 48, 52));
    palette.setColor(QPalette::Base, QColor(36, 38, 41));
    palette.setColor(QPalette::Light, QColor(78, 81, 86));
    palette.setColor(QPalette::Dark, QColor(124, 127, 132));
    palette.setColor(QPalette::Highlight, QColor(62, 108, 170));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

QImage picture(const Look& look, const QPalette& palette, Qt::LayoutDirection direction, const QFont& font)
{
    const auto before = QApplication::palette();
    QApplication::setPalette(palette);
    Parts parts;
    TPopupMenuEx menu;
    menu.setFont(font);
    menu.setPalette(palette);
    menu.setLayoutDirection(direction);
    dress(menu, parts, look);
    fillMenu(menu.Items());
    menu.Refresh();
    menu.resize(menu.sizeHint());
    menu.setActiveAction(menu.Items().Items(1));
    const auto image = menu.grab().toImage().convertToFormat(QImage::Format_RGB32);
    QApplication::setPalette(before);
    return image;
}

QImage sheet(const Look& look, const QFont& font)
{
    const QList<QImage> pictures { picture(look, lightPalette(), Qt::LeftToRight, font),
        picture(look, lightPalette(), Qt::RightToLeft, font), picture(look, darkPalette(), Qt::LeftToRight, font),
        picture(look, darkPalette(), Qt::RightToLeft, font) };
    int width = Gap;
    int height = 0;
    for (const auto& image : pictures) {
        width += image.width() + Gap;
        height = qMax(height, image.height());
    }
    QImage sheet(width, height + 2 * Gap, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    painter.fillRect(width / 2, 0, width, sheet.height(), QColor(30, 31, 34));
    int x = Gap;
    for (const auto& image : pictures) {
        painter.drawImage(x, Gap, image);
        x += image.width() + Gap;
    }
    return sheet;
}

}
