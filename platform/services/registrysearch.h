#pragma once

#include "src/host/registrysearch.h"

#include <memory>

namespace tarvello::services {

class HostManagements;
class PromptAnswer;

// The host's general-registry search: a window listing the entries of its kind, searched by
// name, tax code or code. The person's choice is checked against the database: a row that
// the list would not show cannot be picked.
class RegistrySearch final : public host::GeneralRegistrySearch {
public:
    explicit RegistrySearch(const HostManagements& managements);
    ~RegistrySearch() override;

    void setContext(host::GlobalContext* context) override { m_context = context; }
    // The search reads through this connection; without one it opens its own.
    void setConnection(db::Connection* connection, const QString& connectionString) override;
    void setCompany(qint32 company) override { m_company = company; }
    void setTitle(const QString& title) override { m_title = title; }
    void setKind(int kind) override { m_kind = kind; }
    void setStartText(const QString& text) override { m_startText = text; }
    void run() override;
    QString selectedAgent() const override { return m_agent; }
    db::Value selectedRegistryCode() const override { return m_registryCode; }

private:
    db::Connection& connection();
    bool listed(const PromptAnswer& answer);
    PromptAnswer searchWindow() const;

    const HostManagements& m_managements;            // Not owned.
    host::GlobalContext* m_context = nullptr;        // Not owned.
    db::Connection* m_connection = nullptr;          // Not owned.
    std::unique_ptr<db::Connection> m_ownConnection; // Owned.
    QString m_connectionString;
    qint32 m_company = 0;
    QString m_title;
    int m_kind = AgentsAndFreeEntries;
    QString m_startText;
    QString m_agent;
    db::Value m_registryCode;
};

} // namespace tarvello::services
