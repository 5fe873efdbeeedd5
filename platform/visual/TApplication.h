#pragma once

#include <QObject>
#include <QString>

#include <cstdint>
#include <functional>

// What help is asked for: a page of the help, or a small window beside the thing pointed at.
inline constexpr int HELP_CONTEXT = 1;
inline constexpr int HELP_CONTEXTPOPUP = 8;

// What belongs to the program as a whole and to none of its windows.
class TApplication : public QObject {
    Q_OBJECT
public:
    // The one application of the process.
    static TApplication& Instance();

    // What the status line says about the thing pointed at; empty for nothing.
    const QString& Hint() const { return FHint; }
    void SetHint(const QString& hint);

    // Asks for help; false if nobody gives it.
    bool HelpContext(int context) { return HelpCommand(HELP_CONTEXT, context); }
    bool HelpCommand(int command, std::intptr_t data);
    // Set by the host that has help.
    std::function<bool(int command, std::intptr_t data)> OnHelp;

Q_SIGNALS:
    void HintChanged(const QString& hint);

private:
    TApplication() = default;

    QString FHint;
};
