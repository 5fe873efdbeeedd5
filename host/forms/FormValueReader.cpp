#include "forms/FormValueReader.h"

#include "forms/FormBinaryValue.h"
#include "forms/FormTextValue.h"

static FormItem itemOf(const FormNode& node)
{
    FormItem item { node.index(), {} };
    for (const auto* property : node.properties())
        item.properties << FormItemProperty { property->name(), property->value() };
    return item;
}

FormValue readFormValue(const FormTree& tree, const FormProperty& property)
{
    if (property.isCollection()) {
        QList<FormItem> items;
        for (const auto* node : property.items())
            items << itemOf(*node);
        return FormValue::collection(items);
    }
    if (tree.format == FormFormat::Text)
        return FormTextValue(property.valueBytes(), tree.encoding).read();
    return FormBinaryValue(property.valueBytes(), tree.encoding, tree.doubles).read();
}
