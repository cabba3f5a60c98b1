#pragma once

#include "platform/db/value.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace tarvello::host {

class Cinterface;

// One column of a decoding's first row and the control that shows it.
struct DecodeTarget {
    QString control;
    QString column;
    friend bool operator==(const DecodeTarget&, const DecodeTarget&) = default;
};

// A lookup-and-decode object: it prepares, from the host's lookup definitions, the statement
// that lists the rows of a lookup and the statement that decodes one code into its
// description. Named parameters set before preparing are put into the statements.
class LookupDecoder {
public:
    virtual ~LookupDecoder() = default;

    virtual void bind(Cinterface* module) = 0;
    virtual void setParameter(const QString& name, const db::Value& value) = 0;
    // Prepares the decoding of code with a definition; descriptionControl receives the
    // description (the first target).
    virtual void prepareDecoding(const QString& definition, const db::Value& code,
                                 const QString& descriptionControl) = 0;
    virtual void prepareLookup(const QString& definition, int option = 0) = 0;

    // What the last preparation produced.
    virtual QString query() const = 0;
    virtual QList<DecodeTarget> targets() const = 0;
    virtual QStringList columns() const = 0;
    virtual QString title() const = 0;
    virtual QString lookupId() const = 0;
};

} // namespace tarvello::host
