#include "platform/db/runtimeerror.h"

namespace tarvello::db {

RuntimeError::RuntimeError(long number, QString description, QString source)
    : std::runtime_error(description.toStdString())
    , m_number(number)
    , m_description(std::move(description))
    , m_source(std::move(source))
{}

} // namespace tarvello::db
