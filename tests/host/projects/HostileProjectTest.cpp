#include "host/projects/ProjectFolder.h"
#include "host/projects/ProjectText.h"

#include <gtest/gtest.h>

#include <random>

// Project files that nobody's tool wrote: each is survived, with messages that name the place.

TEST(HostileProject, NestedDeeplyGivesOneMessage)
{
    ProjectFolder folder;
    const int depth = 200000;
    const auto project = ReadProject(folder.Write(u"Deep.dproj"_qs,
        "<Project>" + QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth) + "</Project>"));
    EXPECT_EQ(TextOf(project),
        "Deep Delphi.Personality  main -\nDeep.dproj:1:309: is no sound XML: elements are nested deeper than 100\n");
}

TEST(HostileProject, WithManyModulesIsReadInOrder)
{
    ProjectFolder folder;
    QByteArray text("<Project><ItemGroup>\n");
    const int count = 20000;
    for (int i = 0; i < count; ++i)
        text += "<DCCReference Include=\"src\\Unit" + QByteArray::number(i) + ".pas\"><Form>Form"
            + QByteArray::number(i) + "</Form></DCCReference>\n";
    const auto project = ReadProject(folder.Write(u"Huge.dproj"_qs, text + "</ItemGroup></Project>"));
    ASSERT_EQ(project.Modules.size(), count);
    EXPECT_EQ(project.Modules.last().FormName, u"Form19999"_qs);
    ASSERT_EQ(project.Problems.size(), count);
    EXPECT_EQ(
        project.Problems.last().ToString(), folder.Path(u"Huge.dproj:20001:1: src\\Unit19999.pas is not there"_qs));
}

TEST(HostileProject, OfAHugeSizeIsRefused)
{
    ProjectFolder folder;
    const auto file = folder.Write(u"Huge.dproj"_qs, "<Project/>");
    ASSERT_TRUE(QFile::resize(file, qint64(1) << 40));
    const auto project = ReadProject(file);
    EXPECT_FALSE(project.Readable);
    EXPECT_EQ(TextOf(project), "Huge Delphi.Personality  main -\nHuge.dproj: is larger than 64 MB\n");
}

TEST(HostileProject, ThatIsAFolderOrADeviceIsRefused)
{
    ProjectFolder folder;
    ASSERT_TRUE(QDir().mkpath(folder.Path(u"Dir.dproj"_qs)));
    EXPECT_EQ(TextOf(ReadProject(folder.Path(u"Dir.dproj"_qs))),
        "Dir Delphi.Personality  main -\nDir.dproj: is not a file\n");
    const auto file = folder.Write(
        u"Device.dproj"_qs, "<Project><PropertyGroup><MainSource>/dev/zero</MainSource></PropertyGroup></Project>");
    EXPECT_EQ(
        TextOf(ReadProject(file)), "Device Delphi.Personality  main -\nDevice.dproj:1:25: /dev/zero is not a file\n");
}

TEST(HostileProject, WithVariablesThatGrowOrRefToThemselvesIsSurvived)
{
    ProjectFolder folder;
    QByteArray text("<Project><PropertyGroup><A>x</A><B>$(B)</B>");
    text += QByteArray("<A>$(A)$(A)</A>").repeated(100);
    const auto file = folder.Write(u"Grow.dproj"_qs,
        text
            + "</PropertyGroup><ItemGroup>\n<DCCReference Include=\"$(B).pas\"/>\n<DCCReference "
              "Include=\"$(\"/></ItemGroup></Project>");
    EXPECT_EQ(TextOf(ReadProject(file)),
        "Grow Delphi.Personality  main -\n"
        "3 $( (missing)\n"
        "Grow.dproj:2:1: $(B).pas is left out: the variable $(B) is not known here\n"
        "Grow.dproj:3:1: $( is not there\n");
}

TEST(HostileProject, WithPathsOfManyFoldersIsSurvived)
{
    ProjectFolder folder;
    const auto file = folder.Write(u"Long.dproj"_qs,
        "<Project><ItemGroup>\n<DCCReference Include=\"" + QByteArray("a\\").repeated(500000)
            + "b.pas\"/></ItemGroup></Project>");
    const auto project = ReadProject(file);
    ASSERT_EQ(project.Problems.size(), 1);
    EXPECT_TRUE(project.Problems[0].Text.endsWith(u"b.pas is not there"_qs));
}

TEST(HostileProject, WithEntitiesThatGrowIsRefused)
{
    ProjectFolder folder;
    QByteArray text("<!DOCTYPE p [<!ENTITY a0 \"aaaaaaaaaa\">");
    for (int i = 1; i < 12; ++i)
        text += "<!ENTITY a" + QByteArray::number(i) + " \"" + ("&a" + QByteArray::number(i - 1) + ';').repeated(10)
            + "\">";
    const auto project = ReadProject(folder.Write(u"Laughs.dproj"_qs,
        text + "]><Project><PropertyGroup><MainSource>&a11;</MainSource></PropertyGroup></Project>"));
    ASSERT_EQ(project.Problems.size(), 1);
    EXPECT_EQ(project.Problems[0].Severity, Problem::Error);
}

TEST(HostileProject, CutOffOrDamagedAnywhereIsSurvived)
{
    ProjectFolder folder;
    folder.Write(u"Main.pas"_qs, "unit Main;");
    const QByteArray dproj(
        "<Project><PropertyGroup><MainSource>P.dpr</MainSource></PropertyGroup><ItemGroup>"
        "<DCCReference Include=\"Main.pas\"><Form>MainForm</Form></DCCReference></ItemGroup></Project>");
    const QByteArray dpr("program P; uses Forms, Main in 'Main.pas' {MainForm: TFrame}; begin "
                         "Application.CreateForm(TMainForm, MainForm); end.");
    for (unsigned seed = 0; seed < 400; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        auto xml = dproj;
        auto program = dpr;
        for (auto* text : { &xml, &program }) {
            if (random() % 2)
                text->truncate(qsizetype(random() % size_t(text->size())));
            for (auto count = random() % 4; count > 0 && !text->isEmpty(); --count)
                (*text)[qsizetype(random() % size_t(text->size()))] = char(random() % 256);
        }
        folder.Write(u"P.dpr"_qs, program);
        const auto file = folder.Write(u"P.dproj"_qs, xml);
        for (const auto& module : ReadProject(file).Modules)
            ASSERT_FALSE(module.FileName.isEmpty());
        ASSERT_EQ(ReadProject(folder.Path(u"P.dpr"_qs)).FileName, folder.Path(u"P.dpr"_qs));
    }
}
