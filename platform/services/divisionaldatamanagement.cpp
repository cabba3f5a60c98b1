#include "platform/services/divisionaldatamanagement.h"

#include "platform/db/connection.h"
#include "platform/db/runtimeerror.h"
#include "platform/frame/frameeventargs.h"
#include "platform/frame/gestanagrafica.h"
#include "platform/services/hostcontext.h"
#include "platform/services/management/hostmanagements.h"
#include "platform/services/management/managementcatalogue.h"
#include "platform/services/management/tablemanagement.h"
#include "platform/services/managementchoice.h"
#include "platform/services/userprompts.h"
#include "src/host/cinterface.h"

#include <optional>

namespace tarvello::services {

namespace {

const QString entityColumn = QStringLiteral("CO1G_IDENTITADIV_CO1C");

// The first value of a statement's first row; none without rows.
std::optional<db::Value> firstValue(db::Connection& connection, const QString& sql)
{
    const db::ResultSet found = connection.query(sql);
    if (found.rows.isEmpty())
        return std::nullopt;
    return found.rows.first().first();
}

// Keeps the divisional rows of one entity. A row saved while the entity does not exist yet
// writes it first, in the transaction the row is written in.
class EntityRows {
public:
    EntityRows(TableManagement& management, qint32 company, qint32 kind, qint64 agent,
               QString label, qint64 entity)
        : m_management(management)
        , m_company(company)
        , m_label(std::move(label))
        , m_kind(kind)
        , m_agent(agent)
        , m_entity(entity)
    {
        frame::GestAnagrafica* rows = management.recordFrame();
        QObject::connect(rows, &frame::GestAnagrafica::BeforeUpdate, &management,
                         [this](frame::CancelArgs& args) { beforeSave(args); });
        QObject::connect(rows, &frame::GestAnagrafica::AfterUpdate, &management,
                         [this](int result) { afterSave(result); });
    }

private:
    void beforeSave(const frame::CancelArgs& args)
    {
        if (args.fbol_Cancel)
            return;
        if (m_entity == 0) {
            db::Connection& connection = m_management.connection();
            m_writing.reset();
            m_writing.emplace(connection);
            m_entity =
                connection
                    .insertRow(
                        QStringLiteral("CO1C_ENTITADIV"),
                        {QStringLiteral("CO1C_DITTA_CG18"), QStringLiteral("CO1C_IDENTITA"),
                         QStringLiteral("CO1C_IDAGENTE_MG17"), QStringLiteral("CO1C_DESCRIZIONE")},
                        {m_company, m_kind, m_agent, m_label}, QStringLiteral("CO1C_IDENTITADIV"))
                    .toInt64();
        }
        m_management.rows()->setValue(entityColumn, m_entity);
    }

    void afterSave(int result)
    {
        if (!m_writing)
            return;
        if (result == frame::OperationSucceeded)
            m_writing->commit();
        else
            m_entity = 0;
        m_writing.reset();
    }

    TableManagement& m_management; // Not owned: outlives this.
    qint32 m_company;
    QString m_label;
    qint32 m_kind;
    qint64 m_agent;
    qint64 m_entity;
    std::optional<db::TransactionGuard> m_writing;
};

} // namespace

void DivisionalDataManagement::initialise(host::Cinterface* module, QObject* /*other*/,
                                          qint32 entityKind, const db::Value& entityCode)
{
    m_module = module;
    m_entityKind = entityKind;
    m_entityCode = entityCode;
}

void DivisionalDataManagement::run()
{
    // The management's window belongs to a module; opened for none it has nowhere to go.
    requireModule(m_module, QStringLiteral("DatiDivisionali"));
    m_managements.ask(QStringLiteral("Dati divisionali"),
                      QStringLiteral("%1, %2").arg(m_entityKind).arg(m_entityCode.toString()), {},
                      [this] {
                          workOnRows();
                          return PromptAnswer::nothing();
                      });
}

void DivisionalDataManagement::workOnRows() const
{
    const QString agentCode = m_entityCode.toString().trimmed();
    ManagementDescription description = managements::divisionalData();
    description.title = QStringLiteral("Dati divisionali dell'agente %1").arg(agentCode);
    const host::Company company = m_managements.context().company();
    std::optional<db::Value> agent;
    std::optional<db::Value> entity;
    try {
        db::Connection lookup;
        lookup.open(m_managements.context().connectionString());
        agent = firstValue(lookup, QStringLiteral("SELECT MG17_IDAGENTE FROM MG17_AGENTI WHERE "
                                                  "MG17_DITTA_CG18 = %1 AND MG17_AGENTE = %2")
                                       .arg(company.code)
                                       .arg(db::quoted(agentCode)));
        if (agent)
            entity =
                firstValue(lookup, QStringLiteral("SELECT CO1C_IDENTITADIV FROM CO1C_ENTITADIV"
                                                  " WHERE CO1C_DITTA_CG18 = %1 AND "
                                                  "CO1C_IDENTITA = %2 AND CO1C_IDAGENTE_MG17 = %3")
                                       .arg(company.code)
                                       .arg(m_entityKind)
                                       .arg(agent->toInt64()));
    } catch (const db::RuntimeError& error) {
        m_managements.reportOpeningFailure(description.title, error.description());
        return;
    }
    if (!agent) {
        m_managements.prompts().messageBox(
            QStringLiteral("L'agente %1 non è salvato: non ha ancora dati divisionali.")
                .arg(agentCode),
            64, description.title);
        return;
    }
    const qint64 entityId = entity ? entity->toInt64() : 0;
    ManagementOpening opening;
    opening.parents = {entityId};
    std::optional<EntityRows> rows;
    m_managements.runWindow(description, opening, [&](TableManagement& management) {
        rows.emplace(management, company.code, m_entityKind, agent->toInt64(),
                     QStringLiteral("Agente %1").arg(agentCode), entityId);
    });
}

} // namespace tarvello::services
