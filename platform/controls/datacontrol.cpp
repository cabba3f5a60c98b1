#include "platform/controls/datacontrol.h"

namespace tarvello::controls {

void DataControl::setDataField(const QString& column)
{
    if (m_dataField == column)
        return;
    m_dataField = column;
    Q_EMIT dataFieldChanged(column);
}

void DataControl::setRequired(bool required)
{
    if (m_required == required)
        return;
    m_required = required;
    Q_EMIT requiredChanged(required);
}

void DataControl::setValid(bool valid, const QString& reason)
{
    const QString why = valid ? QString() : reason;
    if (m_valid == valid && m_invalidReason == why)
        return;
    m_valid = valid;
    m_invalidReason = why;
    Q_EMIT validChanged(valid);
}

} // namespace tarvello::controls
