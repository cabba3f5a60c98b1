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

    controls::Form schermata{QStringLiteral("FRMMG_AGENTI")};
    OggettiDiProva oggetti;
    ListeCodificate liste{schermata, oggetti};
};

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

} // namespace
} // namespace tarvello::test
