// menus_gallery [-o DIR]: shows the menu styles in a window, or writes a picture of each into DIR.
#include "menus/gallery/Gallery.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QLabel>
#include <QScrollArea>
#include <QTextStream>
#include <QVBoxLayout>

namespace {

QFont galleryFont()
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(12);
    return font;
}

bool writeAll(const QString& folder)
{
    QDir().mkpath(folder);
    for (const auto& look : Gallery::Looks) {
        const auto file = QDir(folder).filePath(QStringLiteral("menus-%1.png").arg(QLatin1String(look.name)));
        if (!Gallery::sheet(look, galleryFont()).save(file)) {
            QTextStream(stderr) << file << ": cannot be written\n";
            return false;
        }
    }
    return true;
}

QWidget* makeWindow()
{
    auto* area = new QScrollArea;
    auto* sheets = new QWidget;
    auto* column = new QVBoxLayout(sheets);
    for (const auto& look : Gallery::Looks) {
        column->addWidget(new QLabel(QLatin1String(look.name)));
        auto* picture = new QLabel;
        picture->setPixmap(QPixmap::fromImage(Gallery::sheet(look, galleryFont())));
        column->addWidget(picture);
    }
    area->setWidget(sheets);
    area->setWindowTitle(QStringLiteral("Menu styles"));
    return area;
}

}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    QCommandLineParser arguments;
    const QCommandLineOption output(
        QStringLiteral("o"), QStringLiteral("Write the pictures into this folder."), QStringLiteral("DIR"));
    arguments.addOption(output);
    arguments.addHelpOption();
    arguments.process(application);
    if (arguments.isSet(output))
        return writeAll(arguments.value(output)) ? 0 : 1;
    const std::unique_ptr<QWidget> window(makeWindow());
    window->resize(900, 600);
    window->show();
    return QApplication::exec();
}
