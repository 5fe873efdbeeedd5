#pragma once

#include <QCoreApplication>
#include <QString>

// A text of the product as a resource: a constant that gives its translation at each use, and the text itself where no
// translation is installed.
class TResourceString {
public:
    constexpr explicit TResourceString(const char* source)
        : FSource(source)
    {
    }
    QString Text() const { return QCoreApplication::translate("Morvane", FSource); }
    operator QString() const { return Text(); }

private:
    const char* FSource;
};
