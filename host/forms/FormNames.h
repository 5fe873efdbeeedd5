#pragma once

#include "forms/FormNode.h"

#include <QByteArray>

#include <optional>

// What the header of a node says.
struct FormNames {
    FormNode::Kind kind = FormNode::Kind::Object;
    QByteArray className;
    QByteArray name;
    std::optional<int> index;
    bool operator==(const FormNames&) const = default;
};
