#include "rtl/Guard.h"

#include <QDebug>

namespace {

ExceptionHandler GHandler;

}

void SetExceptionHandler(ExceptionHandler handler)
{
    GHandler = std::move(handler);
}

void ShowException(const Exception& exception)
{
    if (GHandler)
        GHandler(exception);
    else
        qWarning().noquote() << exception.Message();
}
