#include "rtl/Dialogs.h"

namespace {

MessageDlgHandler GHandler;

}

void SetMessageDlgHandler(MessageDlgHandler handler)
{
    GHandler = std::move(handler);
}

TModalResult MessageDlg(const QString& text, TMsgDlgType type, TMsgDlgButtons buttons, int)
{
    if (GHandler)
        return GHandler(text, type, buttons);
    if (buttons.testFlag(mbCancel))
        return mrCancel;
    return buttons.testFlag(mbNo) ? mrNo : mrOk;
}

void ShowMessage(const QString& text)
{
    MessageDlg(text, mtCustom, mbOK);
}
