#pragma once

#include <QString>

#include <exception>

// Class operations that all subsystems share. The sources are split by topic: MrvUtilsLog, MrvUtilsHelp.
class TMrvUtils {
public:
    // Appends a line to the log when the user has turned the log on: the preference "DebugMode" is "True" and the file
    // stands in the directory of "DebugPath" (empty: beside the host's executable). Never fails.
    static void AddLogMessage(const QString& message);
    // The two lines of a caught failure: the operation's own text, then "Exception.Message is '" + message + "'".
    static void LogFailure(const QString& text, const std::exception& exception);

    // Opens the help topic of the tool in the IDE's help. There is one topic, whatever the context.
    static void ShowHelp(int helpContext);
    // The first of Products whose help file is installed; empty when none is.
    static QString FindHelpProduct();
};
