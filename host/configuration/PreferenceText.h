#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

// Reads and edits single preferences in the text of a configuration file; what is not edited stays to the byte. The
// text is UTF-8.

// The first value of that name, without regard to case; nothing when there is none or the text is no XML up to it.
std::optional<QString> PreferenceIn(const QByteArray& content, const QString& name);

// The content with the preference set, in its line or a new last one. Nothing when the content has no place for
// preferences, or is in another encoding.
std::optional<QByteArray> WithPreference(const QByteArray& content, const QString& name, const QString& value);

// The content with the preferences of another one. Nothing when either has none.
std::optional<QByteArray> WithPreferencesOf(const QByteArray& content, const QByteArray& other);
