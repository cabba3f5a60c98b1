#include "platform/controls/field.h"
#include "platform/controls/tabstrip.h"
#include "schermatafixture.h"
#include "src/detail/dettagliagente.h"

namespace tarvello::test {

namespace {

using agenti::FRMMG_AGENTI;
using controls::Field;
using frame::FrameStatus;

// The partners, maturation-days and van-sales pages of an agent of company 1.
class PagineAgenteTest : public SchermataTest {
protected:
    void SetUp() override
    {
        SchermataTest::SetUp();
        agente = inserisciAgente(QStringLiteral("A001"));
    }

    // Opens the screen on the agent with its details, then forgets the statements and prompts
    // so far.
    void apriSuAgente()
    {
        apriSu(QStringLiteral("A001"));
        giaMostrati = prompts.history().size();
    }

    Field& campo(QStringView nome) const { return controllo<Field>(nome); }

    // The prompts shown since the screen was opened on the agent.
    QList<services::PromptRecord> mostrati() const { return prompts.history().mid(giaMostrati); }

    qsizetype giaMostrati = 0;
    qint64 agente = 0;
};

TEST_F(PagineAgenteTest, NoTaxCodeIsCheckedInSearchEntryOrWhenEmpty)
{
    socio(agente, 1, QStringLiteral("ROSSI MARIO"));
    apriSuAgente();
    frame::GestAnagrafica& soci = gestione(FRMMG_AGENTI::Soci);
    schermata().SelezionaTab(1);
    Field& codice = campo(u"TXT_CODFISOCIO");

    controls::CancelArgs args;
    codice.setText(QString());
    Q_EMIT codice.validate(args);
    EXPECT_TRUE(mostrati().isEmpty());

    soci.setStatus(FrameStatus::Search);
    codice.setText(QStringLiteral("abc"));
    Q_EMIT codice.validate(args);
    EXPECT_EQ(codice.text(), QStringLiteral("ABC")) << "upper case in every status";
    EXPECT_TRUE(mostrati().isEmpty());
    EXPECT_TRUE(codice.isAccepted());
}

TEST_F(PagineAgenteTest, SelezionaTabSelectsThePageWithoutMovingTheFocus)
{
    apriSuAgente();
    controllo<controls::Control>(u"TXT_FOR").setFocus();
    ASSERT_EQ(fuoco(), QStringLiteral("TXT_FOR"));
    schermata().SelezionaTab(3);
    EXPECT_EQ(controllo<controls::TabStrip>(u"TAB_AGENTI").currentPage(), 3);
    EXPECT_EQ(fuoco(), QStringLiteral("TXT_FOR"));
    EXPECT_FALSE(schermata().CambioTabDaCodice());

    schermata().SelezionaTab(1);
    EXPECT_EQ(fuoco(), QStringLiteral("TXT_FOR"));

    // Page 0 always takes the focus to the commission regime.
    schermata().SelezionaTab(0);
    EXPECT_EQ(controllo<controls::TabStrip>(u"TAB_AGENTI").currentPage(), 0);
    EXPECT_EQ(fuoco(), QStringLiteral("CBO_REGPROV"));
}

} // namespace

} // namespace tarvello::test
