#include "FormAudit.h"

#include "classes/StandardClasses.h"
#include "data/DataClasses.h"
#include "packages/PackageList.h"
#include "projects/ProjectReader.h"
#include "units/SourceUnit.h"

#include <QFile>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

#include <gtest/gtest.h>

namespace {

QString Examples()
{
    return QStringLiteral(MORVANE_SOURCE_DIR "/examples/");
}

QByteArray Content(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The example under one of its project files.
class TheExample : public ::testing::TestWithParam<const char*> {
protected:
    static void SetUpTestSuite()
    {
        RegisterStandardClasses();
        RegisterDataClasses();
        FPackages = std::make_unique<PackageList>();
        FPackages->Load(QStringLiteral(MORVANE_SOURCE_DIR "/packages"));
    }
    static void TearDownTestSuite() { FPackages.reset(); }

    void SetUp() override { FProject = ReadProject(Examples() + QString::fromLatin1(GetParam())); }

    std::unique_ptr<FormDocument> Form(const ModuleDescription& module)
    {
        auto loaded = FormDocument::Load(module.FormFile);
        EXPECT_TRUE(loaded) << module.FormFile.toStdString();
        return loaded ? std::move(loaded.Value()) : nullptr;
    }

    static inline std::unique_ptr<PackageList> FPackages;
    ProjectDescription FProject;
};

std::string ProblemsOf(const Problems& problems)
{
    QString lines;
    for (const auto& problem : problems)
        lines += problem.ToString() + u'\n';
    return lines.toStdString();
}

// Name and class of all components below the root, as the unit declares them.
void AddFields(const FormNode& node, QStringList& fields)
{
    for (const auto* child : node.Children()) {
        if (child->TheKind() != FormNode::Kind::Inherited)
            fields << child->Name() + u':' + child->ClassName();
        if (child->TheKind() != FormNode::Kind::Inline)
            AddFields(*child, fields);
    }
}

// The statements of the form's components, as the database gets them.
void AddStatements(const FormNode& node, QStringList& statements)
{
    for (const auto* name : { u"SQL.Strings", u"Script.Strings" })
        if (const auto* property = node.Property(name))
            statements << property->Value().ToStringList().join(u'\n').split(u';', Qt::SkipEmptyParts);
    for (const auto* child : node.Children())
        AddStatements(*child, statements);
}

}

TEST_P(TheExample, OpensWithoutAProblem)
{
    EXPECT_TRUE(FProject.Readable);
    EXPECT_EQ(ProblemsOf(FProject.Problems), "");
    EXPECT_FALSE(FProject.MainForm.isEmpty());
    EXPECT_EQ(FProject.OpenFiles.size(), 2);
    for (const auto& module : FProject.Modules)
        EXPECT_TRUE(module.Exists) << module.FileName.toStdString();
}

TEST_P(TheExample, KeepsEveryByteOfItsForms)
{
    for (const auto& module : FProject.Modules) {
        const auto form = module.HasForm() ? Form(module) : nullptr;
        EXPECT_TRUE(!form || form->Bytes() == Content(module.FormFile)) << module.FormFile.toStdString();
    }
}

TEST_P(TheExample, HasNoComponentPropertyOrValueThatNobodyKnows)
{
    QSet<QString> own;
    for (const auto& module : FProject.Modules)
        own << u'T' + module.FormName;
    for (const auto& module : FProject.Modules) {
        const auto form = module.HasForm() ? Form(module) : nullptr;
        if (!form)
            continue;
        const auto root = module.DesignClass.isEmpty() ? QStringLiteral("TForm") : module.DesignClass;
        FormAudit audit(FProject.FrameworkType, own);
        audit.Look(*form, root.startsWith(u'T') ? root : u'T' + root);
        EXPECT_EQ(audit.Unknown.join(u' ').toStdString(), "") << module.FormFile.toStdString();
        EXPECT_EQ(audit.Findings.join(u'\n').toStdString(), "") << module.FormFile.toStdString();
    }
}

TEST_P(TheExample, DeclaresInItsUnitsWhatStandsOnItsForms)
{
    for (const auto& module : FProject.Modules) {
        const auto form = module.HasForm() ? Form(module) : nullptr;
        if (!form)
            continue;
        Failure failure;
        const auto unit = OpenSourceUnit(module.FileName, FProject.IsLazarus(), failure);
        ASSERT_TRUE(unit) << module.FileName.toStdString();
        EXPECT_EQ(ProblemsOf(unit->Check()), "");
        const auto declared = unit->FindClass(form->Root().ClassName());
        ASSERT_TRUE(declared) << module.FileName.toStdString();
        QStringList fields;
        for (const auto& field : declared->PublishedFields)
            fields << field.Name + u':' + field.Type;
        QStringList components;
        AddFields(form->Root(), components);
        fields.sort();
        components.sort();
        EXPECT_EQ(fields.join(u' ').toStdString(), components.join(u' ').toStdString())
            << module.FileName.toStdString();
    }
}

TEST_P(TheExample, AsksItsDatabaseForWhatIsThere)
{
    auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("example"));
    database.setDatabaseName(QStringLiteral(":memory:"));
    ASSERT_TRUE(database.open());
    const auto script = QString::fromUtf8(Content(QFileInfo(FProject.FileName).path() + QStringLiteral("/schema.sql")));
    for (const auto& statement : script.split(QStringLiteral(";\n"), Qt::SkipEmptyParts)) {
        QSqlQuery query(database);
        EXPECT_TRUE(statement.trimmed().isEmpty() || query.exec(statement))
            << query.lastError().text().toStdString() << ": " << statement.toStdString();
    }
    int asked = 0;
    for (const auto& module : FProject.Modules) {
        QStringList statements;
        if (const auto form = module.HasForm() ? Form(module) : nullptr)
            AddStatements(form->Root(), statements);
        for (const auto& statement : statements) {
            QSqlQuery query(database);
            EXPECT_TRUE(query.prepare(statement))
                << query.lastError().text().toStdString() << ": " << statement.toStdString();
            ++asked;
        }
    }
    EXPECT_GE(asked, 2);
    database = QSqlDatabase();
    QSqlDatabase::removeDatabase(QStringLiteral("example"));
}

TEST_P(TheExample, HasTheSameScriptAsTheOthers)
{
    EXPECT_EQ(Content(QFileInfo(FProject.FileName).path() + QStringLiteral("/schema.sql")).toStdString(),
        Content(Examples() + QStringLiteral("bookshop/schema.sql")).toStdString());
}

INSTANTIATE_TEST_SUITE_P(Examples, TheExample,
    ::testing::Values("bookshop/bookshop.dproj", "bookshop-cpp/shopcpp.cbproj", "bookshop-lazarus/shop.lpi"),
    [](const auto& example) { return QFileInfo(QString::fromLatin1(example.param)).completeBaseName().toStdString(); });
