#pragma once

#include "src/host/hostobjects.h"

namespace tarvello::host {
class GlobalContext;
}

namespace tarvello::services {

class HostManagements;
class LookupCatalogue;
class UserPrompts;

// Makes the host's objects, all of them reaching the person through the same prompts, the
// host's managements through their windows.
class HostObjectFactory final : public host::HostObjects {
public:
    HostObjectFactory(UserPrompts& prompts, const LookupCatalogue& lookups,
                      const host::GlobalContext& context, const HostManagements& managements)
        : m_prompts(prompts)
        , m_lookups(lookups)
        , m_context(context)
        , m_managements(managements)
    {}

    std::unique_ptr<host::ErrorLog> newErrorLog() override;
    std::unique_ptr<host::LookupDecoder> newLookupDecoder() override;
    std::unique_ptr<host::GeneralRegistrySearch> newRegistrySearch() override;
    std::unique_ptr<host::HyperMedia> newHyperMedia() override;
    std::unique_ptr<host::DocumentPrintModes> newDocumentPrintModes() override;
    std::unique_ptr<host::TypologyManagement> newTypologyManagement() override;
    std::unique_ptr<host::DivisionalData> newDivisionalData() override;
    std::unique_ptr<host::WarehouseConnection> newWarehouseConnection() override;
    // The question is put to the person through the prompts, titled with the dialog's
    // caption; their answer presses the dialog's button for it.
    void showQuestionDialog(controls::Form& dialog) override;
    std::unique_ptr<host::TaxCodeChecker> newTaxCodeChecker() override;
    std::unique_ptr<host::RegisterManagement> newRegisterManagement() override;
    frame::GestAnagrafica* newRecordFrame(QObject* parent) override;

private:
    UserPrompts& m_prompts;               // Not owned.
    const LookupCatalogue& m_lookups;     // Not owned.
    const host::GlobalContext& m_context; // Not owned.
    const HostManagements& m_managements; // Not owned.
};

} // namespace tarvello::services
