#include "data/ZADataSets.h"

#include "classes/TClassBuilder.h"
#include "data/DataRoles.h"
#include "data/PropertyTypes.h"

namespace {

TDataSetRoles PlainRoles()
{
    TDataSetRoles roles;
    roles.Connection = QStringLiteral("Connection");
    roles.MasterSource = QStringLiteral("MasterSource");
    roles.MasterFields = QStringLiteral("MasterFields");
    roles.DetailFields = QStringLiteral("DetailFields");
    return roles;
}

// The table of a class with what all our datasets publish.
template <class T>
TClassBuilder<T> OwnDataSet(TClassInfo& info, const QString& name)
{
    TClassBuilder<T> table(info, name, TCustomZADataSet::Class());
    table.Unit(QStringLiteral("ZADataSet"))
        .Stored(QStringLiteral("Connection"), ReferenceType(QStringLiteral("TCustomZAConnection")),
            QVariant::fromValue<TPersistent*>(nullptr))
        .Stored(QStringLiteral("DetailFields"), StringType(), QString())
        .Stored(QStringLiteral("MasterFields"), StringType(), QString())
        .Stored(QStringLiteral("MasterSource"), ReferenceType(QStringLiteral("TDataSource")),
            QVariant::fromValue<TPersistent*>(nullptr));
    for (const auto* event : { "AfterClose", "AfterOpen", "AfterPost", "AfterScroll", "BeforeClose", "BeforeOpen",
             "BeforePost", "OnCalcFields", "OnNewRecord" })
        table.Stored(QString::fromLatin1(event), EventType(QStringLiteral("TDataSetNotifyEvent")), QString());
    return table;
}

template <class T>
void PublishParams(TClassBuilder<T>& table)
{
    table.SubObject(QStringLiteral("Params"), QStringLiteral("TParams"), [](T& dataSet) { return &dataSet.Params(); })
        .StoredIf([](const T& dataSet) { return const_cast<T&>(dataSet).Params().Count() > 0; });
}

}

TClass TZAQuery::Class()
{
    static TClassInfo info;
    static const TClass made = [] {
        auto table = OwnDataSet<TZAQuery>(info, QStringLiteral("TZAQuery"));
        PublishParams(table);
        table.SubObject(QStringLiteral("SQL"), QStringLiteral("TStrings"), [](TZAQuery& query) { return &query.SQL(); })
            .StoredIf([](const TZAQuery& query) { return query.FSQL.Count() > 0; });
        auto roles = PlainRoles();
        roles.SQL = QStringLiteral("SQL");
        roles.Params = QStringLiteral("Params");
        const auto built = table.Made();
        SetDataSetRoles(built, roles);
        return built;
    }();
    return made;
}

TZAQuery::TZAQuery(TComponent* owner)
    : TCustomZADataSet(owner)
    , FSQL(this, QStringLiteral("SQL"))
    , FParams(this)
{
}

TClass TZATable::Class()
{
    static TClassInfo info;
    static const TClass made = [] {
        const auto built = OwnDataSet<TZATable>(info, QStringLiteral("TZATable"))
                               .Stored(QStringLiteral("TableName"), StringType(), QString())
                               .Made();
        auto roles = PlainRoles();
        roles.Table = QStringLiteral("TableName");
        SetDataSetRoles(built, roles);
        return built;
    }();
    return made;
}

TClass TZAStoredProc::Class()
{
    static TClassInfo info;
    static const TClass made = [] {
        auto table = OwnDataSet<TZAStoredProc>(info, QStringLiteral("TZAStoredProc"));
        PublishParams(table);
        table.Stored(QStringLiteral("StoredProcName"), StringType(), QString());
        auto roles = PlainRoles();
        roles.Procedure = QStringLiteral("StoredProcName");
        roles.Params = QStringLiteral("Params");
        const auto built = table.Made();
        SetDataSetRoles(built, roles);
        return built;
    }();
    return made;
}

TZAStoredProc::TZAStoredProc(TComponent* owner)
    : TCustomZADataSet(owner)
    , FParams(this)
{
}

TClass TZAScratchTable::Class()
{
    static TClassInfo info;
    static const TClass made = [] {
        const auto built = OwnDataSet<TZAScratchTable>(info, QStringLiteral("TZAScratchTable"))
                               .Stored(QStringLiteral("TableName"), StringType(), QString())
                               .Made();
        SetDataSetRoles(built, PlainRoles());
        return built;
    }();
    return made;
}

bool TZAScratchTable::DescribeColumns(QList<TDataColumn>&)
{
    return false;
}

TRowSet TZAScratchTable::ReadRows()
{
    TRowSet rows;
    for (int i = 0; i < FieldDefs().Count(); ++i) {
        const auto* def = FieldDefs().Items(i);
        rows.Columns.append({ def->Name(), def->DataType(), def->Size(), def->Precision(), def->Required(), false });
    }
    return rows;
}
