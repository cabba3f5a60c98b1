#pragma once

namespace tarvello::controls {
class Field;
}

namespace tarvello::host {

class Cinterface;

// The host's management of the document registers: a register chosen there goes back into
// the field it was opened from. Released by destroying it, after it was handed an empty
// module.
class RegisterManagement {
public:
    virtual ~RegisterManagement() = default;
    virtual void setModule(Cinterface* module) = 0;
    virtual void setField(controls::Field* field) = 0;
    // Modal: returns when the management has closed.
    virtual void registersManagement() = 0;
};

} // namespace tarvello::host
