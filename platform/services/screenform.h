#pragma once

namespace tarvello::controls {
class Form;
}

namespace tarvello::host {
class Cinterface;
}

namespace tarvello::services {

// The form a module's screen is: the one its active record frame sits on; nullptr for a
// module without one.
controls::Form* screenForm(const host::Cinterface* module);

} // namespace tarvello::services
