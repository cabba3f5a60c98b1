#include "platform/controls/archivelinkfield.h"
#include "platform/controls/datacontrol.h"
#include "platform/controls/field.h"
#include "schermatafixture.h"
#include "src/host/errorlog.h"
#include "src/tree/alberoagenti.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <QTimer>

namespace tarvello::test {

namespace {

using agenti::FRMMG_AGENTI;

using AvvioSchermata = SchermataTest;

TEST_F(AvvioSchermata, PublishesItsOwnConnectionAndTheAgentFrameToTheHost)
{
    agenti::CLSMG_AGENTI& aperto = apri();

    ASSERT_NE(aperto.Connection(), nullptr);
    EXPECT_NE(aperto.Connection(), &db());
    EXPECT_EQ(aperto.Connection(), schermata().Gcon_Connect());
    EXPECT_EQ(aperto.Connection()->connectionString(), m_database->connectionString());
    EXPECT_EQ(aperto.ActiveFrame(), &gestione(FRMMG_AGENTI::Agenti));
    EXPECT_TRUE(toolbar->isRegistered(&aperto));
    EXPECT_EQ(host->activeModule(), &aperto);
    EXPECT_EQ(toolbar->scriptLog().lines().size(), 1);
    ASSERT_TRUE(host->application().has_value());
    EXPECT_EQ(host->application()->title, QStringLiteral("Anagrafica agenti"));
}

// A misspelt column in the layout would leave a field silently unbound.
TEST_F(AvvioSchermata, EveryRegisteredFieldIsBoundToAColumnOfItsFrame)
{
    apri();
    int registrati = 0;
    for (int numero = FRMMG_AGENTI::Agenti; numero <= FRMMG_AGENTI::DettaglioGiri; ++numero) {
        const db::RecordsetPtr righe = gestione(numero).recordset();
        for (const controls::DataControl* campo : gestione(numero).fields()) {
            ++registrati;
            if (!campo->dataField().isEmpty()) {
                EXPECT_TRUE(righe->hasField(campo->dataField()))
                    << campo->name().toStdString() << " " << campo->dataField().toStdString();
            }
        }
    }
    EXPECT_EQ(registrati, 45 + 7 + 2 + 5 + 3);
    const QList<controls::DataControl*> agenti = gestione(FRMMG_AGENTI::Agenti).fields();
    EXPECT_EQ(agenti.first()->name(), QStringLiteral("TXT_AGENTE"));
    EXPECT_EQ(agenti.last()->name(), QStringLiteral("TXT_ARCHELESOS1"));
    EXPECT_EQ(controllo<controls::ArchiveLinkField>(u"TXT_ARCHELESOS1").archiveKind(), 9);
}

// The module error of a failed start-up is answered 1: the screen must go.
TEST_F(AvvioSchermata, UnloadsWhenTheStartUpFailsAndTheErrorIsAnsweredAbandon)
{
    host->setConnectionString(QStringLiteral("DRIVER={NoSuchDriver};SERVER=nowhere"));
    rispondi(host::Ok);
    apri();

    ASSERT_FALSE(prompts.history().isEmpty());
    EXPECT_FALSE(schermata().isLoaded());
    EXPECT_EQ(modulo->ActiveDll(), nullptr);
}

TEST_F(AvvioSchermata, AModalScreenOpensAtItsDesignSizeAndWaitsUntilItCloses)
{
    Apertura apertura;
    apertura.modale = true;
    apertura.top = 120;
    apertura.left = 240;
    bool apertaDuranteLAttesa = false;
    QTimer::singleShot(0, [this, &apertaDuranteLAttesa] {
        apertaDuranteLAttesa = schermata().isShown() && schermata().isModal();
        schermata().requestClose();
    });
    apri(apertura);

    EXPECT_TRUE(apertaDuranteLAttesa);
    EXPECT_FALSE(schermata().isLoaded());
    EXPECT_EQ(schermata().bounds(), QRect(240, 120, 14865, 9195));
}

TEST_F(AvvioSchermata, TellsTheToolbarTheStatusOfTheAgentFrame)
{
    Apertura apertura;
    apertura.programMode = int(frame::FrameStatus::New);
    apri(apertura);
    ASSERT_EQ(gestione(FRMMG_AGENTI::Agenti).status(), frame::FrameStatus::New);
    EXPECT_EQ(toolbar->shownStatus(), short(frame::FrameStatus::New));

    inserisciAgente(QStringLiteral("A001"));
    gestione(FRMMG_AGENTI::Agenti).enterSearch();
    schermata().AggiornaNavigatore();
    EXPECT_EQ(toolbar->shownStatus(), short(frame::FrameStatus::Search));
}

TEST_F(AvvioSchermata, UnloadLetsGoOfEverythingAndOfTheModule)
{
    agenti::CLSMG_AGENTI& aperto = apri();
    QPointer<frame::GestAnagrafica> agenti = &gestione(FRMMG_AGENTI::Agenti);

    schermata().unload();

    EXPECT_EQ(schermata().Gcon_Connect(), nullptr);
    EXPECT_EQ(schermata().Gcls_Log(), nullptr);
    EXPECT_EQ(schermata().FME_GestAnagrafica(FRMMG_AGENTI::Agenti), nullptr);
    EXPECT_EQ(schermata().Grst_GestAnagrafica(FRMMG_AGENTI::Agenti), nullptr);
    EXPECT_EQ(schermata().albero().Grst_AlberoAgenti(), nullptr);
    EXPECT_EQ(schermata().ActiveInterface(), nullptr);
    EXPECT_EQ(schermata().ActiveClass(), nullptr);
    EXPECT_EQ(aperto.ActiveDll(), nullptr);
    EXPECT_EQ(host->activeModule(), nullptr);
    EXPECT_EQ(toolbar->scriptObject(), nullptr);
    EXPECT_TRUE(toolbar->scriptLog().lines().last().contains(menu.key()));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(agenti.isNull());
}

} // namespace
} // namespace tarvello::test
