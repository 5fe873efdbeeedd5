#include "forms/FormSayable.h"

#include "forms/FormLexer.h"

namespace {

// Names parted by dots, without blanks.
bool isName(QByteArrayView text)
{
    FormLexer lexer(text);
    qsizetype end = 0;
    for (auto token = lexer.next(); token.kind == FormToken::Kind::Symbol && token.begin == end; token = lexer.next()) {
        end = token.end;
        if (end == text.size())
            return true;
        if (token = lexer.next(); !token.is('.') || token.begin != end)
            return false;
        end = token.end;
    }
    return false;
}

bool isKeyword(const QString& name, bool inItem)
{
    static const QStringList words { QStringLiteral("end"), QStringLiteral("object"), QStringLiteral("inherited"),
        QStringLiteral("inline") };
    const auto found = words.indexOf(name.toLower());
    return found == 0 || (found > 0 && !inItem);
}

std::optional<QString> checked(const QString& name)
{
    return isName(name.toUtf8()) ? std::nullopt : std::optional(name);
}

std::optional<QString> checkedProperty(const QString& name, bool inItem)
{
    return isKeyword(name, inItem) ? std::optional(name) : checked(name);
}

std::optional<QString> firstOf(const QStringList& names)
{
    for (const auto& name : names)
        if (auto found = checked(name))
            return found;
    return std::nullopt;
}

std::optional<QString> firstOf(const QList<FormItem>& items)
{
    for (const auto& item : items)
        for (const auto& property : item.properties) {
            if (auto found = checkedProperty(property.name, true))
                return found;
            if (auto found = FormSayable::firstUnsayable(property.value))
                return found;
        }
    return std::nullopt;
}

std::optional<QString> headerOf(const FormNode& node)
{
    if (node.kind() == FormNode::Kind::Item)
        return std::nullopt;
    if (auto found = checked(node.className()))
        return found;
    return node.name().isEmpty() ? std::nullopt : checked(node.name());
}

}

std::optional<QString> FormSayable::firstUnsayable(const FormValue& value)
{
    switch (value.kind()) {
    case FormValue::Kind::Identifier:
        return checked(value.toString());
    case FormValue::Kind::Set:
        return firstOf(value.toStringList());
    case FormValue::Kind::Collection:
        return firstOf(value.toItems());
    case FormValue::Kind::List:
        for (const auto& element : value.toList())
            if (auto found = firstUnsayable(element))
                return found;
        return std::nullopt;
    default:
        return std::nullopt;
    }
}

std::optional<QString> FormSayable::firstUnsayable(const FormNode& node)
{
    if (auto found = headerOf(node))
        return found;
    for (const auto* property : node.properties()) {
        if (auto found = checkedProperty(property->name(), node.kind() == FormNode::Kind::Item))
            return found;
        if (auto found = firstUnsayable(property->value()))
            return found;
    }
    for (const auto* child : node.children())
        if (auto found = firstUnsayable(*child))
            return found;
    return std::nullopt;
}
