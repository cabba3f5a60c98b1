#pragma once

#include "platform/db/runtimeerror.h"

#include <QString>

namespace tarvello::agenti {

// The object behind a reference the tree's procedures need; a missing one is the run-time
// error such a reference raises, so the procedure's error style deals with it.
template <class T>
T& oggettoRichiesto(T* oggetto, const char* nome)
{
    constexpr long ObjectVariableNotSet = 91;
    if (!oggetto)
        throw db::RuntimeError(ObjectVariableNotSet,
                               QStringLiteral("Object variable or With block variable not set"),
                               QString::fromUtf8(nome));
    return *oggetto;
}

} // namespace tarvello::agenti
