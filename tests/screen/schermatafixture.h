#pragma once

#include "platform/controls/form.h"
#include "platform/db/connection.h"
#include "platform/frame/gestanagrafica.h"
#include "platform/services/hostcontext.h"
#include "platform/services/hostnavigator.h"
#include "platform/services/scriptedprompts.h"
#include "src/host/menuentry.h"
#include "src/host/modulecontract.h"
#include "src/host/stampaagenti.h"
#include "src/screen/clsmg_agenti.h"
#include "src/screen/controlli.h"
#include "src/screen/frmmg_agenti.h"
#include "support/testdatabase.h"

#include <gtest/gtest.h>
#include <memory>
#include <optional>

namespace tarvello::test {

class MenuAgenti final : public host::MenuEntry {
public:
    QString key() const override { return QStringLiteral("MNU_ANAGRAFICA_AGENTI"); }
};

// Another module of the host as the agents screen opens it: it notes what it was opened with
// and how the host and the screen stood at that moment, then hands back a value or fails.
class ModuloDiProva final : public host::ModuleContract, public host::AgentsPrintout {
public:
    struct Visto {
        db::ValueList dati;
        db::Value codice;
        bool schermataAttiva = true;
        bool attiva = false;
        bool chiamata = false;
        bool eLaAttiva = false;
        bool eLaSeconda = false;
    };

    ModuloDiProva(host::Cinterface& agenti, QString nome, std::optional<Visto>& visto,
                  std::optional<db::Value> restituito, bool fallisce);

    host::Cinterface& contract() override { return *this; }
    void setCallingData(const db::ValueList& data) override { m_dati = data; }
    host::EventSource<host::DataTransferEvents>& dataTransfer() override { return m_eventi; }
    void setCodiceAgente(const db::Value& code) override { m_codice = code; }
    db::Value CodiceAgente() const override { return m_codice; }
    db::Value TransferData(const db::Value& dati) override;
    db::Value ShowForm() override;

private:
    host::Cinterface& m_agenti;
    QString m_nome;
    std::optional<Visto>& m_visto;
    std::optional<db::Value> m_restituito;
    bool m_fallisce;
    db::ValueList m_dati;
    db::Value m_codice;
    host::EventSource<host::DataTransferEvents> m_eventi;
};

// How the host opens the agents module.
struct Apertura {
    std::optional<QString> codiceChiamato;
    std::optional<qint64> idChiamato;
    qint32 programMode = 0;
    bool modale = false;
    qint32 top = 0;
    qint32 left = 0;
};

// The agents screen opened the way the host opens it, on a database file with the host's
// schema and two companies: 1 keeps divisional data, 2 does not. The screen works on its own
// connection to the same file.
class SchermataTest : public ::testing::Test {
protected:
    static constexpr qint32 dittaDivisionale = 1;
    static constexpr qint32 dittaSemplice = 2;

    void SetUp() override;
    void TearDown() override;

    db::Connection& db() { return m_database->connection(); }
    // A general-registry entry and an agent of the company linked to it; returns the agent id.
    qint64 inserisciAgente(const QString& codice, qint32 ditta = dittaDivisionale,
                           qint64 riferimento = 0);

    // Rows below the agents of company 1: a partner, a route, a customer on an agent's route.
    void socio(qint64 agente, int codice, const QString& nome);
    void giro(const QString& codice, const QString& descrizione);
    void tappa(qint64 agente, const QString& codiceGiro, int progressivo, const db::Value& cliente,
               const db::Value& destinazione = db::Value::null());

    // Creates the module, fills the contract as the host does, calls ShowForm and makes the
    // module the active one.
    agenti::CLSMG_AGENTI& apri(const Apertura& apertura = {}, qint32 ditta = dittaDivisionale);
    // Opens the screen, brings the agent frame onto the agent and shows its details, then
    // forgets the statements sent so far.
    void apriSu(const QString& codice);
    agenti::FRMMG_AGENTI& schermata() const;
    frame::GestAnagrafica& gestione(int numero) const;
    template <class T>
    T& controllo(QStringView nome) const
    {
        return agenti::controlloDi<T>(schermata(), nome);
    }
    // The statements the screen sent on its own connection, in order.
    QStringList istruzioni() const;
    // The name of the control holding the focus; empty when none does.
    QString fuoco() const;
    void rispondi(int risposta) { prompts.queue(services::PromptAnswer::button(risposta)); }
    // Installs the host module `identificativo` as a ModuloDiProva noting into `visto`.
    void registraModulo(const QString& identificativo,
                        std::optional<db::Value> restituito = std::nullopt, bool fallisce = false);

    std::unique_ptr<TestDatabase> m_database;
    services::ScriptedPrompts prompts;
    std::unique_ptr<services::HostContext> host;
    std::unique_ptr<services::HostNavigator> toolbar;
    MenuAgenti menu;
    // Last: the module and its screens go before the host they were opened in.
    std::unique_ptr<agenti::CLSMG_AGENTI> modulo;
    std::optional<ModuloDiProva::Visto> visto;

private:
    host::Company ditta(qint32 codice);
    qint64 m_prossimaAnagrafica = 100;
};

} // namespace tarvello::test
