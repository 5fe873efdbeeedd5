#include "dialogs/Questions.h"

#include "data/TCustomZAConnection.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>

namespace {

struct ButtonRow {
    TMsgDlgBtn Button;
    QMessageBox::StandardButton Shown;
    TModalResult Result;
};

constexpr ButtonRow ButtonRows[] = {
    { mbYes, QMessageBox::Yes, mrYes },
    { mbNo, QMessageBox::No, mrNo },
    { mbOK, QMessageBox::Ok, mrOk },
    { mbCancel, QMessageBox::Cancel, mrCancel },
    { mbAbort, QMessageBox::Abort, mrAbort },
    { mbRetry, QMessageBox::Retry, mrRetry },
    { mbIgnore, QMessageBox::Ignore, mrIgnore },
    { mbAll, QMessageBox::YesToAll, mrAll },
};

QMessageBox::Icon IconOf(TMsgDlgType type)
{
    switch (type) {
    case mtWarning:
        return QMessageBox::Warning;
    case mtError:
        return QMessageBox::Critical;
    case mtConfirmation:
        return QMessageBox::Question;
    default:
        return QMessageBox::Information;
    }
}

TModalResult Ask(QWidget& window, const QString& text, TMsgDlgType type, TMsgDlgButtons buttons)
{
    QMessageBox::StandardButtons shown;
    for (const auto& row : ButtonRows)
        if (buttons.testFlag(row.Button))
            shown |= row.Shown;
    QMessageBox box(IconOf(type), QStringLiteral("Morvane"), text, shown, &window);
    const auto pressed = box.exec();
    for (const auto& row : ButtonRows)
        if (pressed == row.Shown)
            return row.Result;
    return buttons.testFlag(mbCancel) ? mrCancel : buttons.testFlag(mbNo) ? mrNo : mrOk;
}

bool AskForLogin(QWidget& window, const TCustomZAConnection& connection, TConnectionParameters& parameters)
{
    QDialog dialog(&window);
    dialog.setWindowTitle(QObject::tr("Log in"));
    auto* layout = new QFormLayout(&dialog);
    layout->addRow(
        new QLabel(QObject::tr("%1 on %2")
                       .arg(parameters.Database, parameters.Server.isEmpty() ? connection.Name() : parameters.Server)));
    auto* user = new QLineEdit(parameters.UserName);
    auto* password = new QLineEdit;
    password->setEchoMode(QLineEdit::Password);
    layout->addRow(QObject::tr("&User:"), user);
    layout->addRow(QObject::tr("&Password:"), password);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    layout->addRow(buttons);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    (user->text().isEmpty() ? user : password)->setFocus();
    if (dialog.exec() != QDialog::Accepted)
        return false;
    parameters.UserName = user->text();
    parameters.Password = password->text();
    return true;
}

}

MessageDlgHandler Questions::MessageBox(QWidget& window)
{
    return [&window](const QString& text, TMsgDlgType type, TMsgDlgButtons buttons) {
        return Ask(window, text, type, buttons);
    };
}

ExceptionHandler Questions::ExceptionBox(QWidget& window)
{
    return [&window](const Exception& exception) { Ask(window, exception.Message(), mtError, mbOK); };
}

SqlDataAccess::Login Questions::Login(QWidget& window)
{
    return [&window](const TCustomZAConnection& connection, TConnectionParameters& parameters) {
        return AskForLogin(window, connection, parameters);
    };
}
