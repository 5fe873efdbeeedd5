#include "host/forms/FormFixture.h"

#include "support/Corpus.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

const QByteArray shop = R"(object ShopForm: TShopForm
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

QByteArray withCrLf(QByteArray text)
{
    return text.replace("\n", "\r\n");
}

QByteArray readAll(const QString& path)
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
        const auto document = FormDocument::load(path);
        ASSERT_TRUE(document) << qPrintable(document.error().toString());
        EXPECT_EQ(document.value()->bytes(), readAll(path)) << qPrintable(path);
    }
}

TEST(FormDocument, ShowsTheTree)
{
    const auto form = readForm(shop);
    EXPECT_EQ(form->root().name(), u"ShopForm"_s);
    EXPECT_EQ(form->root().className(), u"TShopForm"_s);
    ASSERT_EQ(form->root().children().size(), 2u);
    EXPECT_EQ(form->root().children()[1]->name(), u"Query1"_s);
    EXPECT_EQ(form->find(u"edit1")->parent()->name(), u"Panel1"_s);
    EXPECT_EQ(form->find(u"Query1")->property(u"sql.strings")->value().toStringList(),
        QStringList({ u"select *"_s, u"from books"_s }));
}

TEST(FormDocument, ReplacesTheOneLineOfAPropertyThatIsSet)
{
    const auto form = readForm(withCrLf(shop));
    form->setProperty(*form->find(u"Panel1"), u"left"_s, FormValue::integer(16));
    EXPECT_EQ(form->bytes(), withCrLf(QByteArray(shop).replace("Left = 8", "Left = 16")));
}

TEST(FormDocument, LeavesAValueThatIsAlreadyThereAsItIsSpelled)
{
    const auto text = QByteArray(shop).replace("Left = 8", "Left = $8");
    const auto form = readForm(text);
    form->setProperty(*form->find(u"Panel1"), u"Left"_s, FormValue::integer(8));
    EXPECT_EQ(form->bytes(), text);
    EXPECT_EQ(form->position(), 0);
}

TEST(FormDocument, AddsANewPropertyBehindTheLastOneAndBeforeTheChildren)
{
    const auto form = readForm(withCrLf(shop));
    form->setProperty(*form->find(u"Panel1"), u"Hint"_s, FormValue::string(u"K\u00e4se"_s));
    EXPECT_EQ(
        form->bytes(), withCrLf(QByteArray(shop).replace("TabOrder = 0\n", "TabOrder = 0\n    Hint = 'K'#228'se'\n")));
}

TEST(FormDocument, AddsAChildInTheStyleOfTheFile)
{
    const auto form = readForm(withCrLf(shop));
    auto& field = form->addChild(form->root(), FormNode::Kind::Object, u"TDBEdit"_s, u"DBEdit1"_s);
    form->setProperty(field, u"Left"_s, FormValue::integer(10));
    form->setProperty(field, u"DataSource"_s, FormValue::identifier(u"DataSource1"_s));
    const QByteArray added = "  object DBEdit1: TDBEdit\n    Left = 10\n    DataSource = DataSource1\n  end\n";
    EXPECT_EQ(form->bytes(), withCrLf(shop.chopped(4) + added + "end\n"));
}

TEST(FormDocument, GoesBackToTheSameBytesAndObjects)
{
    const auto form = readForm(shop);
    auto* panel = form->find(u"Panel1");
    auto* edit = form->find(u"Edit1");
    form->setProperty(*edit, u"Text"_s, FormValue::string(u"x"_s));
    const auto between = form->position();
    const auto bytes = form->bytes();
    form->rename(*panel, u"Box"_s);
    form->remove(*panel);
    EXPECT_EQ(form->find(u"Edit1"), nullptr);
    form->undoTo(between);
    EXPECT_EQ(form->bytes(), bytes);
    EXPECT_EQ(form->find(u"Edit1"), edit);
    form->undoTo(0);
    EXPECT_EQ(form->bytes(), shop);
    form->redoTo(form->lastPosition());
    EXPECT_EQ(form->find(u"Panel1"), nullptr);
    EXPECT_EQ(form->root().children().size(), 1u);
}
