#pragma once

#include <memory>

class QObject;

namespace tarvello::frame {
class GestAnagrafica;
}

namespace tarvello::host {

class DivisionalData;
class DocumentPrintModes;
class ErrorLog;
class GeneralRegistrySearch;
class HyperMedia;
class LookupDecoder;
class TypologyManagement;

// The host's creatable objects. A module releases what it creates by destroying it.
class HostObjects {
public:
    virtual ~HostObjects() = default;
    virtual std::unique_ptr<ErrorLog> newErrorLog() = 0;
    virtual std::unique_ptr<LookupDecoder> newLookupDecoder() = 0;
    virtual std::unique_ptr<GeneralRegistrySearch> newRegistrySearch() = 0;
    virtual std::unique_ptr<HyperMedia> newHyperMedia() = 0;
    virtual std::unique_ptr<DocumentPrintModes> newDocumentPrintModes() = 0;
    virtual std::unique_ptr<TypologyManagement> newTypologyManagement() = 0;
    virtual std::unique_ptr<DivisionalData> newDivisionalData() = 0;
    // A record frame of a screen, owned by parent (the screen's form): the frame asks the
    // person through the host, as every host object does.
    virtual frame::GestAnagrafica* newRecordFrame(QObject* parent) = 0;
};

} // namespace tarvello::host
