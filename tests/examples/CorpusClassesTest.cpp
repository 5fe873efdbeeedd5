#include "FormAudit.h"

#include "classes/StandardClasses.h"
#include "data/DataClasses.h"
#include "packages/PackageList.h"
#include "support/Corpus.h"

#include <gtest/gtest.h>

namespace {

// Libraries and components of single projects, for which there is no catalogue.
bool IsOfASingleProject(const QString& className)
{
    return className.startsWith(u"TBold") || className.startsWith(u"TInstant");
}

}

TEST(TheCatalogues, KnowNearlyAllComponentsOfPublicForms)
{
    const auto files = Corpus::files({ QStringLiteral("*.dfm"), QStringLiteral("*.lfm") });
    if (files.isEmpty())
        GTEST_SKIP() << "no corpus here";
    RegisterStandardClasses();
    RegisterDataClasses();
    PackageList packages;
    packages.Load(QStringLiteral(MORVANE_SOURCE_DIR "/packages"));
    int known = 0;
    QStringList unknown;
    QStringList findings;
    for (const auto& file : files) {
        const auto form = FormDocument::Load(file);
        ASSERT_TRUE(form) << file.toStdString();
        FormAudit audit(file.endsWith(u".lfm") ? QStringLiteral("LCL") : QStringLiteral("VCL"), {});
        for (const auto* child : form.Value()->Root().Children())
            audit.LookBelow(*child);
        known += audit.Known;
        unknown << audit.Unknown;
        findings << audit.Findings;
    }
    unknown.removeIf(IsOfASingleProject);
    RecordProperty("known", known);
    RecordProperty("unknown", unknown.join(u' ').toStdString());
    RecordProperty("findings", findings.join(u'\n').toStdString());
    EXPECT_GE(known, 40 * unknown.size()) << unknown.join(u' ').toStdString();
    EXPECT_GE(known, 10 * findings.size()) << findings.join(u'\n').toStdString();
}
