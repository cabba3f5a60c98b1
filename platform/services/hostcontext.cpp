#include "platform/services/hostcontext.h"

#include "platform/services/agentsprintout.h"
#include "platform/services/hostlauncher.h"
#include "platform/services/managementmodule.h"
#include "src/host/calledmodule.h"
#include "src/host/cinterface.h"

namespace tarvello::services {

HostContext::HostContext(UserPrompts& prompts, const QString& connectionString,
                         const host::Company& company)
    : m_prompts(prompts)
    , m_connectionString(connectionString)
    , m_company(company)
    , m_managements(prompts, *this)
    , m_lookups(LookupCatalogue::standard())
    , m_objects(prompts, m_lookups, *this, m_managements)
{
    m_modules.add(QStringLiteral("Dorvanti.CLSCO_TABANAGGEN"),
                  [this] { return ManagementModule::registry(m_managements); });
    m_modules.add(QStringLiteral("Caspello.CLSPA_PROVVSCONTI"),
                  [this] { return ManagementModule::discountTables(m_managements); });
    m_modules.add(QStringLiteral("Brendolo.CLSMG_STAGENTI"),
                  [this] { return std::make_unique<AgentsPrintoutModule>(m_prompts); });
}

void HostContext::setConnectionString(const QString& connectionString)
{
    m_connectionString = connectionString;
}

host::Cinterface* HostContext::parentWindowModule() const
{
    return m_parentWindowModule ? m_parentWindowModule : m_activeModule;
}

void HostContext::deregisterModule(host::Cinterface* module)
{
    if (!module)
        return;
    for (host::Cinterface** held : {&m_activeModule, &m_secondModule, &m_parentWindowModule}) {
        if (*held == module)
            *held = nullptr;
    }
}

void HostContext::registerApplication(const host::ApplicationInfo& application)
{
    m_application = application;
}

std::unique_ptr<host::CalledModule> HostContext::createModule(const QString& programmaticIdentifier)
{
    return m_modules.create(programmaticIdentifier);
}

db::Value HostContext::startModule(host::Cinterface* reference,
                                   const QString& programmaticIdentifier,
                                   const db::ValueList& arguments)
{
    m_starts.append({programmaticIdentifier, reference != nullptr, arguments});
    std::unique_ptr<host::CalledModule> created;
    host::Cinterface* module = reference ? reference : m_secondModule;
    if (!module) {
        created = m_modules.create(programmaticIdentifier);
        module = &created->contract();
    }
    module->setClsGlobal(this);
    module->setActiveNavigator(m_navigator);
    module->setWindowModal(true);
    module->ShowForm();
    return {};
}

std::unique_ptr<host::ManagementLauncher> HostContext::newManagementLauncher()
{
    return std::make_unique<HostLauncher>(m_managements);
}

} // namespace tarvello::services
