#include "designer/ControlPainter.h"

#include "classes/Forms.h"
#include "designer/PropertyReading.h"
#include "visual/TColor.h"

#include <QApplication>
#include <QHash>
#include <QStyle>

using namespace PropertyReading;

namespace {

struct DrawRow {
    const char* Kind;
    ControlPainter::Draw Paint;
};

constexpr DrawRow DrawRows[] = {
    { "form", &ControlPainter::DrawPanel },
    { "panel", &ControlPainter::DrawPanel },
    { "group", &ControlPainter::DrawGroup },
    { "tabs", &ControlPainter::DrawTabs },
    { "tabsheet", &ControlPainter::DrawPage },
    { "toolbar", &ControlPainter::DrawToolBar },
    { "toolbutton", &ControlPainter::DrawToolButton },
    { "statusbar", &ControlPainter::DrawStatusBar },
    { "splitter", &ControlPainter::DrawSplitter },
    { "bevel", &ControlPainter::DrawBevel },
    { "shape", &ControlPainter::DrawShape },
    { "image", &ControlPainter::DrawImage },
    { "label", &ControlPainter::DrawLabel },
    { "edit", &ControlPainter::DrawEdit },
    { "memo", &ControlPainter::DrawMemo },
    { "button", &ControlPainter::DrawButton },
    { "check", &ControlPainter::DrawCheck },
    { "radio", &ControlPainter::DrawRadio },
    { "radiogroup", &ControlPainter::DrawRadioGroup },
    { "combo", &ControlPainter::DrawCombo },
    { "list", &ControlPainter::DrawList },
    { "tree", &ControlPainter::DrawList },
    { "listview", &ControlPainter::DrawListView },
    { "grid", &ControlPainter::DrawGrid },
    { "navigator", &ControlPainter::DrawNavigator },
    { "progress", &ControlPainter::DrawProgress },
    { "trackbar", &ControlPainter::DrawTrackBar },
    { "scrollbar", &ControlPainter::DrawScrollBar },
    { "chart", &ControlPainter::DrawChart },
};

ControlPainter::Draw DrawOf(const QString& kind)
{
    static const auto rows = [] {
        QHash<QString, ControlPainter::Draw> made;
        for (const auto& row : DrawRows)
            made.insert(QString::fromLatin1(row.Kind), row.Paint);
        return made;
    }();
    return rows.value(kind, &ControlPainter::DrawBox);
}

// The pixel height of a stored font; 0 for a control that has its parent's.
int StoredFontHeight(const TComponent& component)
{
    const auto* font = component.SubObject(QStringLiteral("Font"));
    const auto height = font ? font->StoredValue(QStringLiteral("Height")).toInt() : 0;
    return height < 0 ? -height : 0;
}

}

ControlPainter::ControlPainter(
    QPainter& painter, const FormLayout& layout, const QPalette& palette, const PackageList& packages)
    : FPainter(painter)
    , FLayout(layout)
    , FPalette(palette)
    , FPackages(packages)
{
    const auto* form = dynamic_cast<const TCustomForm*>(layout.Root());
    FBaseFont = QApplication::font();
    FBaseFont.setPixelSize(form ? form->FontPixelHeight() : 12);
}

void ControlPainter::Paint(const LaidOut& item)
{
    FControl = item.Component.get();
    if (!FControl)
        return;
    FInfo = &FLayout.Info(FControl->ClassType());
    FRect = item.Rect;
    FPainter.save();
    FPainter.setFont(FontOf(*FControl));
    if (item.IsIcon) {
        DrawIcon();
    } else {
        if (item.Draw != u"label")
            FPainter.setClipRect(item.Visible, Qt::IntersectClip);
        (this->*DrawOf(item.Draw))();
    }
    FPainter.restore();
}

QFont ControlPainter::FontOf(const TComponent& component) const
{
    auto font = FBaseFont;
    for (const auto* walk = &component; walk && walk != FLayout.Root(); walk = walk->GetParentComponent())
        if (const auto height = StoredFontHeight(*walk)) {
            font.setPixelSize(height);
            break;
        }
    const auto style = ValueAt(component, QStringLiteral("Font.Style")).toStringList();
    font.setBold(style.contains(u"fsBold"));
    font.setItalic(style.contains(u"fsItalic"));
    font.setUnderline(style.contains(u"fsUnderline"));
    return font;
}

QColor ControlPainter::ColorOf(const QString& property, const QColor& otherwise) const
{
    const auto value = StoredAt(*FControl, property);
    if (!value.isValid())
        return otherwise;
    bool isNumber = false;
    const auto number = value.toLongLong(&isNumber);
    const auto named = FPackages.IdentToInt(QStringLiteral("TColor"), value.toString());
    if (!isNumber && !named)
        return otherwise;
    const auto color = TColor(isNumber ? number : *named);
    const bool isFace = color == clBtnFace || color == clDefault || color == clNone;
    return isFace ? otherwise : ToQColor(color, FPalette);
}

QString ControlPainter::Caption() const
{
    const auto text = TextAt(*FControl, FInfo->CaptionProperty);
    const auto* control = dynamic_cast<const TControl*>(FControl);
    return text.isEmpty() && control && FInfo->CaptionProperty.isEmpty() ? control->Caption() : text;
}

QString ControlPainter::TextOrField() const
{
    const auto caption = Caption();
    return caption.isEmpty() ? TextAt(*FControl, FInfo->Bindings.Field) : caption;
}

Qt::Alignment ControlPainter::Alignment(Qt::Alignment vertical) const
{
    const auto stored = TextAt(*FControl, QStringLiteral("Alignment"));
    if (stored == u"taRightJustify")
        return Qt::AlignRight | vertical;
    return (stored == u"taCenter" ? Qt::AlignHCenter : Qt::AlignLeft) | vertical;
}

QStyle& ControlPainter::Style()
{
    return *QApplication::style();
}

void ControlPainter::Prepare(QStyleOption& option, const QRect& rect) const
{
    option.rect = rect;
    option.palette = FPalette;
    option.state = QStyle::State_None;
    if (FlagAt(*FControl, QStringLiteral("Enabled"), true))
        option.state |= QStyle::State_Enabled;
    else
        option.palette.setCurrentColorGroup(QPalette::Disabled);
    option.fontMetrics = QFontMetrics(FPainter.font());
    option.direction = Qt::LeftToRight;
}

void ControlPainter::DrawText(const QRect& rect, Qt::Alignment alignment, const QString& text, int flags)
{
    const bool enabled = FlagAt(*FControl, QStringLiteral("Enabled"), true);
    const auto own = ColorOf(QStringLiteral("Font.Color"), FPalette.color(QPalette::WindowText));
    FPainter.setPen(enabled ? own : FPalette.color(QPalette::Disabled, QPalette::WindowText));
    FPainter.drawText(rect, int(alignment) | flags, text);
}

void ControlPainter::PaintRoot(const QRect& client, int titleHeight)
{
    const auto* root = FLayout.Root();
    FControl = root;
    FInfo = &FLayout.Info(root->ClassType());
    FPainter.save();
    if (titleHeight > 0) {
        const auto frame = client.adjusted(-1, -titleHeight, 1, 1);
        FPainter.setPen(FPalette.color(QPalette::Mid));
        FPainter.setBrush(FPalette.color(QPalette::Base));
        FPainter.drawRect(frame.adjusted(0, 0, -1, -1));
        auto font = QApplication::font();
        FPainter.setFont(font);
        FPainter.setPen(FPalette.color(QPalette::Text));
        const auto title = frame.adjusted(12, 1, -110, 0);
        FPainter.drawText(QRect(title.topLeft(), QSize(title.width(), titleHeight - 1)),
            Qt::AlignVCenter | Qt::AlignLeft, dynamic_cast<const TControl*>(root) ? Caption() : QString());
        const int y = frame.top() + titleHeight / 2;
        const int x = frame.right() - 20;
        FPainter.setRenderHint(QPainter::Antialiasing);
        FPainter.setPen(QPen(FPalette.color(QPalette::Text), 1));
        FPainter.drawLine(x - 5, y - 5, x + 5, y + 5);
        FPainter.drawLine(x - 5, y + 5, x + 5, y - 5);
        FPainter.setBrush(Qt::NoBrush);
        FPainter.drawRect(x - 39, y - 5, 10, 10);
        FPainter.drawLine(x - 73, y, x - 63, y);
        FPainter.setRenderHint(QPainter::Antialiasing, false);
    }
    const auto face = FPalette.color(FLayout.IsContainer() ? QPalette::Base : QPalette::Window);
    FPainter.fillRect(client, FLayout.IsContainer() ? face : ColorOf(QStringLiteral("Color"), face));
    if (titleHeight == 0) {
        FPainter.setPen(FPalette.color(QPalette::Mid));
        FPainter.setBrush(Qt::NoBrush);
        FPainter.drawRect(client.adjusted(-1, -1, 0, 0));
    }
    FPainter.restore();
}

// A class that no catalogue draws: where it is, and what it is.
void ControlPainter::DrawBox()
{
    FPainter.setPen(QPen(FPalette.color(QPalette::Mid), 1, Qt::DashLine));
    FPainter.setBrush(FPalette.color(QPalette::AlternateBase));
    FPainter.drawRect(FRect.adjusted(0, 0, -1, -1));
    const auto* parent = dynamic_cast<const TWinControl*>(FControl);
    const bool holdsOthers = parent && !parent->Controls().isEmpty();
    FPainter.setPen(FPalette.color(QPalette::PlaceholderText));
    FPainter.drawText(FRect.adjusted(3, 1, -3, -1), holdsOthers ? Qt::AlignLeft | Qt::AlignTop : Qt::AlignCenter,
        FControl->Name() + u'\n' + FControl->ClassName());
}

namespace {

struct IconFace {
    const char* Family;
    const char16_t* Glyph;
    QRgb Color;
};

// By family, the nearest first.
constexpr IconFace IconFaces[] = {
    { "TDataSource", u"\u21C4", 0xFF8A5FBF },
    { "TCustomZAConnection", u"\u26C1", 0xFF3F7D58 },
    { "TDataSet", u"\u25A6", 0xFF2F6DB5 },
    { "TCustomZASQL", u"Q", 0xFFB5712F },
    { "TZAScript", u"S", 0xFFB5712F },
    { "TMenu", u"\u2630", 0xFF6B7280 },
    { "TCustomActionList", u"\u26A1", 0xFF6B7280 },
    { "TCustomImageList", u"\u25A3", 0xFF6B7280 },
    { "TTimer", u"\u25F7", 0xFF6B7280 },
};

QString GlyphOf(const TComponent& component, QColor& color)
{
    for (const auto& face : IconFaces)
        if (component.ClassType().InheritsFromNamed(QString::fromLatin1(face.Family))) {
            color = QColor::fromRgba(face.Color);
            return QString::fromUtf16(face.Glyph);
        }
    color = QColor(0x6B, 0x72, 0x80);
    return component.ClassName().mid(1, 2);
}

}

void ControlPainter::DrawIcon()
{
    const QPixmap picture = FInfo->Bitmap.isEmpty() ? QPixmap() : QPixmap(FInfo->Bitmap);
    FPainter.setRenderHint(QPainter::Antialiasing);
    QColor color;
    const auto glyph = GlyphOf(*FControl, color);
    FPainter.setPen(FPalette.color(QPalette::Mid));
    FPainter.setBrush(FPalette.color(QPalette::Button));
    FPainter.drawRoundedRect(QRectF(FRect).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    const auto inner = FRect.adjusted(5, 5, -5, -5);
    if (!picture.isNull()) {
        FPainter.drawPixmap(inner, picture);
    } else {
        FPainter.setPen(Qt::NoPen);
        FPainter.setBrush(color);
        FPainter.drawRoundedRect(inner.adjusted(-1, -1, 1, 1), 3, 3);
        auto font = QApplication::font();
        font.setPixelSize(glyph.size() > 1 ? 10 : 13);
        font.setBold(true);
        FPainter.setFont(font);
        FPainter.setPen(Qt::white);
        FPainter.drawText(inner, Qt::AlignCenter, glyph);
    }
    auto font = FBaseFont;
    font.setPixelSize(11);
    FPainter.setFont(font);
    FPainter.setPen(FPalette.color(FLayout.IsContainer() ? QPalette::Text : QPalette::WindowText));
    FPainter.drawText(
        QRect(FRect.center().x() - 80, FRect.bottom() + 2, 160, 16), Qt::AlignHCenter | Qt::AlignTop, FControl->Name());
}

void ControlPainter::DrawPanel()
{
    FPainter.fillRect(FRect, ColorOf(QStringLiteral("Color"), FPalette.color(QPalette::Window)));
    const auto bevel = TextAt(*FControl, QStringLiteral("BevelOuter"));
    if (bevel != u"bvNone" && !bevel.isEmpty()) {
        auto option = Styled<QStyleOptionFrame>(FRect);
        option.lineWidth = 1;
        option.state |= bevel == u"bvLowered" ? QStyle::State_Sunken : QStyle::State_Raised;
        Style().drawPrimitive(QStyle::PE_Frame, &option, &FPainter);
    }
    const bool shows = FlagAt(*FControl, QStringLiteral("ShowCaption"), true);
    if (shows)
        DrawText(FRect, Qt::AlignCenter, Caption());
}

void ControlPainter::DrawGroup()
{
    auto option = Styled<QStyleOptionGroupBox>(FRect);
    const auto caption = Caption();
    const int top = option.fontMetrics.height() / 2;
    FPainter.setPen(FPalette.color(QPalette::Mid));
    FPainter.setBrush(Qt::NoBrush);
    FPainter.drawRoundedRect(FRect.adjusted(0, top, -1, -1), 2, 2);
    if (caption.isEmpty())
        return;
    const QRect title(FRect.x() + 8, FRect.y(), option.fontMetrics.horizontalAdvance(caption) + 4, top * 2);
    FPainter.fillRect(title, FPalette.color(QPalette::Window));
    DrawText(title, Qt::AlignCenter, caption);
}

void ControlPainter::DrawTabs()
{
    const auto pages = FLayout.PagesOf(*FControl);
    QStringList captions;
    for (const auto* page : pages)
        captions << TextAt(*page, QStringLiteral("Caption"));
    if (pages.isEmpty())
        captions = TextAt(*FControl, QStringLiteral("Tabs")).split(u'\n', Qt::SkipEmptyParts);
    FPainter.fillRect(FRect, FPalette.color(QPalette::Window));
    FPainter.setPen(FPalette.color(QPalette::Mid));
    FPainter.setBrush(FPalette.color(QPalette::Window));
    FPainter.drawRect(FRect.adjusted(0, 24, -1, -1));
    const auto rects = FLayout.TabRects(FRect, captions);
    const auto front = pages.isEmpty() ? 0 : pages.indexOf(FLayout.FrontPage(*FControl));
    for (qsizetype i = 0; i < rects.size(); ++i) {
        auto option = Styled<QStyleOptionTab>(rects[i]);
        option.text = captions[i];
        option.shape = QTabBar::RoundedNorth;
        if (i == front)
            option.state |= QStyle::State_Selected;
        Style().drawControl(QStyle::CE_TabBarTab, &option, &FPainter);
    }
}

void ControlPainter::DrawPage()
{
    FPainter.fillRect(FRect, FPalette.color(QPalette::Window));
}

void ControlPainter::DrawToolBar()
{
    auto option = Styled<QStyleOptionToolBar>(FRect);
    option.state |= QStyle::State_Horizontal;
    FPainter.fillRect(FRect, FPalette.color(QPalette::Window));
    Style().drawControl(QStyle::CE_ToolBar, &option, &FPainter);
}

void ControlPainter::DrawToolButton()
{
    if (TextAt(*FControl, QStringLiteral("Style")).contains(u"Separator")
        || TextAt(*FControl, QStringLiteral("Style")) == u"tbsDivider") {
        FPainter.setPen(FPalette.color(QPalette::Mid));
        FPainter.drawLine(FRect.center().x(), FRect.y() + 3, FRect.center().x(), FRect.bottom() - 3);
        return;
    }
    FPainter.setPen(FPalette.color(QPalette::Midlight));
    FPainter.setBrush(FPalette.color(QPalette::Button));
    FPainter.drawRoundedRect(FRect.adjusted(1, 1, -2, -2), 2, 2);
    DrawText(FRect, Qt::AlignCenter, Caption().isEmpty() ? QString(QChar(0x25AB)) : Caption());
}

void ControlPainter::DrawStatusBar()
{
    FPainter.fillRect(FRect, FPalette.color(QPalette::Window));
    FPainter.setPen(FPalette.color(QPalette::Mid));
    FPainter.drawLine(FRect.topLeft(), FRect.topRight());
    const auto* panels = dynamic_cast<TCollection*>(ObjectAt(*FControl, QStringLiteral("Panels")));
    if (!panels || panels->Count() == 0) {
        DrawText(FRect.adjusted(4, 0, -4, 0), Qt::AlignLeft | Qt::AlignVCenter, Caption());
        return;
    }
    int left = FRect.x();
    for (int i = 0; i < panels->Count(); ++i) {
        const auto& panel = *panels->Item(i);
        const int width = NumberAt(panel, QStringLiteral("Width"), 50);
        DrawText(QRect(left + 4, FRect.y(), width - 8, FRect.height()), Qt::AlignLeft | Qt::AlignVCenter,
            TextAt(panel, QStringLiteral("Text")));
        left += width;
        if (i + 1 < panels->Count()) {
            FPainter.setPen(FPalette.color(QPalette::Mid));
            FPainter.drawLine(left, FRect.y() + 3, left, FRect.bottom() - 2);
        }
    }
}

void ControlPainter::DrawSplitter()
{
    FPainter.fillRect(FRect, FPalette.color(QPalette::Window));
    FPainter.setPen(FPalette.color(QPalette::Mid));
    const auto center = FRect.center();
    if (FRect.width() < FRect.height())
        FPainter.drawLine(center.x(), center.y() - 12, center.x(), center.y() + 12);
    else
        FPainter.drawLine(center.x() - 12, center.y(), center.x() + 12, center.y());
}

void ControlPainter::DrawBevel()
{
    auto option = Styled<QStyleOptionFrame>(FRect);
    option.lineWidth = 1;
    option.state |= QStyle::State_Sunken;
    Style().drawPrimitive(QStyle::PE_Frame, &option, &FPainter);
}

void ControlPainter::DrawShape()
{
    FPainter.setPen(ColorOf(QStringLiteral("Pen.Color"), FPalette.color(QPalette::WindowText)));
    FPainter.setBrush(ColorOf(QStringLiteral("Brush.Color"), FPalette.color(QPalette::Base)));
    const auto shape = TextAt(*FControl, QStringLiteral("Shape"));
    FPainter.setRenderHint(QPainter::Antialiasing);
    if (shape == u"stCircle" || shape == u"stEllipse")
        FPainter.drawEllipse(FRect.adjusted(0, 0, -1, -1));
    else
        FPainter.drawRect(FRect.adjusted(0, 0, -1, -1));
}

void ControlPainter::DrawImage()
{
    FPainter.setPen(QPen(FPalette.color(QPalette::Mid), 1, Qt::DashLine));
    FPainter.setBrush(Qt::NoBrush);
    FPainter.drawRect(FRect.adjusted(0, 0, -1, -1));
    const auto text = TextOrField();
    if (!text.isEmpty()) {
        DrawText(FRect, Qt::AlignCenter, text);
        return;
    }
    // A hill and a sun, as pictures stand for themselves.
    const int size = std::min({ FRect.width(), FRect.height(), 48 }) - 8;
    if (size < 8)
        return;
    const QRect at(FRect.center() - QPoint(size / 2, size / 2), QSize(size, size));
    FPainter.setRenderHint(QPainter::Antialiasing);
    FPainter.setPen(QPen(FPalette.color(QPalette::Mid), 2));
    FPainter.drawPolyline(QPolygon { { at.x(), at.bottom() }, { at.x() + size / 3, at.y() + size / 2 },
        { at.x() + size / 2, at.y() + 2 * size / 3 }, { at.x() + 2 * size / 3, at.y() + size / 3 },
        { at.right(), at.bottom() } });
    FPainter.drawEllipse(QPoint(at.x() + size / 4, at.y() + size / 4), size / 8, size / 8);
}

void ControlPainter::DrawChart()
{
    FPainter.setPen(FPalette.color(QPalette::Mid));
    FPainter.setBrush(FPalette.color(QPalette::Base));
    FPainter.drawRect(FRect.adjusted(0, 0, -1, -1));
    static constexpr int Heights[] = { 40, 70, 55, 85, 30 };
    const int width = FRect.width() / 8;
    for (int i = 0; i < 5; ++i) {
        const int height = FRect.height() * Heights[i] / 110;
        FPainter.fillRect(
            QRect(FRect.x() + width + i * (width + width / 4), FRect.bottom() - 4 - height, width, height),
            FPalette.color(QPalette::Highlight));
    }
}
