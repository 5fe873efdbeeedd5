#include "host/forms/FormFixture.h"

#include "support/Corpus.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

const QByteArray Shop = R"(object ShopForm: TShopForm
  Left = 0
  Caption = 'Shop'
  object Panel1: TPanel
    Left = 8
    TabOrder = 0
    object Edit1: TEdit
      Width = 121
    end
  end
  object Query1: TFDQuery
    SQL.Strings = (
      'select *'
      'from books')
    Left = 24
  end
end
)";

QByteArray WithCrLf(QByteArray text)
{
    return text.replace("\n", "\r\n");
}

QByteArray ReadAll(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return file.readAll();
}

}

TEST(FormDocument, WritesEveryFormOfTheCorpusBackAsItWas)
{
    const auto files = Corpus::files({ u"*.dfm"_s, u"*.lfm"_s, u"*.fmx"_s, u"*.nfm"_s, u"*.xfm"_s });
    if (files.isEmpty())
        GTEST_SKIP() << "no corpus beside the checkout";
    for (const auto& path : files) {
        const auto document = FormDocument::Load(path);
        ASSERT_TRUE(document) << qPrintable(document.Error().ToString());
        EXPECT_EQ(document.Value()->Bytes(), ReadAll(path)) << qPrintable(path);
    }
}

TEST(FormDocument, ShowsTheTree)
{
    const auto form = ReadForm(Shop);
    EXPECT_EQ(form->Root().Name(), u"ShopForm"_s);
    EXPECT_EQ(form->Root().ClassName(), u"TShopForm"_s);
    ASSERT_EQ(form->Root().Children().size(), 2u);
    EXPECT_EQ(form->Root().Children()[1]->Name(), u"Query1"_s);
    EXPECT_EQ(form->Find(u"edit1")->Parent()->Name(), u"Panel1"_s);
    EXPECT_EQ(form->Find(u"Query1")->Property(u"sql.strings")->Value().ToStringList(),
        QStringList({ u"select *"_s, u"from books"_s }));
}

TEST(FormDocument, ReplacesTheOneLineOfAPropertyThatIsSet)
{
    const auto form = ReadForm(WithCrLf(Shop));
    form->SetProperty(*form->Find(u"Panel1"), u"left"_s, FormValue::Integer(16));
    EXPECT_EQ(form->Bytes(), WithCrLf(QByteArray(Shop).replace("Left = 8", "Left = 16")));
}

TEST(FormDocument, LeavesAValueThatIsAlreadyThereAsItIsSpelled)
{
    const auto text = QByteArray(Shop).replace("Left = 8", "Left = $8");
    const auto form = ReadForm(text);
    form->SetProperty(*form->Find(u"Panel1"), u"Left"_s, FormValue::Integer(8));
    EXPECT_EQ(form->Bytes(), text);
    EXPECT_EQ(form->Position(), 0);
}

TEST(FormDocument, AddsANewPropertyBehindTheLastOneAndBeforeTheChildren)
{
    const auto form = ReadForm(WithCrLf(Shop));
    form->SetProperty(*form->Find(u"Panel1"), u"Hint"_s, FormValue::String(u"K\u00e4se"_s));
    EXPECT_EQ(
        form->Bytes(), WithCrLf(QByteArray(Shop).replace("TabOrder = 0\n", "TabOrder = 0\n    Hint = 'K'#228'se'\n")));
}

TEST(FormDocument, AddsAChildInTheStyleOfTheFile)
{
    const auto form = ReadForm(WithCrLf(Shop));
    auto& field = form->AddChild(form->Root(), FormNode::Kind::Object, u"TDBEdit"_s, u"DBEdit1"_s);
    form->SetProperty(field, u"Left"_s, FormValue::Integer(10));
    form->SetProperty(field, u"DataSource"_s, FormValue::Identifier(u"DataSource1"_s));
    const QByteArray added = "  object DBEdit1: TDBEdit\n    Left = 10\n    DataSource = DataSource1\n  end\n";
    EXPECT_EQ(form->Bytes(), WithCrLf(Shop.chopped(4) + added + "end\n"));
}

TEST(FormDocument, GoesBackToTheSameBytesAndObjects)
{
    const auto form = ReadForm(Shop);
    auto* panel = form->Find(u"Panel1");
    auto* edit = form->Find(u"Edit1");
    form->SetProperty(*edit, u"Text"_s, FormValue::String(u"x"_s));
    const auto between = form->Position();
    const auto bytes = form->Bytes();
    form->Rename(*panel, u"Box"_s);
    form->Remove(*panel);
    EXPECT_EQ(form->Find(u"Edit1"), nullptr);
    form->UndoTo(between);
    EXPECT_EQ(form->Bytes(), bytes);
    EXPECT_EQ(form->Find(u"Edit1"), edit);
    form->UndoTo(0);
    EXPECT_EQ(form->Bytes(), Shop);
    form->RedoTo(form->LastPosition());
    EXPECT_EQ(form->Find(u"Panel1"), nullptr);
    EXPECT_EQ(form->Root().Children().size(), 1u);
}
