#include "platform/services/warehouselink.h"

#include "platform/services/management/hostmanagements.h"
#include "platform/services/management/managementcatalogue.h"
#include "platform/services/managementchoice.h"

namespace tarvello::services {

namespace {

const QString routesName = QStringLiteral("Giri");
const QString customersName = QStringLiteral("Elenco clienti");

// The customers chosen, as the customer list hands them back (CG44_CLIFOR, MG22_CODDESTIN;
// Null for no destination), on the first.
db::RecordsetPtr customerRows(const QList<CustomerChoice>& chosen)
{
    db::RecordsetPtr customers = db::Recordset::create();
    customers->appendField(QStringLiteral("CG44_CLIFOR"), db::ColumnKind::Integer);
    customers->appendField(QStringLiteral("MG22_CODDESTIN"), db::ColumnKind::Text);
    customers->openInMemory();
    QList<db::ValueList> rows;
    rows.reserve(chosen.size());
    for (const CustomerChoice& choice : chosen)
        rows.append({choice.customer.toLongLong(), choice.destination.isEmpty()
                                                       ? db::Value::null()
                                                       : db::Value(choice.destination)});
    customers->appendRows(rows);
    if (!customers->bof() || !customers->eof())
        customers->moveFirst();
    return customers;
}

PromptAnswer customersAnswer(const QList<db::ValueList>& chosen)
{
    if (chosen.isEmpty())
        return PromptAnswer::nothing();
    QList<CustomerChoice> customers;
    for (const db::ValueList& row : chosen)
        customers.append({row.value(0).toString(), row.value(1).toString().trimmed()});
    return PromptAnswer::customers(customers);
}

} // namespace

void WarehouseLink::setPosition(qint32 left, qint32 top)
{
    m_left = left;
    m_top = top;
}

void WarehouseLink::transfer(const host::WarehouseTransfer& data) const
{
    if (m_handler)
        m_handler(data);
}

void WarehouseLink::openRoutes(const QString& route)
{
    requireModule(m_module, QStringLiteral("ConnectMagazzino"));
    const PromptAnswer answer =
        m_managements.ask(routesName, route, {PromptAnswer::Kind::Route}, [&] {
            ManagementOpening opening;
            opening.position = route;
            const PromptAnswer codes =
                codesAnswer(m_managements.runWindow(managements::routes(), opening));
            return codes.kind() == PromptAnswer::Kind::Codes
                       ? PromptAnswer::route(codes.codeList().first())
                       : codes;
        });
    if (answer.kind() != PromptAnswer::Kind::Route)
        return;
    host::WarehouseTransfer data;
    data.operation = host::WarehouseTransfer::Route;
    data.value = answer.text();
    transfer(data);
}

void WarehouseLink::openCustomerList(const QString& agent)
{
    requireModule(m_module, QStringLiteral("ConnectMagazzino"));
    const PromptAnswer answer =
        m_managements.ask(customersName, agent, {PromptAnswer::Kind::Customers}, [&] {
            return customersAnswer(m_managements.runWindow(managements::customers(), {}));
        });
    if (answer.kind() != PromptAnswer::Kind::Customers)
        return;
    host::WarehouseTransfer data;
    data.operation = host::WarehouseTransfer::Customers;
    data.recordset = customerRows(answer.customerList());
    transfer(data);
}

void WarehouseLink::openDepots(const QString& depot)
{
    requireModule(m_module, QStringLiteral("Depositi"));
    chooseIntoField(m_managements, QStringLiteral("Depositi"), depot, managements::depots(),
                    m_field);
}

} // namespace tarvello::services
