#pragma once

#include "platform/controls/control.h"

#include <QStringList>

namespace tarvello::test {

// Records the focus events of controls as "NAME.event", in the order they were raised.
struct EventLog {
    QStringList entries;

    void watch(controls::Control* control, bool cancelValidation = false)
    {
        const QString name = control->name();
        QObject::connect(control, &controls::Control::validate,
                         [this, name, cancelValidation](controls::CancelArgs& args) {
                             entries << name + QStringLiteral(".validate");
                             args.cancel = cancelValidation;
                         });
        QObject::connect(control, &controls::Control::lostFocus,
                         [this, name] { entries << name + QStringLiteral(".lost"); });
        QObject::connect(control, &controls::Control::gotFocus,
                         [this, name] { entries << name + QStringLiteral(".got"); });
    }
};

} // namespace tarvello::test
