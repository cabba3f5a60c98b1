#pragma once

#include "platform/services/namedparameters.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace tarvello::services {

// One lookup of the host, described as data: the statement listing its rows, the statement
// decoding one code, and how they are shown. Statements are T-SQL on the host tables with
// named parameters: @DITTA (the current company), @CODICE (the code being decoded) and the
// parameters listed.
struct LookupDefinition {
    struct Parameter {
        QString name;
        ParameterKind kind = ParameterKind::Text;
    };

    QString name;
    QString title;
    QString lookupId;
    QStringList headings;
    QString listSql;
    QString decodeSql;
    // The decoding's columns, in the order of the controls they fill; the first is the
    // description.
    QStringList decodeColumns;
    ParameterKind codeKind = ParameterKind::Text;
    QList<Parameter> parameters;

    ParameterKind kindOf(const QString& parameter) const;
};

// The host's lookup definitions.
class LookupCatalogue {
public:
    // Every lookup the agents module asks for.
    static LookupCatalogue standard();

    void add(LookupDefinition definition) { m_definitions.append(std::move(definition)); }
    // Raises an invalid procedure call (5) for a name the catalogue does not hold.
    const LookupDefinition& definition(const QString& name) const;
    const QList<LookupDefinition>& definitions() const { return m_definitions; }

private:
    QList<LookupDefinition> m_definitions;
};

} // namespace tarvello::services
