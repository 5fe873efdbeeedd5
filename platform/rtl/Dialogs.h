#pragma once

#include <QFlags>
#include <QString>

#include <functional>

enum TMsgDlgType { mtWarning, mtError, mtInformation, mtConfirmation, mtCustom };
enum TMsgDlgBtn {
    mbYes = 1 << 0,
    mbNo = 1 << 1,
    mbOK = 1 << 2,
    mbCancel = 1 << 3,
    mbAbort = 1 << 4,
    mbRetry = 1 << 5,
    mbIgnore = 1 << 6,
    mbAll = 1 << 7,
};
Q_DECLARE_FLAGS(TMsgDlgButtons, TMsgDlgBtn)
Q_DECLARE_OPERATORS_FOR_FLAGS(TMsgDlgButtons)

// Results of a modal dialog.
enum TModalResult {
    mrNone = 0,
    mrOk = 1,
    mrCancel = 2,
    mrAbort = 3,
    mrRetry = 4,
    mrIgnore = 5,
    mrYes = 6,
    mrNo = 7,
    mrAll = 8
};

// Asks the user and gives the button pressed; closing the box counts as Cancel where there is one, else as No, else OK.
TModalResult MessageDlg(const QString& text, TMsgDlgType type, TMsgDlgButtons buttons, int helpContext = 0);

// Tells the user something; there is only OK to press.
void ShowMessage(const QString& text);

// Set by whoever can ask: the workbench with a box, tests and the command line with an answer. Without one the answer
// is mrCancel where it is offered, else mrNo, else mrOk: nothing is changed that nobody agreed to.
using MessageDlgHandler = std::function<TModalResult(const QString&, TMsgDlgType, TMsgDlgButtons)>;
void SetMessageDlgHandler(MessageDlgHandler handler);
