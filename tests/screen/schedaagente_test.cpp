#include "platform/controls/combobox.h"
#include "platform/controls/field.h"
#include "platform/controls/gridnavigator.h"
#include "platform/db/runtimeerror.h"
#include "schermatafixture.h"
#include "src/detail/dettagliagente.h"
#include "src/host/errorlog.h"
#include "src/screen/codiciagente.h"
#include "src/screen/schedaagente.h"

namespace tarvello::test {

namespace {

using agenti::FRMMG_AGENTI;
using frame::FrameStatus;

const QString QuoteOltreCento = QStringLiteral("Il totale delle % quote supera il 100% !!!");

// The agents screen opened on one agent of the company.
class SchedaAgenteTest : public SchermataTest {
protected:
    void SetUp() override
    {
        SchermataTest::SetUp();
        id = inserisciAgente(QStringLiteral("A001"));
        Apertura apertura;
        apertura.codiceChiamato = QStringLiteral("A001");
        apri(apertura);
        ASSERT_EQ(agente().status(), FrameStatus::Browse);
    }

    frame::GestAnagrafica& agente() const { return gestione(FRMMG_AGENTI::Agenti); }
    controls::Field& campo(QStringView nome) const { return controllo<controls::Field>(nome); }
    controls::ComboBox& lista(QStringView nome) const
    {
        return controllo<controls::ComboBox>(nome);
    }
    db::Value riga(const QString& colonna) const { return agente().recordset()->value(colonna); }
    // A change of the header, so that the save has something to write.
    void cambiaProvvigione(const QString& percentuale)
    {
        campo(u"TXT_PERPROV").setText(percentuale);
    }

    qint64 id = 0;
};

// Reason 7 is the frame showing again the row it just saved: the detail grids hold what they
// must and reloading them would drop what the person sees.
TEST_F(SchedaAgenteTest, AStatusChangeAfterASaveDoesNotReloadTheDetails)
{
    const auto dettagliCaricati = [this] {
        for (const QString& istruzione : istruzioni()) {
            if (istruzione.contains(QStringLiteral("MG18_AGENTISOCI")) &&
                istruzione.contains(QStringLiteral("MG18_IDAGENTE_MG17 = ")))
                return true;
        }
        return false;
    };
    schermata().Gcon_Connect()->log().clear();
    Q_EMIT agente().ChangeStatus(int(FrameStatus::Browse), frame::StatusReason::Refreshed);
    EXPECT_FALSE(dettagliCaricati());
    EXPECT_EQ(campo(u"TXT_RAGSOANAG").text(), QStringLiteral("AGENTE A001"));
    EXPECT_FALSE(campo(u"TXT_AGENTE").isEnabled());

    Q_EMIT agente().ChangeStatus(int(FrameStatus::Browse), frame::StatusReason::Moved);
    EXPECT_TRUE(dettagliCaricati()) << istruzioni().join(u'\n').toStdString();
}

// Without a detail change the frame's own answer stands; a detail change makes it true.
TEST_F(SchedaAgenteTest, IsRecordChangedAddsTheDetailsChanges)
{
    frame::RecordChangedArgs invariato;
    Q_EMIT agente().IsRecordChanged(invariato);
    EXPECT_FALSE(invariato.fbol_isRecordChanged);
    frame::RecordChangedArgs giaCambiato{true};
    Q_EMIT agente().IsRecordChanged(giaCambiato);
    EXPECT_TRUE(giaCambiato.fbol_isRecordChanged);

    gestione(FRMMG_AGENTI::TentataVendita).setSecondChangeFlag(true);
    frame::RecordChangedArgs dettaglio;
    Q_EMIT agente().IsRecordChanged(dettaglio);
    EXPECT_TRUE(dettaglio.fbol_isRecordChanged);
}

// Undo reloads the partners and tells whether one more may be added.
TEST_F(SchedaAgenteTest, UndoRecountsWhetherAPartnerMayBeAdded)
{
    db().run(
        QStringLiteral("INSERT INTO MG18_AGENTISOCI (MG18_DITTA_CG18, MG18_IDAGENTE_MG17, "
                       "MG18_CODSOCIO, MG18_NOMECOGN, MG18_PERQUOTA) VALUES (1, ?, 1, 'S', 50)"),
        {id});
    campo(u"TXT_NUMSOCI").setText(QStringLiteral("1"));
    ASSERT_TRUE(agente().save());
    schermata().dettagli().ShowChild();
    ASSERT_EQ(gestione(FRMMG_AGENTI::Soci).recordset()->recordCount(), 1);

    cambiaProvvigione(QStringLiteral("7"));
    auto& navigatore = controllo<controls::GridNavigator>(u"GRIDNAV_AGENTISOCI");
    ASSERT_TRUE(agente().undo());
    EXPECT_FALSE(navigatore.isAvailable(controls::NavigatorKey::New));

    campo(u"TXT_NUMSOCI").setText(QStringLiteral("2"));
    ASSERT_TRUE(agente().save());
    cambiaProvvigione(QStringLiteral("8"));
    ASSERT_TRUE(agente().undo());
    EXPECT_TRUE(navigatore.isAvailable(controls::NavigatorKey::New));
}

// The managers' fields are never typed into, but equal managers are refused all the same.
TEST_F(SchedaAgenteTest, TheSameManagerForZoneAndAreaIsRefused)
{
    campo(u"TXT_CAPOAREA").setText(QStringLiteral("7"));
    campo(u"TXT_CAPOZONA").setText(QStringLiteral("7"));
    controls::CancelArgs uguali;
    Q_EMIT campo(u"TXT_CAPOZONA").validate(uguali);
    EXPECT_TRUE(uguali.cancel);
    ASSERT_FALSE(prompts.history().isEmpty());
    EXPECT_EQ(prompts.history().last().text, QStringLiteral("Stesso Capo area !!"));
    EXPECT_EQ(prompts.history().last().style, host::Exclamation);

    campo(u"TXT_CAPOZONA").setText(QStringLiteral("8"));
    controls::CancelArgs diversi;
    Q_EMIT campo(u"TXT_CAPOZONA").validate(diversi);
    EXPECT_FALSE(diversi.cancel);
    campo(u"TXT_CAPOAREA").setText(QString());
    campo(u"TXT_CAPOZONA").setText(QString());
    controls::CancelArgs vuoti;
    Q_EMIT campo(u"TXT_CAPOZONA").validate(vuoti);
    EXPECT_FALSE(vuoti.cancel);
}

// The flag of a completed reference validation is never cleared: from then on every save
// rebuilds the tree, while before it a save of an existing agent leaves the tree alone.
TEST_F(SchedaAgenteTest, AfterAReferenceIsValidatedEverySaveRebuildsTheTree)
{
    const auto alberoRicostruito = [this] {
        return istruzioni().contains(QStringLiteral(
            "IF OBJECT_ID('TEMPDB.DBO.#TAB_TREEVIEW') IS NOT NULL DROP TABLE #TAB_TREEVIEW"));
    };
    const qint64 capo = inserisciAgente(QStringLiteral("C01"));
    schermata().Gcon_Connect()->log().clear();
    cambiaProvvigione(QStringLiteral("2"));
    ASSERT_TRUE(agente().save());
    EXPECT_FALSE(alberoRicostruito());

    ASSERT_TRUE(campo(u"TXT_AGERIFVIDEO1").setFocus());
    campo(u"TXT_AGERIFVIDEO1").typeText(QStringLiteral("C01"));
    ASSERT_TRUE(controllo<controls::Control>(u"CBO_REGPROV").setFocus());
    EXPECT_TRUE(schermata().scheda().AgenteRifVariato());
    EXPECT_EQ(campo(u"TXT_AGERIF").text(), QString::number(capo));
    ASSERT_TRUE(agente().save());
    EXPECT_TRUE(alberoRicostruito());

    schermata().Gcon_Connect()->log().clear();
    cambiaProvvigione(QStringLiteral("3"));
    ASSERT_TRUE(agente().save());
    EXPECT_TRUE(alberoRicostruito());
}

TEST_F(SchedaAgenteTest, DocumentsOfAnyOfTheFiveTablesMakeTheAgentUsed)
{
    agenti::SchedaAgente& scheda = schermata().scheda();
    EXPECT_FALSE(scheda.AgenteUtilizzato(qint32(id)));
    db().run(QStringLiteral("INSERT INTO CT06_CACORPO (CT06_DITTA_CG18, CT06_IDAGENTE_MG17) "
                            "VALUES (?, ?)"),
             {dittaSemplice, id});
    EXPECT_FALSE(scheda.AgenteUtilizzato(qint32(id))) << "another company's document";
    db().run(QStringLiteral("INSERT INTO CT06_CACORPO (CT06_DITTA_CG18, CT06_IDAGENTE_MG17) "
                            "VALUES (?, ?)"),
             {dittaDivisionale, id});
    EXPECT_TRUE(scheda.AgenteUtilizzato(qint32(id)));
    db().run(QStringLiteral("DROP TABLE DO21_DOCTESTAPROV"));
    EXPECT_TRUE(scheda.AgenteUtilizzato(qint32(id))) << "a missing table stops nothing";
}

// Grandparent reads compare the id as quoted text; an agent without one gives nothing, and an
// error carries the procedure's trace.
TEST_F(SchedaAgenteTest, NonnoAgenteGivesTheReferenceOfTheReference)
{
    const qint64 figlio = inserisciAgente(QStringLiteral("A002"), dittaDivisionale, id);
    db::Connection& connessione = *schermata().Gcon_Connect();
    EXPECT_EQ(agenti::NonnoAgente(connessione, dittaDivisionale, QString::number(figlio)),
              QString::number(id));
    EXPECT_EQ(agenti::NonnoAgente(connessione, dittaDivisionale, QString::number(id)), QString());
    EXPECT_EQ(agenti::NonnoAgente(connessione, dittaSemplice, QString::number(figlio)), QString());
    db().run(QStringLiteral("DROP TABLE MG17_AGENTI"));
    try {
        agenti::NonnoAgente(connessione, dittaDivisionale, QString::number(figlio));
        ADD_FAILURE() << "no error from a missing table";
    } catch (const db::RuntimeError& errore) {
        EXPECT_TRUE(errore.source().startsWith(QStringLiteral("NonnoAgente:\r\n")))
            << errore.source().toStdString();
    }
}

TEST(NumeroIntero, ReadsOnlyWholeNumbers)
{
    EXPECT_EQ(agenti::NumeroIntero(QStringLiteral("42")), 42);
    EXPECT_EQ(agenti::NumeroIntero(QString()), 0);
    EXPECT_EQ(agenti::NumeroIntero(db::Value::null()), 0);
    EXPECT_EQ(agenti::NumeroIntero(7), 7);
    EXPECT_FALSE(agenti::NumeroIntero(QStringLiteral("4 OR 1=1")).has_value());
    EXPECT_FALSE(agenti::NumeroIntero(QStringLiteral("1,5")).has_value());
    EXPECT_FALSE(agenti::NumeroIntero(QStringLiteral("ABC")).has_value());
}

} // namespace

} // namespace tarvello::test
