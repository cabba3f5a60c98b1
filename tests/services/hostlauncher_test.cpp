#include "platform/services/parametertext.h"

#include <gtest/gtest.h>

using namespace tarvello;
using namespace tarvello::services;

TEST(ParameterText, KeepsEveryValueAsItWas)
{
    QString text;
    text = appendParameter(text, QStringLiteral("Pvar_ZONE_MACROAREA"), QStringLiteral("N=O"));
    text = appendParameter(text, QStringLiteral("Pvar_ZONE_AREA"), QStringLiteral("a\\n\nb\r"));
    text = appendParameter(text, QStringLiteral("CalledRamo"), QStringLiteral("2"));
    const auto parameters = readParameters(text);
    ASSERT_EQ(parameters.size(), 3);
    EXPECT_EQ(parameters[0],
              std::make_pair(QStringLiteral("Pvar_ZONE_MACROAREA"), QStringLiteral("N=O")));
    EXPECT_EQ(parameters[1].second, QStringLiteral("a\\n\nb\r"));
    EXPECT_EQ(parameters[2].first, QStringLiteral("CalledRamo"));
}
