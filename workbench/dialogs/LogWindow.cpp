#include "dialogs/LogWindow.h"

#include "configuration/UserConfiguration.h"

#include <QFontDatabase>
#include <QPlainTextEdit>

void LogWindow::Show(QWidget& parent, const UserConfiguration& configuration)
{
    auto* window = parent.findChild<QPlainTextEdit*>(QStringLiteral("LogWindow"), Qt::FindDirectChildrenOnly);
    if (!window) {
        window = new QPlainTextEdit(&parent);
        window->setObjectName(QStringLiteral("LogWindow"));
        window->setWindowFlag(Qt::Window);
        window->setReadOnly(true);
        window->setLineWrapMode(QPlainTextEdit::NoWrap);
        window->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        window->resize(900, 600);
    }
    const auto entries = configuration.Log();
    window->setWindowTitle(QObject::tr("Log - %1").arg(configuration.LogFileName()));
    window->setPlainText(entries.isEmpty()
            ? QObject::tr("Nothing is written down. Tools > Keep a Log turns the log on.")
            : entries.join(u'\n'));
    window->show();
    window->raise();
    window->activateWindow();
}
