#include "platform/db/engine.h"

namespace tarvello::db {

EngineError::EngineError(ProviderError error)
    : std::runtime_error(error.description.toStdString())
    , m_error(std::move(error))
{}

} // namespace tarvello::db
