#include "platform/controls/combobox.h"
#include "platform/controls/form.h"
#include "src/host/divisionaldata.h"
#include "src/host/documentprintmodes.h"
#include "src/host/errorlog.h"
#include "src/host/hostobjects.h"
#include "src/host/hypermedia.h"
#include "src/host/lookupdecoder.h"
#include "src/host/registermanagement.h"
#include "src/host/registrysearch.h"
#include "src/host/taxcodechecker.h"
#include "src/host/typologymanagement.h"
#include "src/host/warehouseconnection.h"
#include "src/screen/controlli.h"
#include "src/screen/layoutagenti.h"
#include "src/screen/listecodificate.h"

#include <gtest/gtest.h>
#include <optional>

namespace tarvello::test {

namespace {

using agenti::ListeCodificate;

class ModiDiStampa final : public host::DocumentPrintModes {
public:
    explicit ModiDiStampa(QList<QStringList> tabella)
        : m_tabella(std::move(tabella))
    {}
    QList<QStringList> table() const override { return m_tabella; }

private:
    QList<QStringList> m_tabella;
};

// The host's objects as far as the lists need them: the print modes, with a table the test
// chooses (none at all when the host cannot make the helper).
class OggettiDiProva final : public host::HostObjects {
public:
    std::unique_ptr<host::ErrorLog> newErrorLog() override { return nullptr; }
    std::unique_ptr<host::LookupDecoder> newLookupDecoder() override { return nullptr; }
    std::unique_ptr<host::GeneralRegistrySearch> newRegistrySearch() override { return nullptr; }
    std::unique_ptr<host::HyperMedia> newHyperMedia() override { return nullptr; }
    std::unique_ptr<host::DocumentPrintModes> newDocumentPrintModes() override
    {
        if (!tabella)
            return nullptr;
        return std::make_unique<ModiDiStampa>(*tabella);
    }
    std::unique_ptr<host::TypologyManagement> newTypologyManagement() override { return nullptr; }
    std::unique_ptr<host::DivisionalData> newDivisionalData() override { return nullptr; }
    std::unique_ptr<host::TaxCodeChecker> newTaxCodeChecker() override { return nullptr; }
    std::unique_ptr<host::RegisterManagement> newRegisterManagement() override { return nullptr; }
    std::unique_ptr<host::WarehouseConnection> newWarehouseConnection() override { return nullptr; }
    void showQuestionDialog(controls::Form&) override {}
    frame::GestAnagrafica* newRecordFrame(QObject*) override { return nullptr; }

    std::optional<QList<QStringList>> tabella = QList<QStringList>{};
};

class ListeAgenti : public ::testing::Test {
protected:
    ListeAgenti() { agenti::creaControlliAgenti(schermata); }

    controls::ComboBox& lista(QStringView nome)
    {
        return agenti::controlloDi<controls::ComboBox>(schermata, nome);
    }
    QList<int> codici(QStringView nome)
    {
        QList<int> trovati;
        for (const controls::ComboBox::Item& voce : lista(nome).items())
            trovati << voce.code.toInt();
        return trovati;
    }
    QList<int> daA(int primo, int ultimo)
    {
        QList<int> codici;
        for (int codice = primo; codice <= ultimo; ++codice)
            codici << codice;
        return codici;
    }
    QString descrizione(QStringView nome, int codice)
    {
        const controls::ComboBox& trovata = lista(nome);
        const int indice = trovata.indexOfCode(codice);
        return indice < 0 ? QStringLiteral("<none>") : trovata.items().at(indice).caption;
    }

    controls::Form schermata{QStringLiteral("FRMMG_AGENTI")};
    OggettiDiProva oggetti;
    ListeCodificate liste{schermata, oggetti};
};

TEST_F(ListeAgenti, FixedListsHoldTheirCodesInOrder)
{
    liste.CaricaCombo_CBO_REGPROV();
    liste.CaricaCombo_CBO_INDPRIORCLIART();
    liste.CaricaCombo_CBO_TIPOAGENTE();
    liste.CaricaCombo_CBO_INDCALCSCMAG();
    liste.CaricaCombo_CBO_INDBASEIMPSC();
    liste.CaricaCombo_CBO_INDBASEIMPMAG();
    liste.CaricaCombo_CBO_TIPOMAND();
    liste.CaricaCombo_CBO_TIPORAPP();
    liste.CaricaCombo_CBO_TIPOSOC();
    liste.CaricaCombo_CBO_INDSTDISTENAS();
    liste.CaricaCombo_CBO_INDTIPOLIQ();

    EXPECT_EQ(codici(u"CBO_REGPROV"), daA(0, 15));
    EXPECT_EQ(codici(u"CBO_INDPRIORCLIART"), daA(0, 1));
    EXPECT_EQ(codici(u"CBO_TIPOAGENTE"), daA(0, 2));
    EXPECT_EQ(codici(u"CBO_INDCALCSCMAG"), daA(0, 2));
    EXPECT_EQ(codici(u"CBO_INDBASEIMPSC"), daA(0, 3));
    EXPECT_EQ(codici(u"CBO_INDBASEIMPMAG"), daA(0, 3));
    EXPECT_EQ(codici(u"CBO_TIPOMAND"), daA(0, 1));
    EXPECT_EQ(codici(u"CBO_TIPORAPP"), daA(0, 2));
    EXPECT_EQ(codici(u"CBO_TIPOSOC"), daA(0, 2));
    EXPECT_EQ(codici(u"CBO_INDSTDISTENAS"), daA(0, 1));
    EXPECT_EQ(codici(u"CBO_INDTIPOLIQ"), daA(0, 3));

    EXPECT_EQ(descrizione(u"CBO_REGPROV", 10),
              QStringLiteral("% da listino utilizzato: provv. list. + scagl. di sc./magg."));
    EXPECT_EQ(descrizione(u"CBO_INDPRIORCLIART", 1),
              QStringLiteral("Prima regime articolo e poi cliente"));
    EXPECT_EQ(descrizione(u"CBO_TIPOAGENTE", 2), QStringLiteral("Capo area"));
    EXPECT_EQ(descrizione(u"CBO_INDBASEIMPMAG", 3),
              QStringLiteral("Impor. provv. calcolato prima dell'adeguamento"));
    EXPECT_EQ(descrizione(u"CBO_TIPOSOC", 2), QStringLiteral("Soc. di persona"));
    EXPECT_EQ(descrizione(u"CBO_INDTIPOLIQ", 3), QStringLiteral("Per pagato"));
}

TEST_F(ListeAgenti, PaymentTypesAreCodedOneToSixteenAndNinetyNine)
{
    liste.CaricaCombo_CBO_TIPOEFF();
    EXPECT_EQ(codici(u"CBO_TIPOEFF"), daA(1, 16) + QList<int>{99});
    EXPECT_EQ(descrizione(u"CBO_TIPOEFF", 1), QStringLiteral("Contanti"));
    EXPECT_EQ(descrizione(u"CBO_TIPOEFF", 16), QStringLiteral("MAV"));
    EXPECT_EQ(descrizione(u"CBO_TIPOEFF", 99), QStringLiteral("Solo descrittivo"));
    EXPECT_EQ(descrizione(u"CBO_TIPOEFF", 17), QStringLiteral("<none>"));
    EXPECT_EQ(descrizione(u"CBO_TIPOEFF", 0), QStringLiteral("<none>"));
}

TEST_F(ListeAgenti, FixedPriceListKindsHaveAnEmptyItemAndNoItemZero)
{
    liste.CaricaCombo_CBO_INDTIPOLISFIX();
    EXPECT_EQ(codici(u"CBO_INDTIPOLISFIX"), QList<int>{-1} + daA(1, 29));
    EXPECT_EQ(descrizione(u"CBO_INDTIPOLISFIX", -1), QString());
    EXPECT_EQ(descrizione(u"CBO_INDTIPOLISFIX", 27), QStringLiteral("Listini con più articoli"));
    EXPECT_EQ(descrizione(u"CBO_INDTIPOLISFIX", 0), QStringLiteral("<none>"));
}

TEST_F(ListeAgenti, IdentifierListsOfferWhatTheirAvailabilityAllows)
{
    liste.CaricaCombo_CBO_IDENTIFTAB();
    liste.CaricaCombo_CBO_IDENTIFRIGA();
    liste.CaricaCombo_CBO_IDENTIFCOL();
    EXPECT_EQ(codici(u"CBO_IDENTIFTAB"), (QList<int>{-1, 0, 1, 2}));
    EXPECT_EQ(codici(u"CBO_IDENTIFRIGA"), QList<int>{-1});
    EXPECT_EQ(codici(u"CBO_IDENTIFCOL"), QList<int>{-1});

    liste.disponibilitaRighe = {false, true, true};
    liste.disponibilitaColonne = {false, false, true};
    liste.CaricaCombo_CBO_IDENTIFRIGA();
    liste.CaricaCombo_CBO_IDENTIFCOL();
    EXPECT_EQ(codici(u"CBO_IDENTIFRIGA"), (QList<int>{-1, 1, 2}));
    EXPECT_EQ(descrizione(u"CBO_IDENTIFRIGA", 1), QStringLiteral("Cliente"));
    EXPECT_EQ(codici(u"CBO_IDENTIFCOL"), (QList<int>{-1, 2}));
    EXPECT_EQ(descrizione(u"CBO_IDENTIFCOL", 2), QStringLiteral("Articolo"));
}

// A refill replaces the items: the availability can only shrink a list through it.
TEST_F(ListeAgenti, ReloadingAnIdentifierListReplacesItsItems)
{
    liste.disponibilitaRighe = {true, true, true};
    liste.CaricaCombo_CBO_IDENTIFRIGA();
    liste.disponibilitaRighe = {true, false, false};
    liste.CaricaCombo_CBO_IDENTIFRIGA();
    EXPECT_EQ(codici(u"CBO_IDENTIFRIGA"), (QList<int>{-1, 0}));
}

TEST_F(ListeAgenti, DocumentPrintModesLeaveOutTheRowAtTheUpperBound)
{
    oggetti.tabella = QList<QStringList>{{QStringLiteral("Carta"), QStringLiteral("0")},
                                         {QStringLiteral("Posta"), QStringLiteral("1")},
                                         {QStringLiteral("Entrambi"), QStringLiteral("2")},
                                         {QStringLiteral("Chiusura"), QStringLiteral("3")}};
    liste.CaricaCombo_CBO_INDPREFSTDOC();

    const QList<controls::ComboBox::Item>& voci = lista(u"CBO_INDPREFSTDOC").items();
    ASSERT_EQ(voci.size(), 3);
    EXPECT_EQ(voci.at(2).caption, QStringLiteral("Entrambi"));
    EXPECT_EQ(voci.at(2).code, db::Value(QStringLiteral("2")));
    EXPECT_EQ(voci.at(2).code.kind(), db::Value::Kind::Text);
}

TEST_F(ListeAgenti, AnEmptyTableOfPrintModesLeavesTheListEmpty)
{
    liste.CaricaCombo_CBO_INDPREFSTDOC();
    EXPECT_EQ(lista(u"CBO_INDPREFSTDOC").count(), 0);
}

// The loader leaves at its first error without a word: what it added stays.
TEST_F(ListeAgenti, APrintModeRowWithoutACodeEndsTheLoadKeepingTheItemsBefore)
{
    oggetti.tabella = QList<QStringList>{{QStringLiteral("Carta"), QStringLiteral("0")},
                                         {QStringLiteral("Senza codice")},
                                         {QStringLiteral("Posta"), QStringLiteral("1")},
                                         {QString(), QString()}};
    EXPECT_NO_THROW(liste.CaricaCombo_CBO_INDPREFSTDOC());
    EXPECT_EQ(lista(u"CBO_INDPREFSTDOC").count(), 1);

    oggetti.tabella.reset();
    EXPECT_NO_THROW(liste.CaricaCombo_CBO_INDPREFSTDOC());
    EXPECT_EQ(lista(u"CBO_INDPREFSTDOC").count(), 1);
}

TEST_F(ListeAgenti, PaymentTypeNamesAreSeventeenWithSoloDescrittivoLast)
{
    const QStringList nomi = agenti::StringaTipiEffetti().split(u'|');
    ASSERT_EQ(nomi.size(), 17);
    EXPECT_EQ(nomi.first(), QStringLiteral("Contanti"));
    EXPECT_EQ(nomi.at(14), QStringLiteral("C/c postale"));
    EXPECT_EQ(agenti::codiceTipoEffetto(16), 99);
    EXPECT_EQ(agenti::codiceTipoEffetto(0), 1);
}

} // namespace
} // namespace tarvello::test
