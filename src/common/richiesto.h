#pragma once

#include "platform/db/runtimeerror.h"

#include <QString>

namespace tarvello::agenti {

// A use of an object reference that is not set: error 91, so the caller's error style deals
// with it as with any run-time error.
[[noreturn]] inline void oggettoMancante(const QString& nome)
{
    constexpr long ObjectVariableNotSet = 91;
    throw db::RuntimeError(ObjectVariableNotSet,
                           QStringLiteral("Object variable or With block variable not set"), nome);
}

// The object behind a reference the module goes on to use.
template <class T>
T& richiesto(T* oggetto, const char* nome)
{
    if (!oggetto)
        oggettoMancante(QString::fromUtf8(nome));
    return *oggetto;
}

} // namespace tarvello::agenti
