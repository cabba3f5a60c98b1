#pragma once

#include <memory>

class QObject;

namespace tarvello::controls {
class Form;
}

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
class RegisterManagement;
class TaxCodeChecker;
class TypologyManagement;
class WarehouseConnection;

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
    virtual std::unique_ptr<WarehouseConnection> newWarehouseConnection() = 0;
    // Shows a module's question dialog modally and returns once it has closed. The dialog
    // shows its question in LBL_MESSAGGIO; the person's answer presses one of its buttons
    // CMD_SI, CMD_NO, CMD_SEMPRE or CMD_MAI, any other close unloads it without an answer.
    virtual void showQuestionDialog(controls::Form& dialog) = 0;
    virtual std::unique_ptr<TaxCodeChecker> newTaxCodeChecker() = 0;
    virtual std::unique_ptr<RegisterManagement> newRegisterManagement() = 0;
    // A record frame of a screen, owned by parent (the screen's form): the frame asks the
    // person through the host, as every host object does.
    virtual frame::GestAnagrafica* newRecordFrame(QObject* parent) = 0;
};

} // namespace tarvello::host
