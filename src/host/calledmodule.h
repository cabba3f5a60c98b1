#pragma once

#include "platform/db/value.h"
#include "src/host/eventsource.h"

namespace tarvello::host {

class Cinterface;

// What a module hands back to the program that opened it.
class DataTransferEvents {
public:
    virtual void DataTransfer(const db::Value& Data) = 0;

protected:
    ~DataTransferEvents() = default;
};

// An object of another module of the host, as the module that starts it sees it: its
// contract, the data it is opened with, and the data it hands back while it runs.
class CalledModule {
public:
    virtual ~CalledModule() = default;
    virtual Cinterface& contract() = 0;
    virtual void setCallingData(const db::ValueList& data) = 0;
    virtual EventSource<DataTransferEvents>& dataTransfer() = 0;
};

} // namespace tarvello::host
