#include "designer/GridColumns.h"

#include "data/TDataSource.h"
#include "data/TField.h"
#include "designer/PropertyReading.h"

#include <algorithm>

using namespace PropertyReading;

namespace {

constexpr int CharacterWidth = 7;

int WidthOf(int characters)
{
    return std::clamp(characters * CharacterWidth + 6, 30, 400);
}

QString TitleOf(const TPersistent& column)
{
    for (const auto* place : { "Title.Caption", "Caption", "FieldName" })
        if (const auto text = TextAt(column, QString::fromLatin1(place)); !text.isEmpty())
            return text;
    return {};
}

const TDataSet* DataSetBehind(const TPersistent& control, const QString& source)
{
    auto* object = source.isEmpty() ? nullptr : ObjectAt(control, source);
    const auto* dataSource = dynamic_cast<TDataSource*>(object);
    return dataSource ? dataSource->DataSet() : dynamic_cast<TDataSet*>(object);
}

}

QList<GridColumn> StoredColumns(const TPersistent& control)
{
    QList<GridColumn> columns;
    const auto* stored = dynamic_cast<TCollection*>(ObjectAt(control, QStringLiteral("Columns")));
    for (int i = 0; stored && i < stored->Count(); ++i) {
        const auto& item = *stored->Item(i);
        if (!FlagAt(item, QStringLiteral("Visible"), true))
            continue;
        const int width = NumberAt(item, QStringLiteral("Width"));
        columns.append({ TitleOf(item), width > 0 ? width : 64 });
    }
    return columns;
}

QList<GridColumn> GridColumns(const TPersistent& control, const QString& source)
{
    auto columns = StoredColumns(control);
    const auto* dataSet = DataSetBehind(control, source);
    if (!columns.isEmpty() || !dataSet)
        return columns;
    for (int i = 0; i < dataSet->FieldCount(); ++i)
        if (const auto* field = dataSet->Fields().Fields(i); field->Visible())
            columns.append({ field->DisplayName(), WidthOf(field->DisplayWidth()) });
    if (columns.isEmpty())
        for (int i = 0; i < dataSet->FieldDefs().Count(); ++i)
            columns.append({ dataSet->FieldDefs().Items(i)->Name(), WidthOf(12) });
    return columns;
}
