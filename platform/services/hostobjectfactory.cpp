#include "platform/services/hostobjectfactory.h"

#include "platform/frame/gestanagrafica.h"
#include "platform/services/divisionaldatamanagement.h"
#include "platform/services/documentprintmodetable.h"
#include "platform/services/hosterrorlog.h"
#include "platform/services/hostlookup.h"
#include "platform/services/mediaarchive.h"
#include "platform/services/registrysearch.h"
#include "platform/services/typologytable.h"

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
    return std::make_unique<RegistrySearch>(m_prompts);
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
    return std::make_unique<TypologyTable>(m_prompts);
}

std::unique_ptr<host::DivisionalData> HostObjectFactory::newDivisionalData()
{
    return std::make_unique<DivisionalDataManagement>(m_prompts);
}

frame::GestAnagrafica* HostObjectFactory::newRecordFrame(QObject* parent)
{
    return new frame::GestAnagrafica(m_prompts, parent);
}

} // namespace tarvello::services
