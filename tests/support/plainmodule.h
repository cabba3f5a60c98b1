#pragma once

#include "src/host/modulecontract.h"

namespace tarvello::test {

// A module of the host with nothing of its own: any module will do as the one a management
// is opened for.
class PlainModule final : public host::ModuleContract {
public:
    db::Value ShowForm() override { return {}; }
    db::Value TransferData(const db::Value&) override { return {}; }
};

} // namespace tarvello::test
