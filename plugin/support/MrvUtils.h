#pragma once

#include <QString>

// Class operations that all subsystems share. The sources are split by topic: MrvUtilsLog, MrvUtilsHelp.
class TMrvUtils {
public:
    // Appends a line to the log when the user has turned the log on: the preference "DebugMode" is "True" and the file
    // stands in the directory of "DebugPath" (empty: beside the host's executable). Never fails.
    static void AddLogMessage(const QString& message);

    // Opens the help topic of the tool in the IDE's help. There is one topic, whatever the context.
    static void ShowHelp(int helpContext);
    // The first of Products whose help file is installed; empty when none is.
    static QString FindHelpProduct();
};
