#include "platform/services/moduleregistry.h"

#include "platform/db/runtimeerror.h"
#include "src/host/calledmodule.h"

namespace tarvello::services {

namespace {

constexpr long CannotCreateObject = 429;

} // namespace

void ModuleRegistry::add(const QString& programmaticIdentifier, Factory factory)
{
    m_factories.insert(programmaticIdentifier.toLower(), std::move(factory));
}

bool ModuleRegistry::contains(const QString& programmaticIdentifier) const
{
    return m_factories.contains(programmaticIdentifier.toLower());
}

std::unique_ptr<host::CalledModule>
ModuleRegistry::create(const QString& programmaticIdentifier) const
{
    const auto found = m_factories.constFind(programmaticIdentifier.toLower());
    std::unique_ptr<host::CalledModule> module;
    if (found != m_factories.constEnd())
        module = (*found)();
    if (!module)
        throw db::RuntimeError(CannotCreateObject,
                               QStringLiteral("ActiveX component can't create object"),
                               programmaticIdentifier);
    return module;
}

} // namespace tarvello::services
