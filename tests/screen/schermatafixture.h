#pragma once

#include "platform/controls/form.h"
#include "platform/db/connection.h"
#include "platform/frame/gestanagrafica.h"
#include "platform/services/hostcontext.h"
#include "platform/services/hostnavigator.h"
#include "platform/services/scriptedprompts.h"
#include "src/host/menuentry.h"
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

    // Creates the module, fills the contract as the host does, calls ShowForm and makes the
    // module the active one.
    agenti::CLSMG_AGENTI& apri(const Apertura& apertura = {}, qint32 ditta = dittaDivisionale);
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

    std::unique_ptr<TestDatabase> m_database;
    services::ScriptedPrompts prompts;
    std::unique_ptr<services::HostContext> host;
    std::unique_ptr<services::HostNavigator> toolbar;
    MenuAgenti menu;
    // Last: the module and its screens go before the host they were opened in.
    std::unique_ptr<agenti::CLSMG_AGENTI> modulo;

private:
    host::Company ditta(qint32 codice);
    qint64 m_prossimaAnagrafica = 100;
};

} // namespace tarvello::test
