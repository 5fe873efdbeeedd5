// Measuring and painting a menu of a thousand items in each style, beside a plain QMenu of the same items.
#include "menus/gallery/Gallery.h"

#include <QApplication>
#include <QPainter>

#include <benchmark/benchmark.h>

namespace {

constexpr int Items = 1000;

QString caption(int number)
{
    return QStringLiteral("&Item number %1").arg(number);
}

TShortCut shortCut(int number)
{
    return number % 3 == 0 ? scCtrl | ('A' + number % 26) : scNone;
}

QImage icon()
{
    QImage image(16, 16, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.fillRect(2, 2, 12, 12, Qt::darkGreen);
    return image;
}

void fill(QMenu& menu)
{
    const QIcon picture(QPixmap::fromImage(icon()));
    for (int i = 0; i < Items; ++i)
        menu.addAction(picture, caption(i))->setShortcut(ToKeySequence(shortCut(i)));
}

void fill(TPopupMenuEx& menu)
{
    for (int i = 0; i < Items; ++i) {
        auto* item = new TMenuItem;
        item->SetCaption(caption(i));
        item->SetShortCut(shortCut(i));
        item->SetImageIndex(0);
        menu.Items().Add(item);
    }
}

void paint(benchmark::State& state, QMenu& menu)
{
    menu.resize(menu.sizeHint());
    QImage image(menu.size(), QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
        menu.render(&image);
}

void measure(benchmark::State& state, QMenu& menu)
{
    for (auto _ : state) {
        QEvent changed(QEvent::StyleChange);
        QCoreApplication::sendEvent(&menu, &changed);
        benchmark::DoNotOptimize(menu.sizeHint());
    }
}

using Work = void (*)(benchmark::State&, QMenu&);

void plain(benchmark::State& state, Work work)
{
    QMenu menu;
    fill(menu);
    work(state, menu);
}

void styled(benchmark::State& state, Work work, TMenuStyle style)
{
    TImageList images;
    images.Add(TBitmap(icon()));
    TPopupMenuEx menu;
    menu.SetImages(&images);
    menu.SetStyle(style);
    fill(menu);
    menu.Refresh();
    work(state, menu);
}

void add(const char* what, Work work)
{
    const auto name = std::string(what) + '/';
    benchmark::RegisterBenchmark((name + "QMenu").c_str(), [work](benchmark::State& state) {
        plain(state, work);
    })->Unit(benchmark::kMillisecond);
    for (const auto& look : Gallery::Looks) {
        if (look.style == msOwnerDraw || look.style == msItemPainter)
            continue;
        benchmark::RegisterBenchmark((name + look.name).c_str(), [work, look](benchmark::State& state) {
            styled(state, work, look.style);
        })->Unit(benchmark::kMillisecond);
    }
}

}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    add("Paint", paint);
    add("Measure", measure);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
