#pragma once

#include "platform/db/value.h"

#include <QString>

namespace tarvello::db {
class Connection;
}

namespace tarvello::host {

class GlobalContext;

// The host's general-registry search: the user looks for an entry of the general registry
// (or, in kind 3, for an agent) and picks one or closes the list.
class GeneralRegistrySearch {
public:
    // Agents together with the registry entries no agent uses yet.
    static constexpr int AgentsAndFreeEntries = 3;
    // Every entry of the general registry.
    static constexpr int AllEntries = 1;

    virtual ~GeneralRegistrySearch() = default;

    virtual void setContext(GlobalContext* context) = 0;
    virtual void setConnection(db::Connection* connection, const QString& connectionString) = 0;
    virtual void setCompany(qint32 company) = 0;
    virtual void setTitle(const QString& title) = 0;
    virtual void setKind(int kind) = 0;
    virtual void setStartText(const QString& text) = 0;
    // Modal: returns when the user has picked a row or closed the list.
    virtual void run() = 0;
    // The code of the agent picked; empty when none.
    virtual QString selectedAgent() const = 0;
    // The code of the registry entry picked; Empty when none.
    virtual db::Value selectedRegistryCode() const = 0;
};

} // namespace tarvello::host
