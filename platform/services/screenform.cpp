#include "platform/services/screenform.h"

#include "platform/controls/form.h"
#include "src/host/cinterface.h"

namespace tarvello::services {

controls::Form* screenForm(const host::Cinterface* module)
{
    for (QObject* object = module ? module->ActiveFrame() : nullptr; object;
         object = object->parent()) {
        if (auto* form = qobject_cast<controls::Form*>(object))
            return form;
    }
    return nullptr;
}

} // namespace tarvello::services
