#pragma once

#include "platform/services/hostmessages.h"
#include "platform/services/hostobjectfactory.h"
#include "platform/services/lookupcatalogue.h"
#include "platform/services/management/hostmanagements.h"
#include "platform/services/moduleregistry.h"
#include "src/host/globalcontext.h"

#include <optional>

namespace tarvello::host {
class Navigator;
}

namespace tarvello::services {

class UserPrompts;

// The host's global context. It knows the other modules of the host by identifier: the
// agents' printouts are there from the start, and so are the general registry and the
// commission-on-discount tables, whose screens are managements of the host.
class HostContext final : public host::GlobalContext {
public:
    // A module the host ran by identifier.
    struct ModuleStart {
        QString programmaticIdentifier;
        bool byReference = false;
        db::ValueList arguments;
    };

    HostContext(UserPrompts& prompts, const QString& connectionString,
                const host::Company& company);
    HostContext(const HostContext&) = delete;
    HostContext& operator=(const HostContext&) = delete;

    void setCompany(const host::Company& company) { m_company = company; }
    void setConnectionString(const QString& connectionString);
    void setEnvironment(const host::Environment& environment) { m_environment = environment; }
    void setParentWindowModule(host::Cinterface* module) { m_parentWindowModule = module; }
    // The navigator the modules the host starts work with.
    void setNavigator(host::Navigator* navigator) { m_navigator = navigator; }
    host::Navigator* navigator() const { return m_navigator; }
    // The host's own managements (routes, depots, the general registry, ...).
    HostManagements& managements() { return m_managements; }

    ModuleRegistry& modules() { return m_modules; }
    UserPrompts& prompts() const { return m_prompts; }
    const std::optional<host::ApplicationInfo>& application() const { return m_application; }
    const QList<ModuleStart>& moduleStarts() const { return m_starts; }

    host::Company company() const override { return m_company; }
    QString connectionString() const override { return m_connectionString; }
    host::Environment environment() const override { return m_environment; }
    // The module set as the parent window's; the active module when none was set.
    host::Cinterface* parentWindowModule() const override;
    void setActiveModule(host::Cinterface* module) override { m_activeModule = module; }
    host::Cinterface* activeModule() const override { return m_activeModule; }
    void setSecondModule(host::Cinterface* module) override { m_secondModule = module; }
    host::Cinterface* secondModule() const override { return m_secondModule; }
    void deregisterModule(host::Cinterface* module) override;
    void registerApplication(const host::ApplicationInfo& application) override;
    std::unique_ptr<host::CalledModule>
    createModule(const QString& programmaticIdentifier) override;
    db::Value startModule(host::Cinterface* reference, const QString& programmaticIdentifier,
                          const db::ValueList& arguments) override;
    std::unique_ptr<host::ManagementLauncher> newManagementLauncher() override;
    const host::MessageCatalogue& messages() const override { return m_messages; }
    host::HostObjects& objects() override { return m_objects; }

private:
    UserPrompts& m_prompts; // Not owned.
    QString m_connectionString;
    host::Company m_company;
    host::Environment m_environment;
    host::Cinterface* m_parentWindowModule = nullptr; // Not owned.
    host::Cinterface* m_activeModule = nullptr;       // Not owned.
    host::Cinterface* m_secondModule = nullptr;       // Not owned.
    host::Navigator* m_navigator = nullptr;           // Not owned.
    std::optional<host::ApplicationInfo> m_application;
    ModuleRegistry m_modules;
    HostMessages m_messages;
    HostManagements m_managements;
    LookupCatalogue m_lookups;
    HostObjectFactory m_objects;
    QList<ModuleStart> m_starts;
};

} // namespace tarvello::services
