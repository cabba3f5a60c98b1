#pragma once

#include "platform/controls/combobox.h"
#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/controls/grid.h"
#include "platform/controls/gridnavigator.h"
#include "platform/controls/navigatorbar.h"
#include "platform/db/connection.h"
#include "platform/db/demodata.h"
#include "platform/db/recordset.h"
#include "platform/frame/gestanagrafica.h"
#include "platform/services/scriptedprompts.h"
#include "support/testdatabase.h"

#include <gtest/gtest.h>
#include <memory>

namespace tarvello::test {

// Writes down the events of a record frame as "Event(arguments)", in the order raised, and
// answers the Before events as a screen would.
struct FrameEvents {
    QStringList log;
    bool refuseUpdate = false;
    bool refuseDelete = false;
    // The id column's value as AfterUpdate saw it.
    db::Value idInAfterUpdate;
    QString idColumn;

    void watch(frame::GestAnagrafica& frame)
    {
        using frame::GestAnagrafica;
        const auto number = [](int n) { return QString::number(n); };
        QObject::connect(&frame, &GestAnagrafica::AfterAddNew, [this, number](int result) {
            log << QStringLiteral("AfterAddNew(%1)").arg(number(result));
        });
        QObject::connect(&frame, &GestAnagrafica::AfterDelete, [this, number](int result) {
            log << QStringLiteral("AfterDelete(%1)").arg(number(result));
        });
        QObject::connect(&frame, &GestAnagrafica::AfterUndo, [this, number](int result) {
            log << QStringLiteral("AfterUndo(%1)").arg(number(result));
        });
        QObject::connect(&frame, &GestAnagrafica::AfterUpdate, [this, number, &frame](int result) {
            log << QStringLiteral("AfterUpdate(%1)").arg(number(result));
            if (!idColumn.isEmpty())
                idInAfterUpdate = frame.recordset()->value(idColumn);
        });
        QObject::connect(&frame, &GestAnagrafica::BeforeDelete, [this](frame::CancelArgs& args) {
            log << QStringLiteral("BeforeDelete");
            args.fbol_Cancel = refuseDelete;
        });
        QObject::connect(&frame, &GestAnagrafica::BeforeUpdate, [this](frame::CancelArgs& args) {
            log << QStringLiteral("BeforeUpdate");
            args.fbol_Cancel = refuseUpdate;
        });
        QObject::connect(
            &frame, &GestAnagrafica::ChangeStatus, [this, number](int status, int reason) {
                log << QStringLiteral("ChangeStatus(%1,%2)").arg(number(status), number(reason));
            });
        QObject::connect(&frame, &GestAnagrafica::IsRecordChanged,
                         [this](frame::RecordChangedArgs& args) {
                             log << QStringLiteral("IsRecordChanged(%1)")
                                        .arg(args.fbol_isRecordChanged ? u"true" : u"false");
                         });
        QObject::connect(&frame, &GestAnagrafica::UpdateBatchAll,
                         [this] { log << QStringLiteral("UpdateBatchAll"); });
    }

    // The entries logged since the last call.
    QStringList take() { return std::exchange(log, {}); }
};

// An agents screen in small: the agent header on MG17_AGENTI (the master frame) and its
// partners on MG18_AGENTISOCI (a detail frame with grid and navigator), on the project
// schema, once per database target.
class FrameTest : public ::testing::TestWithParam<DatabaseTarget> {
protected:
    static constexpr int company = 1;

    void SetUp() override;

    db::Connection& db() { return m_database->connection(); }
    qint64 count(const QString& sql) { return db().query(sql).rows.first().first().toInt64(); }
    db::Value cell(const QString& sql) { return db().query(sql).rows.first().first(); }
    qint64 insertAgent(const QString& code, int ditta = company);
    void insertPartner(qint64 agent, int code, const QString& name);

    QString agentsSql(const QString& more = {}) const;
    // Opens the agents and binds the master frame to them.
    void openAgents(const QString& more = {});
    // Binds the partners frame to an empty recordset, as the screen's start-up does.
    void openPartners();
    QString partnersSql(qint64 agent) const;
    // The last prompt shown.
    services::PromptRecord lastPrompt() const;
    qsizetype promptCount() const { return prompts.history().size(); }
    void answer(int standardAnswer)
    {
        prompts.queue(services::PromptAnswer::button(standardAnswer));
    }

    // First in, last out: the frames' recordsets refer to its connection.
    std::unique_ptr<TestDatabase> m_database;
    services::ScriptedPrompts prompts;
    controls::Form form{QStringLiteral("FRMMG_AGENTI")};

    controls::Field* agente = nullptr;
    controls::Field* percentuale = nullptr;
    controls::ComboBox* regime = nullptr;
    controls::Field* ragioneSociale = nullptr;
    controls::NavigatorBar* internav = nullptr;

    controls::Field* codSocio = nullptr;
    controls::Field* nomeSocio = nullptr;
    controls::Field* quota = nullptr;
    controls::Grid* gridSoci = nullptr;
    controls::GridNavigator* navSoci = nullptr;

    frame::GestAnagrafica agents{prompts};
    frame::GestAnagrafica partners{prompts};
    FrameEvents agentEvents;
    FrameEvents partnerEvents;
};

} // namespace tarvello::test
