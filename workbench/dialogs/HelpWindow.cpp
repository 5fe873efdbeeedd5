#include "dialogs/HelpWindow.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextBrowser>

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
        window = new QTextBrowser(&parent);
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
