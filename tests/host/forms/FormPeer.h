#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

// The compiler's own stream reader, run as a process over bytes that a test has.
class FormPeer {
public:
    static bool IsThere(); // false where it was not built, since the compiler is missing

    // What it makes of each input, text to binary and binary to text, in their order; nothing where it refuses one.
    static QList<std::optional<QByteArray>> Convert(const QList<QByteArray>& inputs);
};
