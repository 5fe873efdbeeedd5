#include "rtl/HelpUtil.h"

namespace {

HelpHandler GHandler;

}

void SetHelpHandler(HelpHandler handler)
{
    GHandler = std::move(handler);
}

void ShowHelp(const QString& namespaceUrl, const QString& topicUrl)
{
    if (GHandler)
        GHandler(namespaceUrl, topicUrl);
}
