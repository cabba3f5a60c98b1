#include "platform/controls/field.h"
#include "platform/controls/menubutton.h"
#include "schermatafixture.h"
#include "src/linked/gestionicollegate.h"

namespace tarvello::test {

namespace {

using agenti::FRMMG_AGENTI;

const QString ModuloAnagrafiche = QStringLiteral("Dorvanti.CLSCO_TABANAGGEN");

class GestioniCollegate : public SchermataTest {
protected:
    void registraAnagrafiche(std::optional<db::Value> restituito = std::nullopt,
                             bool fallisce = false)
    {
        registraModulo(ModuloAnagrafiche, std::move(restituito), fallisce);
    }
    // As a person does it: the focus on the menu button first.
    void variaDatiAnagrafici()
    {
        ASSERT_TRUE(controllo<controls::Control>(u"CMD_GESTCOLL").setFocus());
        ASSERT_TRUE(controllo<controls::MenuButton>(u"CMD_GESTCOLL")
                        .clickItem(QStringLiteral("key_anagrafica")));
    }
    agenti::GestioniCollegate& collegate() const { return schermata().collegate(); }
    QString testo(QStringView nome) const { return controllo<controls::Field>(nome).text(); }
    db::Value anagraficaDi(const QString& codice)
    {
        return db()
            .run(QStringLiteral("SELECT MG17_ANAGEN_CG16 FROM MG17_AGENTI WHERE MG17_AGENTE = ?"),
                 {codice})
            .rows.first()
            .first();
    }
    db::Value anagraficaMostrata() const
    {
        return schermata().Grst_GestAnagrafica(FRMMG_AGENTI::Agenti)->value(u"MG17_ANAGEN_CG16");
    }
    // The statements looking for the agent of a registry entry sent since the screen opened.
    qsizetype ricercheAgente() const
    {
        const QStringList inviate = istruzioni();
        return std::count_if(inviate.begin(), inviate.end(), [](const QString& testo) {
            return testo.contains(u"MG17_ANAGEN_CG16 = ");
        });
    }
    // The host and the module as they are once a management has closed.
    void restituitoAllHost()
    {
        EXPECT_TRUE(modulo->IsActive());
        EXPECT_EQ(host->activeModule(), modulo.get());
        EXPECT_EQ(host->secondModule(), nullptr);
        EXPECT_EQ(collegate().Pcls_Anagrafiche(), nullptr);
    }
};

TEST_F(GestioniCollegate, TheMenuOpensTheRegistryOnTheAgentsEntryWithTheModuleSetAside)
{
    inserisciAgente(QStringLiteral("A001"));
    apri();
    registraAnagrafiche();
    const qsizetype avvii = host->moduleStarts().size();

    variaDatiAnagrafici();

    ASSERT_TRUE(visto.has_value());
    EXPECT_EQ(visto->dati, db::ValueList({101, true}));
    EXPECT_FALSE(visto->schermataAttiva);
    EXPECT_TRUE(visto->attiva);
    EXPECT_TRUE(visto->chiamata);
    EXPECT_TRUE(visto->eLaAttiva);
    EXPECT_TRUE(visto->eLaSeconda);
    ASSERT_EQ(host->moduleStarts().size(), avvii + 1);
    EXPECT_EQ(host->moduleStarts().last().programmaticIdentifier, ModuloAnagrafiche);
    EXPECT_EQ(host->moduleStarts().last().arguments, db::ValueList({-1, 2, 0, 0, 0, 0, -1, -1}));
    restituitoAllHost();
}

TEST_F(GestioniCollegate, AnAgentWithoutEntryStillAsksForPositioning)
{
    for (const char* anagrafica : {"0", "NULL"}) {
        SCOPED_TRACE(anagrafica);
        db().run(QStringLiteral("DELETE FROM MG17_AGENTI"));
        db().run(QStringLiteral("INSERT INTO MG17_AGENTI (MG17_DITTA_CG18, MG17_AGENTE, "
                                "MG17_ANAGEN_CG16) VALUES (1, 'A001', %1)")
                     .arg(QString::fromLatin1(anagrafica)));
        apri();
        registraAnagrafiche();
        visto.reset();

        variaDatiAnagrafici();

        ASSERT_TRUE(visto.has_value());
        EXPECT_EQ(visto->dati, db::ValueList({0, true}));
        restituitoAllHost();
        schermata().unload();
    }
}

TEST_F(GestioniCollegate, TheNamesManagementKeyOpensTheRegistryUnpositioned)
{
    inserisciAgente(QStringLiteral("A001"));
    apri();
    registraAnagrafiche();
    gestione(FRMMG_AGENTI::Agenti).setStatus(frame::FrameStatus::New);

    controllo<controls::Field>(u"TXT_RAGSOANAG").pressManagementKey();

    ASSERT_TRUE(visto.has_value());
    EXPECT_EQ(visto->dati, db::ValueList({0, false}));
    restituitoAllHost();
}

TEST_F(GestioniCollegate, NothingOrANonNumberHandedBackSendsNothingAndChangesNothing)
{
    inserisciAgente(QStringLiteral("A001"));
    apri();
    for (const db::Value& restituito : {db::Value(0), db::Value(QStringLiteral("1' OR 1=1"))}) {
        SCOPED_TRACE(restituito.debugText().toStdString());
        registraAnagrafiche(restituito);
        const qsizetype prima = ricercheAgente();

        variaDatiAnagrafici();

        EXPECT_EQ(ricercheAgente(), prima);
        EXPECT_EQ(anagraficaMostrata(), db::Value(101));
        EXPECT_EQ(testo(u"TXT_RAGSOANAG"), QStringLiteral("AGENTE A001"));
        EXPECT_EQ(fuoco(), QStringLiteral("CMD_GESTCOLL"));
        restituitoAllHost();
    }
}

TEST_F(GestioniCollegate, AFailingRegistryGivesTheHostBackToTheModule)
{
    inserisciAgente(QStringLiteral("A001"));
    apri();
    registraAnagrafiche(std::nullopt, true);

    variaDatiAnagrafici();

    ASSERT_TRUE(visto.has_value());
    restituitoAllHost();
    EXPECT_EQ(testo(u"TXT_RAGSOANAG"), QStringLiteral("AGENTE A001"));
}

TEST_F(GestioniCollegate, ADivisionalDataFailureIsReportedWithAChoice)
{
    inserisciAgente(QStringLiteral("A001"));
    apri();
    // Opened for no module, the management cannot open: the person is asked, and aborts.
    schermata().setActiveInterface(nullptr);
    rispondi(3);

    collegate().Invoca_DatiDivisionali();
    schermata().setActiveInterface(modulo.get());

    ASSERT_EQ(prompts.history().size(), 1);
    EXPECT_EQ(prompts.history().first().kind, services::PromptKind::Report);
    EXPECT_TRUE(prompts.history().first().text.contains(
        QStringLiteral("Procedura: Invoca_DatiDivisionali")));
}

} // namespace

} // namespace tarvello::test
