#include "visual/TApplication.h"

TApplication& TApplication::Instance()
{
    static TApplication application;
    return application;
}

void TApplication::SetHint(const QString& hint)
{
    if (hint == FHint)
        return;
    FHint = hint;
    Q_EMIT HintChanged(hint);
}

bool TApplication::HelpCommand(int command, std::intptr_t data)
{
    return OnHelp && OnHelp(command, data);
}
