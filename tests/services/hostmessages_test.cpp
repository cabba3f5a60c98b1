#include "platform/db/runtimeerror.h"
#include "platform/services/hostmessages.h"

#include <gtest/gtest.h>

using namespace tarvello;
using services::HostMessages;

// The route-detail check passes its values in this order; each must land in its own place
// (the messages without a destination are shown by the route scenarios).
TEST(HostMessages, DestinationMessagesTakeTheirParametersInTheOrderPassed)
{
    const HostMessages catalogue;
    const QString withDestination = catalogue.message(
        71473, {"D1", "120", "ROSSI SPA", "G01", "Giro centro", "A001", "BIANCHI MARIO"});
    EXPECT_TRUE(withDestination.startsWith(
        QStringLiteral("Il cliente 120 - ROSSI SPA con la destinazione D1 è già presente nel giro "
                       "G01 - Giro centro dell'agente A001 - BIANCHI MARIO")));
    EXPECT_EQ(catalogue.message(71474, {"D1", "120", "ROSSI SPA"}),
              QStringLiteral("Il cliente 120 - ROSSI SPA con la destinazione D1 è già presente in "
                             "un altro giro dell'agente. Inserirlo comunque?"));
}

// A customer named "50%1" must not pull another parameter into its name.
TEST(HostMessages, AParameterIsNeverReadForPlaces)
{
    const HostMessages catalogue;
    EXPECT_TRUE(catalogue.message(71475, {"120", "SCONTI 50%1 %2"})
                    .contains(QStringLiteral("120 - SCONTI 50%1 %2 è")));
}

TEST(HostMessages, AnUnknownNumberIsAnError)
{
    const HostMessages catalogue;
    EXPECT_THROW(catalogue.message(99999, {}), db::RuntimeError);
}
