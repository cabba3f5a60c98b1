#pragma once

#include "platform/db/value.h"

#include <QtGlobal>

class QObject;

namespace tarvello::host {

class Cinterface;

// The host's divisional-data component: the data an entity (an agent, a customer) keeps for
// each division of the company, managed on a screen of its own.
class DivisionalData {
public:
    // The kind the component and its tables give to agents.
    static constexpr qint32 AgentEntity = 3;

    virtual ~DivisionalData() = default;

    // The module the management is opened for (its window is the management's parent), a
    // second object the management may work with, and the entity: its kind and its code.
    virtual void initialise(Cinterface* module, QObject* other, qint32 entityKind,
                            const db::Value& entityCode) = 0;
    // Lets go of the module (nullptr) once the management has closed.
    virtual void setModule(Cinterface* module) = 0;
    // Modal: returns when the management has closed.
    virtual void run() = 0;
};

} // namespace tarvello::host
