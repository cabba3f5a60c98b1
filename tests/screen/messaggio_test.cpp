#include "platform/controls/button.h"
#include "platform/controls/label.h"
#include "src/screen/controlli.h"
#include "src/screen/frmmg_agenti.h"
#include "src/screen/frmmg_messaggio.h"

#include <gtest/gtest.h>

namespace tarvello::test {

namespace {

using agenti::FRMMG_MESSAGGIO;

class DialogoMessaggio : public ::testing::Test {
protected:
    // The answers reach the agents screen that asked.
    FRMMG_MESSAGGIO& apri()
    {
        dialogo = std::make_unique<FRMMG_MESSAGGIO>();
        dialogo->setCallingForm(&schermata);
        dialogo->setTitolo(QStringLiteral("Anagrafica agenti"));
        dialogo->setMessaggio(QStringLiteral("Il cliente è già in un altro giro."));
        dialogo->show(true);
        return *dialogo;
    }
    void premi(QStringView pulsante)
    {
        ASSERT_TRUE(agenti::controlloDi<controls::Button>(*dialogo, pulsante).click());
    }

    agenti::FRMMG_AGENTI schermata;
    std::unique_ptr<FRMMG_MESSAGGIO> dialogo;
};

TEST_F(DialogoMessaggio, ShowsTheQuestionUnderTheScreensTitle)
{
    FRMMG_MESSAGGIO& aperto = apri();
    const auto& messaggio = agenti::controlloDi<controls::Label>(aperto, u"LBL_MESSAGGIO");
    EXPECT_EQ(messaggio.caption(), QStringLiteral("Il cliente è già in un altro giro."));
    EXPECT_TRUE(messaggio.autoSize());
    EXPECT_EQ(aperto.caption(), QStringLiteral("Anagrafica agenti"));
    EXPECT_EQ(aperto.bounds().size(), QSize(8475, 1575));
    EXPECT_EQ(agenti::controlloDi<controls::Button>(aperto, u"CMD_SEMPRE").caption(),
              QStringLiteral("S&i, sempre"));
}

TEST_F(DialogoMessaggio, EachButtonWritesItsAnswerAndWhetherToRememberItThenCloses)
{
    struct Caso {
        const char16_t* pulsante;
        bool risposta;
        bool ricorda;
    };
    for (const Caso& caso : {Caso{u"CMD_SEMPRE", true, true}, Caso{u"CMD_NO", false, false},
                             Caso{u"CMD_MAI", false, true}, Caso{u"CMD_SI", true, false}}) {
        apri();
        premi(caso.pulsante);
        EXPECT_EQ(schermata.gIsInserisciClienteNelGiro(), caso.risposta)
            << QStringView(caso.pulsante).toString().toStdString();
        EXPECT_EQ(schermata.gIsNonRichiederePiu(), caso.ricorda)
            << QStringView(caso.pulsante).toString().toStdString();
        EXPECT_FALSE(dialogo->isLoaded());
    }
}

// Nothing clears the answer before a dialog: one closed another way leaves the last answer.
TEST_F(DialogoMessaggio, AnswersStartAtNoAndStayUntilTheNextButton)
{
    EXPECT_FALSE(schermata.gIsInserisciClienteNelGiro());
    EXPECT_FALSE(schermata.gIsNonRichiederePiu());
    apri();
    premi(u"CMD_SEMPRE");
    apri().unload();
    EXPECT_TRUE(schermata.gIsInserisciClienteNelGiro());
    EXPECT_TRUE(schermata.gIsNonRichiederePiu());
}

} // namespace
} // namespace tarvello::test
