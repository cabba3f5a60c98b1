#include "src/common/memoriarisposte.h"

#include <QString>
#include <gtest/gtest.h>

namespace tarvello::test {

namespace {

using agenti::MemoriaRisposte;

// A dialog that answers as told and counts how often it was shown.
struct DialogoFinto {
    MemoriaRisposte::Esito esito;
    int mostrato = 0;
    QString ultimoTesto;

    MemoriaRisposte::Dialogo dialogo()
    {
        return [this](const QString& testo) {
            ++mostrato;
            ultimoTesto = testo;
            return esito;
        };
    }
};

MemoriaRisposte::Esito si()
{
    return {true, false};
}
MemoriaRisposte::Esito no()
{
    return {false, false};
}
MemoriaRisposte::Esito sempre()
{
    return {true, true};
}
MemoriaRisposte::Esito mai()
{
    return {false, true};
}

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

    DialogoFinto finto;
    finto.esito = mai();
    for (short domanda : {0, 4, -1}) {
        memoria.DomandaCorrente = domanda;
        memoria.ShowFormMsgBox(QStringLiteral("?"), finto.dialogo());
    }
    EXPECT_EQ(finto.mostrato, 0);
    for (short voce = 1; voce <= MemoriaRisposte::Voci; ++voce)
        EXPECT_TRUE(memoria.voce(voce).Risposta && !memoria.voce(voce).Sempre);
}

// "&Si" and "&No" are asked again each time; the answer is the latest one given.
TEST(MemoriaRisposte, AnAnswerNotRememberedIsAskedAgain)
{
    MemoriaRisposte memoria;
    DialogoFinto finto;
    memoria.DomandaCorrente = 2;
    finto.esito = no();
    memoria.ShowFormMsgBox(QStringLiteral("Inserirlo?"), finto.dialogo());
    EXPECT_FALSE(memoria.voce(2).Risposta);
    finto.esito = si();
    memoria.ShowFormMsgBox(QStringLiteral("Inserirlo ancora?"), finto.dialogo());
    EXPECT_EQ(finto.mostrato, 2);
    EXPECT_EQ(finto.ultimoTesto, QStringLiteral("Inserirlo ancora?"));
    EXPECT_TRUE(memoria.voce(2).Risposta);
    EXPECT_FALSE(memoria.voce(2).Sempre);
    EXPECT_TRUE(memoria.voce(1).Risposta);
    EXPECT_TRUE(memoria.voce(3).Risposta);
}

TEST(MemoriaRisposte, AnAnswerGivenAlwaysIsKeptWithoutAskingUntilTheReset)
{
    MemoriaRisposte memoria;
    DialogoFinto finto;
    memoria.DomandaCorrente = 1;
    finto.esito = sempre();
    memoria.ShowFormMsgBox(QStringLiteral("primo"), finto.dialogo());
    memoria.DomandaCorrente = 3;
    finto.esito = mai();
    memoria.ShowFormMsgBox(QStringLiteral("terzo"), finto.dialogo());

    finto.esito = no();
    for (short voce : {1, 3}) {
        memoria.DomandaCorrente = voce;
        memoria.ShowFormMsgBox(QStringLiteral("di nuovo"), finto.dialogo());
    }
    EXPECT_EQ(finto.mostrato, 2);
    EXPECT_TRUE(memoria.ricordatoSi(1));
    // A remembered no is not a remembered yes: the caller still checks, and refuses.
    EXPECT_FALSE(memoria.ricordatoSi(3));
    EXPECT_FALSE(memoria.voce(3).Risposta);
    EXPECT_TRUE(memoria.voce(3).Sempre);

    memoria.AzzeraRisposte();
    EXPECT_FALSE(memoria.ricordatoSi(1));
    EXPECT_TRUE(memoria.voce(3).Risposta);
    memoria.ShowFormMsgBox(QStringLiteral("dopo l'azzeramento"), finto.dialogo());
    EXPECT_EQ(finto.mostrato, 3);
}

} // namespace
} // namespace tarvello::test
