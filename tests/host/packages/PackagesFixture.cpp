#include "PackagesFixture.h"

#include "classes/StandardClasses.h"
#include "classes/TypInfo.h"
#include "data/DataClasses.h"

#include <QFile>

PackagesFixture::PackagesFixture()
{
    RegisterStandardClasses();
    RegisterDataClasses();
    ActivateClassGroup(QStringLiteral("VCL"));
}

void PackagesFixture::Write(const QString& fileName, const QByteArray& text)
{
    QFile file(FFolder.filePath(fileName));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
}

std::string PackagesFixture::Load()
{
    QString told;
    for (const auto& problem : FPackages.Load(FFolder.path()))
        told += problem.ToString().remove(FFolder.path() + u'/') + u'\n';
    return told.toStdString();
}

void PackagesFixture::LoadClasses(const QByteArray& classes, const QByteArray& rest)
{
    Write(QStringLiteral("one.json"),
        R"({ "package": "one", "group": "VCL", )" + rest + R"( "classes": [)" + classes + "] }");
    ASSERT_EQ(Load(), "");
}
