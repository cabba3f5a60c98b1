#pragma once

#include <QHash>
#include <QString>
#include <functional>
#include <memory>

namespace tarvello::host {
class CalledModule;
}

namespace tarvello::services {

// The modules of the host by programmatic identifier ("Dorvanti.CLSCO_TABANAGGEN"), each
// with the factory that makes a new object of it. Identifiers are matched ignoring case.
class ModuleRegistry {
public:
    using Factory = std::function<std::unique_ptr<host::CalledModule>()>;

    void add(const QString& programmaticIdentifier, Factory factory);
    bool contains(const QString& programmaticIdentifier) const;
    // Raises "can't create object" (429) for an identifier nobody registered.
    std::unique_ptr<host::CalledModule> create(const QString& programmaticIdentifier) const;

private:
    QHash<QString, Factory> m_factories;
};

} // namespace tarvello::services
