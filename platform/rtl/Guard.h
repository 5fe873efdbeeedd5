#pragma once

#include "rtl/SysUtils.h"

#include <functional>

// Shows an exception that nobody caught to the user. Set by the host; without one it goes to the process's log.
using ExceptionHandler = std::function<void(const Exception&)>;
void SetExceptionHandler(ExceptionHandler handler);
void ShowException(const Exception& exception);

// Runs work at the border of an event, a slot or a timer: nothing that it raises goes further. EAbort is silent, every
// other exception is shown.
template <class Work>
void AtEventBorder(Work&& work)
{
    try {
        work();
    } catch (const EAbort&) {
    } catch (const Exception& exception) {
        ShowException(exception);
    } catch (const std::exception& exception) {
        ShowException(Exception(QString::fromUtf8(exception.what())));
    }
}

// Runs a function when the scope ends, also by an exception: a bracket that closes by construction.
class Finally {
public:
    explicit Finally(std::function<void()> close)
        : FClose(std::move(close))
    {
    }
    Finally(const Finally&) = delete;
    Finally& operator=(const Finally&) = delete;
    ~Finally() { FClose(); }

private:
    std::function<void()> FClose;
};
