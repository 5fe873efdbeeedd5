#include "forms/FormValueReader.h"

#include "forms/FormBinaryValue.h"
#include "forms/FormTextValue.h"

static FormItem ItemOf(const FormNode& node)
{
    FormItem item { node.Index(), {} };
    for (const auto* property : node.Properties())
        item.Properties << FormItemProperty { property->Name(), property->Value() };
    return item;
}

FormValue ReadFormValue(const FormTree& tree, const FormProperty& property)
{
    if (property.IsCollection()) {
        QList<FormItem> items;
        for (const auto* node : property.Items())
            items << ItemOf(*node);
        return FormValue::Collection(items);
    }
    if (tree.Format == FormFormat::Text)
        return FormTextValue(property.ValueBytes(), tree.Encoding).Read();
    return FormBinaryValue(property.ValueBytes(), tree.Encoding, tree.Doubles).Read();
}
