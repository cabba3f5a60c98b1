#include "platform/services/management/hostmanagements.h"

#include "platform/db/runtimeerror.h"
#include "platform/frame/gestanagrafica.h"
#include "platform/services/hostcontext.h"
#include "platform/services/management/managementpresenter.h"
#include "platform/services/management/tablemanagement.h"
#include "platform/services/userprompts.h"
#include "src/host/modulecontract.h"
#include "src/host/navigator.h"

#include <QScopeGuard>

namespace tarvello::services {

namespace {

// A window of the host's own, as the host's toolbar and the modules see it while it is the
// active one: a module whose screen is the management.
class HostWindow final : public host::ModuleContract {
public:
    db::Value ShowForm() override { return {}; }
    db::Value TransferData(const db::Value&) override { return {}; }
};

} // namespace

PromptAnswer HostManagements::ask(const QString& name, const QString& details,
                                  QList<PromptAnswer::Kind> handsBack,
                                  const std::function<PromptAnswer()>& window) const
{
    handsBack.append(PromptAnswer::Kind::Window);
    const PromptAnswer answer = m_prompts.management(name, details, handsBack);
    return answer.kind() == PromptAnswer::Kind::Window ? window() : answer;
}

std::unique_ptr<TableManagement> HostManagements::open(ManagementDescription description,
                                                       ManagementOpening opening) const
{
    if (opening.connectionString.isEmpty())
        opening.connectionString = m_context.connectionString();
    if (opening.company == 0)
        opening.company = m_context.company().code;
    auto management = std::make_unique<TableManagement>(std::move(description), m_prompts);
    management->open(opening);
    return management;
}

QList<db::ValueList> HostManagements::run(TableManagement& management) const
{
    host::Cinterface* const caller = m_context.activeModule();
    HostWindow window;
    window.setClsGlobal(&m_context);
    window.setActiveNavigator(m_context.navigator());
    window.setConnection(&management.connection());
    window.setCaption(management.description().title);
    if (caller)
        caller->setIsActive(false);
    m_context.setActiveModule(&window);
    window.setIsActive(true);
    const auto restore = qScopeGuard([&] {
        m_context.setActiveModule(caller);
        if (caller)
            caller->setIsActive(true);
    });
    show(management, window);
    return management.chosen();
}

QList<db::ValueList>
HostManagements::runWindow(ManagementDescription description, const ManagementOpening& opening,
                           const std::function<void(TableManagement&)>& prepare,
                           host::Cinterface* module) const
{
    const QString title = description.title;
    std::unique_ptr<TableManagement> management;
    try {
        management = open(std::move(description), opening);
    } catch (const db::RuntimeError& error) {
        reportOpeningFailure(title, error.description());
        return {};
    }
    if (prepare)
        prepare(*management);
    if (!module)
        return run(*management);
    show(*management, *module);
    module->setActiveFrame(nullptr);
    return management->chosen();
}

void HostManagements::reportOpeningFailure(const QString& title, const QString& reason) const
{
    m_prompts.messageBox(
        QStringLiteral("Impossibile aprire la gestione \"%1\".\r\n%2").arg(title, reason), 16,
        QStringLiteral("Errore"));
}

void HostManagements::show(TableManagement& management, host::Cinterface& module) const
{
    if (!m_presenter)
        throw db::RuntimeError(
            db::RuntimeError::ObjectRequired,
            QStringLiteral("Questa installazione non può mostrare la gestione \"%1\".")
                .arg(management.description().title),
            management.description().name);
    module.setActiveFrame(management.recordFrame());
    if (host::Navigator* navigator = module.ActiveNavigator())
        navigator->update();
    m_presenter->present(management, module);
}

} // namespace tarvello::services
