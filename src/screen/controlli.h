#pragma once

#include "platform/controls/form.h"

#include <stdexcept>

namespace tarvello::agenti {

// A control of a screen by name and kind. The screens are laid out by the module itself, so
// a name or kind it does not have is a fault of the program, not a run-time error.
template <class T>
T& controlloDi(const controls::Form& schermata, QStringView nome)
{
    if (T* trovato = schermata.find<T>(nome))
        return *trovato;
    throw std::logic_error(schermata.name().toStdString() + " has no " +
                           T::staticMetaObject.className() + " named " +
                           nome.toString().toStdString());
}

} // namespace tarvello::agenti
