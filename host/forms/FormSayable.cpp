#include "forms/FormSayable.h"

#include "forms/FormLexer.h"

namespace {

// Names parted by dots, without blanks.
bool IsName(QByteArrayView text)
{
    FormLexer lexer(text);
    qsizetype end = 0;
    for (auto token = lexer.Next(); token.Type == FormToken::Kind::Symbol && token.Begin == end; token = lexer.Next()) {
        end = token.End;
        if (end == text.size())
            return true;
        if (token = lexer.Next(); !token.Is('.') || token.Begin != end)
            return false;
        end = token.End;
    }
    return false;
}

bool IsKeyword(const QString& name, bool inItem)
{
    static const QStringList words { QStringLiteral("end"), QStringLiteral("object"), QStringLiteral("inherited"),
        QStringLiteral("inline") };
    const auto found = words.indexOf(name.toLower());
    return found == 0 || (found > 0 && !inItem);
}

std::optional<QString> Checked(const QString& name)
{
    return IsName(name.toUtf8()) ? std::nullopt : std::optional(name);
}

std::optional<QString> CheckedProperty(const QString& name, bool inItem)
{
    return IsKeyword(name, inItem) ? std::optional(name) : Checked(name);
}

std::optional<QString> FirstOf(const QStringList& names)
{
    for (const auto& name : names)
        if (auto found = Checked(name))
            return found;
    return std::nullopt;
}

std::optional<QString> FirstOf(const QList<FormItem>& items)
{
    for (const auto& item : items)
        for (const auto& property : item.Properties) {
            if (auto found = CheckedProperty(property.Name, true))
                return found;
            if (auto found = FormSayable::FirstUnsayable(property.Value))
                return found;
        }
    return std::nullopt;
}

std::optional<QString> HeaderOf(const FormNode& node)
{
    if (node.TheKind() == FormNode::Kind::Item)
        return std::nullopt;
    if (auto found = Checked(node.ClassName()))
        return found;
    return node.Name().isEmpty() ? std::nullopt : Checked(node.Name());
}

}

std::optional<QString> FormSayable::FirstUnsayable(const FormValue& value)
{
    switch (value.TheKind()) {
    case FormValue::Kind::Identifier:
        return Checked(value.ToString());
    case FormValue::Kind::Set:
        return FirstOf(value.ToStringList());
    case FormValue::Kind::Collection:
        return FirstOf(value.ToItems());
    case FormValue::Kind::List:
        for (const auto& element : value.ToList())
            if (auto found = FirstUnsayable(element))
                return found;
        return std::nullopt;
    default:
        return std::nullopt;
    }
}

std::optional<QString> FormSayable::FirstUnsayable(const FormNode& node)
{
    if (auto found = HeaderOf(node))
        return found;
    for (const auto* property : node.Properties()) {
        if (auto found = CheckedProperty(property->Name(), node.TheKind() == FormNode::Kind::Item))
            return found;
        if (auto found = FirstUnsayable(property->Value()))
            return found;
    }
    for (const auto* child : node.Children())
        if (auto found = FirstUnsayable(*child))
            return found;
    return std::nullopt;
}
