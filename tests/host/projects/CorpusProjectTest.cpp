#include "host/projects/ProjectText.h"
#include "support/Corpus.h"

#include <gtest/gtest.h>

// Public project files, most of whose units stand elsewhere.

namespace {

class CorpusProjects : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (Corpus::folder().isEmpty())
            GTEST_SKIP() << "there is no corpus beside this checkout";
    }

    static int CountWithForms(const ProjectDescription& project)
    {
        return int(std::count_if(project.Modules.cbegin(), project.Modules.cend(),
            [](const ModuleDescription& module) { return module.HasForm(); }));
    }
};

}

TEST_F(CorpusProjects, AreAllReadable)
{
    for (const auto& file : Corpus::files({ u"*.dproj"_qs, u"*.lpi"_qs })) {
        const auto project = ReadProject(file);
        EXPECT_TRUE(project.Readable) << TextOf(project);
        EXPECT_EQ(project.Personality, u"Delphi.Personality"_qs) << file.toStdString();
        EXPECT_FALSE(project.MainSource.isEmpty()) << file.toStdString();
        for (const auto& problem : project.Problems) {
            EXPECT_EQ(problem.Severity, Problem::Warning) << problem.ToString().toStdString();
            EXPECT_GT(problem.Line, 0) << problem.ToString().toStdString();
        }
        for (const auto& module : project.Modules)
            EXPECT_TRUE(module.FormFile.isEmpty() || QFileInfo::exists(module.FormFile))
                << module.FormFile.toStdString();
    }
}

TEST_F(CorpusProjects, OfGroupsAreAllReadable)
{
    for (const auto& file : Corpus::files({ u"*.groupproj"_qs })) {
        const auto group = ReadProjectGroup(file);
        EXPECT_TRUE(group.Readable) << file.toStdString();
        for (const auto& problem : group.AllProblems())
            EXPECT_EQ(problem.Severity, Problem::Warning) << problem.ToString().toStdString();
    }
}

TEST_F(CorpusProjects, NameEveryFormThatTheirFilesName)
{
    for (const auto& file : Corpus::files({ u"*.dproj"_qs, u"*.lpi"_qs })) {
        QFile raw(file);
        ASSERT_TRUE(raw.open(QIODevice::ReadOnly));
        const auto bytes = raw.readAll();
        const auto named = bytes.count("<Form>") + bytes.count("<ComponentName ");
        EXPECT_GE(CountWithForms(ReadProject(file)), named) << file.toStdString();
    }
}
