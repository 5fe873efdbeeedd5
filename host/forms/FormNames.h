#pragma once

#include "forms/FormNode.h"

#include <QByteArray>

#include <optional>

// What the header of a node says.
struct FormNames {
    FormNode::Kind Kind = FormNode::Kind::Object;
    QByteArray ClassName;
    QByteArray Name;
    std::optional<int> Index;
    bool operator==(const FormNames&) const = default;
};
