#pragma once

#include "src/host/lookupdecoder.h"

#include <QHash>

namespace tarvello::host {
class GlobalContext;
}

namespace tarvello::services {

class LookupCatalogue;
struct LookupDefinition;

// The host's lookup-and-decode object: it prepares the statements of the catalogue's
// definitions with the current company, the code and the named parameters set on it. A
// parameter keeps its value for every later preparation.
class HostLookup final : public host::LookupDecoder {
public:
    HostLookup(const LookupCatalogue& catalogue, const host::GlobalContext& context)
        : m_catalogue(catalogue)
        , m_context(context)
    {}

    void bind(host::Cinterface* module) override { m_module = module; }
    void setParameter(const QString& name, const db::Value& value) override;
    void prepareDecoding(const QString& definition, const db::Value& code,
                         const QString& descriptionControl) override;
    void prepareLookup(const QString& definition, int option = 0) override;

    QString query() const override { return m_query; }
    QList<host::DecodeTarget> targets() const override { return m_targets; }
    QStringList columns() const override { return m_columns; }
    QString title() const override { return m_title; }
    QString lookupId() const override { return m_lookupId; }

    host::Cinterface* boundModule() const { return m_module; }

private:
    QString bind(const LookupDefinition& definition, const QString& sql,
                 const db::Value& code) const;
    void describe(const LookupDefinition& definition);

    const LookupCatalogue& m_catalogue;   // Not owned.
    const host::GlobalContext& m_context; // Not owned.
    host::Cinterface* m_module = nullptr; // Not owned.
    QHash<QString, db::Value> m_parameters;
    QString m_query;
    QList<host::DecodeTarget> m_targets;
    QStringList m_columns;
    QString m_title;
    QString m_lookupId;
};

} // namespace tarvello::services
