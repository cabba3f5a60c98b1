#include "platform/services/managementmodule.h"

#include "platform/frame/frameeventargs.h"
#include "platform/frame/gestanagrafica.h"
#include "platform/services/management/hostmanagements.h"
#include "platform/services/management/managementcatalogue.h"
#include "platform/services/management/tablemanagement.h"

namespace tarvello::services {

namespace {

// A new registry entry is offered the code after the highest one.
void offerNextCode(TableManagement& management)
{
    QObject::connect(management.recordFrame(), &frame::GestAnagrafica::AfterAddNew, &management,
                     [&management](int result) {
                         if (result != frame::OperationSucceeded)
                             return;
                         const db::ResultSet highest = management.connection().query(
                             QStringLiteral("SELECT MAX(CG16_CODICE) FROM CG16_ANAGGEN"));
                         const db::Value last = highest.rows.value(0).value(0);
                         management.rows()->setValue(u"CG16_CODICE",
                                                     (last.isBlank() ? 0 : last.toInt64()) + 1);
                     });
}

} // namespace

ManagementModule::ManagementModule(Screen screen, const HostManagements& managements)
    : m_screen(std::move(screen))
    , m_managements(managements)
{}

std::unique_ptr<ManagementModule> ManagementModule::registry(const HostManagements& managements)
{
    Screen screen;
    screen.name = QStringLiteral("Anagrafiche generali");
    screen.description = managements::registry();
    screen.opening = [](const db::ValueList& data) {
        ManagementOpening opening;
        if (!data.value(1).isBlank() && data.value(1).toBool())
            opening.position = data.value(0);
        return opening;
    };
    screen.prepare = offerNextCode;
    return std::make_unique<ManagementModule>(std::move(screen), managements);
}

std::unique_ptr<ManagementModule>
ManagementModule::discountTables(const HostManagements& managements)
{
    Screen screen;
    screen.name = QStringLiteral("Tabelle provvigioni su sconti");
    screen.description = managements::discountTables();
    screen.opening = [](const db::ValueList& data) {
        ManagementOpening opening;
        opening.parents = {0};
        opening.position = data.value(1);
        return opening;
    };
    return std::make_unique<ManagementModule>(std::move(screen), managements);
}

db::Value ManagementModule::ShowForm()
{
    QStringList opened;
    for (const db::Value& value : m_callingData)
        opened << value.debugText();
    const PromptAnswer answer = m_managements.ask(
        m_screen.name, opened.join(QStringLiteral(", ")),
        {PromptAnswer::Kind::Transfer, PromptAnswer::Kind::Codes}, [this] {
            const QList<db::ValueList> chosen = m_managements.runWindow(
                m_screen.description, m_screen.opening(m_callingData), m_screen.prepare, this);
            return chosen.isEmpty() ? PromptAnswer::nothing()
                                    : PromptAnswer::transfer(chosen.first().first());
        });
    if (answer.kind() == PromptAnswer::Kind::Transfer) {
        TransferData(db::ValueList{answer.value()});
    } else if (answer.kind() == PromptAnswer::Kind::Codes) {
        db::ValueList codes;
        for (const QString& code : answer.codeList())
            codes.append(code);
        TransferData(codes);
    }
    return {};
}

db::Value ManagementModule::TransferData(const db::Value& Calling_parameters)
{
    m_dataTransfer.raise(&host::DataTransferEvents::DataTransfer, Calling_parameters);
    return {};
}

} // namespace tarvello::services
