#pragma once

#include "platform/db/runtimeerror.h"

#include <QString>

namespace tarvello::agenti {

// An object reference the module goes on to use: error 91 when it is not set, as a use of
// an empty object variable is.
template <class T>
T& richiesto(T* oggetto, const char* nome)
{
    constexpr long ObjectVariableNotSet = 91;
    if (!oggetto)
        throw db::RuntimeError(ObjectVariableNotSet,
                               QStringLiteral("Object variable or With block variable not set"),
                               QString::fromUtf8(nome));
    return *oggetto;
}

} // namespace tarvello::agenti
