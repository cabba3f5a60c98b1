#include "platform/controls/handlererrors.h"

#include "platform/controls/form.h"

namespace tarvello::controls {

Form* formOf(const QObject* object)
{
    for (; object; object = object->parent()) {
        if (auto* form = qobject_cast<Form*>(const_cast<QObject*>(object)))
            return form;
    }
    return nullptr;
}

HandlerErrors* handlerErrorsOf(const QObject* object)
{
    const Form* form = formOf(object);
    return form ? form->handlerErrors() : nullptr;
}

} // namespace tarvello::controls
