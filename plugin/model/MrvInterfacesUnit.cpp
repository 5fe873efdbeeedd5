#include "model/MrvInterfacesUnit.h"

#include "rtl/ControlWord.h"
#include "support/MrvUtils.h"

namespace {

unsigned GSavedControlWord = 0;

}

void MrvInterfaces::Initialization()
{
    try {
        TMrvUtils::AddLogMessage(QString());
        TMrvUtils::AddLogMessage(QStringLiteral("Try load Morvane...."));
        TMrvUtils::AddLogMessage(QStringLiteral("MrvInterfaces.Initialization - Try call Set8087CW"));
        GSavedControlWord = Get8087CW();
        Set8087CW(MCW_EM);
        TMrvUtils::AddLogMessage(QStringLiteral("MrvInterfaces.Initialization - success"));
    } catch (...) {
        TMrvUtils::AddLogMessage(QStringLiteral("MrvInterfaces.Initialization - Failed"));
    }
}

void MrvInterfaces::Finalization()
{
    try {
        TMrvUtils::AddLogMessage(QStringLiteral("MrvInterfaces.finalization - Try call Set8087CW"));
        Set8087CW(GSavedControlWord);
        TMrvUtils::AddLogMessage(QStringLiteral("MrvInterfaces.finalization - success"));
    } catch (...) {
        TMrvUtils::AddLogMessage(QStringLiteral("MrvInterfaces.finalization - Failed"));
    }
}
