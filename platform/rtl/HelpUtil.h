#pragma once

#include <QString>

#include <functional>

// Opens a page of the IDE's help: the collection by its namespace URL, the page by its topic URL. Both stand as the
// caller gives them, also with empty parts. Does nothing where the host has no help.
void ShowHelp(const QString& namespaceUrl, const QString& topicUrl);

// Set by the host that can show help; an empty one takes it back.
using HelpHandler = std::function<void(const QString& namespaceUrl, const QString& topicUrl)>;
void SetHelpHandler(HelpHandler handler);
