#include "rtl/HelpUtil.h"

#include "support/PrintQt.h"

#include <gtest/gtest.h>

TEST(HelpUtil, HandsNamespaceAndTopicToTheHostAsTheyStand)
{
    QString seen;
    SetHelpHandler([&](const QString& collection, const QString& topic) { seen = collection + u'|' + topic; });
    ShowHelp(u"ms-help://A."_qs, QString());
    SetHelpHandler({});
    EXPECT_EQ(seen, u"ms-help://A.|"_qs);
}

TEST(HelpUtil, DoesNothingWhereTheHostHasNoHelp)
{
    SetHelpHandler({});
    EXPECT_NO_THROW(ShowHelp(u"ms-help://A."_qs, u"ms-help://A./b"_qs));
}
