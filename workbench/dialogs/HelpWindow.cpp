#include "dialogs/HelpWindow.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QTextBrowser>

namespace {

// Shows pictures no wider than its text.
class GuideBrowser : public QTextBrowser {
public:
    using QTextBrowser::QTextBrowser;

protected:
    QVariant loadResource(int type, const QUrl& name) override
    {
        const auto loaded = QTextBrowser::loadResource(type, name);
        const auto bytes = loaded.toByteArray();
        const auto image = type == QTextDocument::ImageResource ? QImage::fromData(bytes) : QImage();
        constexpr int widest = 690;
        return image.width() > widest ? QVariant(image.scaledToWidth(widest, Qt::SmoothTransformation)) : loaded;
    }
};

}

QString HelpWindow::GuideFile()
{
    const QDir program(QCoreApplication::applicationDirPath());
    for (const auto* place :
        { "docs/user-guide.md", "../share/doc/morvane/user-guide.md", "../../../docs/user-guide.md" })
        if (const auto file = program.filePath(QString::fromLatin1(place)); QFileInfo::exists(file))
            return QDir::cleanPath(file);
    return {};
}

void HelpWindow::Show(QWidget& parent)
{
    auto* window = parent.findChild<QTextBrowser*>(QStringLiteral("HelpWindow"), Qt::FindDirectChildrenOnly);
    if (!window) {
        window = new GuideBrowser(&parent);
        window->setObjectName(QStringLiteral("HelpWindow"));
        window->setWindowFlag(Qt::Window);
        window->setWindowTitle(QObject::tr("Morvane User Guide"));
        window->resize(760, 700);
        QFile file(HelpWindow::GuideFile());
        window->setSearchPaths({ QFileInfo(file).absolutePath() });
        if (file.open(QIODevice::ReadOnly))
            window->setMarkdown(QString::fromUtf8(file.readAll()));
        else
            window->setPlainText(QObject::tr("The user guide is not here. It is docs/user-guide.md of the sources."));
    }
    window->show();
    window->raise();
    window->activateWindow();
}
