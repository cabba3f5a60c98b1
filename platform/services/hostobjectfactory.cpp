#include "platform/services/hostobjectfactory.h"

#include "platform/controls/button.h"
#include "platform/controls/form.h"
#include "platform/controls/label.h"
#include "platform/frame/gestanagrafica.h"
#include "platform/services/divisionaldatamanagement.h"
#include "platform/services/documentprintmodetable.h"
#include "platform/services/hosterrorlog.h"
#include "platform/services/hostlookup.h"
#include "platform/services/mediaarchive.h"
#include "platform/services/registertable.h"
#include "platform/services/registrysearch.h"
#include "platform/services/taxcodecheck.h"
#include "platform/services/typologytable.h"
#include "platform/services/userprompts.h"
#include "platform/services/warehouselink.h"

namespace tarvello::services {

std::unique_ptr<host::ErrorLog> HostObjectFactory::newErrorLog()
{
    return std::make_unique<HostErrorLog>(m_prompts);
}

std::unique_ptr<host::LookupDecoder> HostObjectFactory::newLookupDecoder()
{
    return std::make_unique<HostLookup>(m_lookups, m_context);
}

std::unique_ptr<host::GeneralRegistrySearch> HostObjectFactory::newRegistrySearch()
{
    return std::make_unique<RegistrySearch>(m_managements);
}

std::unique_ptr<host::HyperMedia> HostObjectFactory::newHyperMedia()
{
    return std::make_unique<MediaArchive>(m_prompts);
}

std::unique_ptr<host::DocumentPrintModes> HostObjectFactory::newDocumentPrintModes()
{
    return std::make_unique<DocumentPrintModeTable>();
}

std::unique_ptr<host::TypologyManagement> HostObjectFactory::newTypologyManagement()
{
    return std::make_unique<TypologyTable>(m_managements);
}

std::unique_ptr<host::DivisionalData> HostObjectFactory::newDivisionalData()
{
    return std::make_unique<DivisionalDataManagement>(m_managements);
}

std::unique_ptr<host::TaxCodeChecker> HostObjectFactory::newTaxCodeChecker()
{
    return std::make_unique<TaxCodeCheck>();
}

std::unique_ptr<host::RegisterManagement> HostObjectFactory::newRegisterManagement()
{
    return std::make_unique<RegisterTable>(m_managements);
}

std::unique_ptr<host::WarehouseConnection> HostObjectFactory::newWarehouseConnection()
{
    return std::make_unique<WarehouseLink>(m_managements);
}

void HostObjectFactory::showQuestionDialog(controls::Form& dialog)
{
    dialog.show(true);
    const auto* label = dialog.find<controls::Label>(u"LBL_MESSAGGIO");
    const std::optional<QuestionAnswer> answer =
        m_prompts.question(label ? label->caption() : QString(), dialog.caption());
    controls::Button* button = nullptr;
    if (answer) {
        switch (*answer) {
        case QuestionAnswer::Si:
            button = dialog.find<controls::Button>(u"CMD_SI");
            break;
        case QuestionAnswer::No:
            button = dialog.find<controls::Button>(u"CMD_NO");
            break;
        case QuestionAnswer::Sempre:
            button = dialog.find<controls::Button>(u"CMD_SEMPRE");
            break;
        case QuestionAnswer::Mai:
            button = dialog.find<controls::Button>(u"CMD_MAI");
            break;
        }
    }
    if (button)
        button->click();
    if (dialog.isLoaded())
        dialog.unload();
}

frame::GestAnagrafica* HostObjectFactory::newRecordFrame(QObject* parent)
{
    return new frame::GestAnagrafica(m_prompts, parent);
}

} // namespace tarvello::services
