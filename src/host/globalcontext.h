#pragma once

#include "platform/db/value.h"

#include <QString>
#include <memory>

namespace tarvello::host {

class CalledModule;
class Cinterface;
class HostObjects;
class ManagementLauncher;
class MessageCatalogue;

// The host's current company.
struct Company {
    qint32 code = 0;
    QString name;
    // The company keeps divisional data of its entities.
    bool divisionalData = false;
};

// Values of the host's environment that the module only forwards (to the multimedia archive).
struct Environment {
    QString user;
    QString workstation;
};

// What a module tells the host about itself, once its screen has opened.
struct ApplicationInfo {
    QString title;
    QString programName;
};

// The fixed arguments a module passes when it starts another module by identifier.
inline db::ValueList startModuleArguments()
{
    return {-1, 2, 0, 0, 0, 0, -1, -1};
}

// The host's global context (ClsGlobal): the current company and connection, the module the
// host works for, the other modules of the host, and the host's launchers and catalogues.
class GlobalContext {
public:
    virtual ~GlobalContext() = default;

    virtual Company company() const = 0;
    virtual QString connectionString() const = 0;
    virtual Environment environment() const = 0;
    // The module whose window is the parent of the host's windows.
    virtual Cinterface* parentWindowModule() const = 0;

    // The module the host's navigator works for; none between modules.
    virtual void setActiveModule(Cinterface* module) = 0;
    virtual Cinterface* activeModule() const = 0;
    // A module started by the active one, which the host runs on its behalf.
    virtual void setSecondModule(Cinterface* module) = 0;
    virtual Cinterface* secondModule() const = 0;
    // Forgets a module that is going away, wherever the context holds it.
    virtual void deregisterModule(Cinterface* module) = 0;
    virtual void registerApplication(const ApplicationInfo& application) = 0;

    // A new object of another module of the host; raises an error for an identifier the host
    // does not know.
    virtual std::unique_ptr<CalledModule> createModule(const QString& programmaticIdentifier) = 0;
    // Runs a module by identifier: the reference given, or else the second module reference,
    // or else a new object. The call returns when the module's screen has closed.
    virtual db::Value startModule(Cinterface* reference, const QString& programmaticIdentifier,
                                  const db::ValueList& arguments) = 0;

    virtual std::unique_ptr<ManagementLauncher> newManagementLauncher() = 0;
    virtual const MessageCatalogue& messages() const = 0;
    // The host's creatable objects (error log, lookups, searches).
    virtual HostObjects& objects() = 0;
};

} // namespace tarvello::host
