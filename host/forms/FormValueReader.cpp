#include "forms/FormValueReader.h"

#include "forms/FormBinaryValue.h"
#include "forms/FormTextValue.h"

FormValueReader::FormValueReader(const FormTree& tree)
    : m_tree(tree)
{
}

FormValue FormValueReader::text(QByteArrayView spelling, const FormEncoding& encoding)
{
    return FormTextValue(spelling, encoding).read();
}

FormValue FormValueReader::binary(QByteArrayView bytes, const FormEncoding& encoding, bool doubles)
{
    return FormBinaryValue(bytes, encoding, doubles).read();
}

static FormItem itemOf(const FormNode& node)
{
    FormItem item { node.index(), {} };
    for (const auto* property : node.properties())
        item.properties << FormItemProperty { property->name(), property->value() };
    return item;
}

FormValue FormValueReader::read(const FormProperty& property) const
{
    if (property.isCollection()) {
        QList<FormItem> items;
        for (const auto* node : property.items())
            items << itemOf(*node);
        return FormValue::collection(items);
    }
    if (m_tree.format == FormFormat::Text)
        return text(property.valueBytes(), m_tree.encoding);
    return binary(property.valueBytes(), m_tree.encoding, m_tree.doubles);
}
