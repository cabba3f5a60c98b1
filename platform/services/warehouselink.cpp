#include "platform/services/warehouselink.h"

#include "platform/db/runtimeerror.h"
#include "platform/services/managementchoice.h"
#include "platform/services/userprompts.h"

namespace tarvello::services {

void WarehouseLink::setPosition(qint32 left, qint32 top)
{
    m_left = left;
    m_top = top;
}

void WarehouseLink::requireModule() const
{
    if (!m_module)
        throw db::RuntimeError(db::RuntimeError::ObjectRequired, QStringLiteral("Object required"),
                               QStringLiteral("ConnectMagazzino"));
}

void WarehouseLink::transfer(const host::WarehouseTransfer& data) const
{
    if (m_handler)
        m_handler(data);
}

void WarehouseLink::openRoutes(const QString& route)
{
    requireModule();
    const PromptAnswer answer =
        m_prompts.management(QStringLiteral("Giri"), route, {PromptAnswer::Kind::Route});
    if (answer.kind() != PromptAnswer::Kind::Route)
        return;
    host::WarehouseTransfer data;
    data.operation = host::WarehouseTransfer::Route;
    data.value = answer.text();
    transfer(data);
}

void WarehouseLink::openCustomerList(const QString& agent)
{
    requireModule();
    const PromptAnswer answer = m_prompts.management(QStringLiteral("Elenco clienti"), agent,
                                                     {PromptAnswer::Kind::Customers});
    if (answer.kind() != PromptAnswer::Kind::Customers)
        return;
    db::RecordsetPtr customers = db::Recordset::create();
    customers->appendField(QStringLiteral("CG44_CLIFOR"), db::ColumnKind::Integer);
    customers->appendField(QStringLiteral("MG22_CODDESTIN"), db::ColumnKind::Text);
    customers->openInMemory();
    for (const CustomerChoice& choice : answer.customerList()) {
        customers->addNew();
        customers->setValue(u"CG44_CLIFOR", choice.customer.toLongLong());
        customers->setValue(u"MG22_CODDESTIN", choice.destination.isEmpty()
                                                   ? db::Value::null()
                                                   : db::Value(choice.destination));
        customers->update();
    }
    if (!customers->bof() || !customers->eof())
        customers->moveFirst();
    host::WarehouseTransfer data;
    data.operation = host::WarehouseTransfer::Customers;
    data.recordset = customers;
    transfer(data);
}

void WarehouseLink::openDepots(const QString& depot)
{
    chooseIntoField(m_prompts, m_module, QStringLiteral("Depositi"), depot, m_field);
}

} // namespace tarvello::services
