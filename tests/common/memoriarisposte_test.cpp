#include "src/common/memoriarisposte.h"

#include <QString>
#include <gtest/gtest.h>

namespace tarvello::test {

namespace {

using agenti::MemoriaRisposte;

// What is remembered and asked again is shown by the route scenarios; here, the entries
// outside the three.
TEST(MemoriaRisposte, EveryEntryStartsAsYesAndAQuestionOutsideTheThreeChangesNothing)
{
    MemoriaRisposte memoria;
    for (short voce = 1; voce <= MemoriaRisposte::Voci; ++voce) {
        EXPECT_TRUE(memoria.voce(voce).Risposta);
        EXPECT_FALSE(memoria.voce(voce).Sempre);
        EXPECT_FALSE(memoria.ricordatoSi(voce));
    }
    EXPECT_THROW(memoria.voce(0), std::out_of_range);
    EXPECT_THROW(memoria.voce(4), std::out_of_range);

    int mostrato = 0;
    for (short domanda : {0, 4, -1}) {
        memoria.DomandaCorrente = domanda;
        memoria.ShowFormMsgBox(QStringLiteral("?"), [&mostrato](const QString&) {
            ++mostrato;
            return MemoriaRisposte::Esito{false, true};
        });
    }
    EXPECT_EQ(mostrato, 0);
    for (short voce = 1; voce <= MemoriaRisposte::Voci; ++voce)
        EXPECT_TRUE(memoria.voce(voce).Risposta && !memoria.voce(voce).Sempre);
}

} // namespace
} // namespace tarvello::test
