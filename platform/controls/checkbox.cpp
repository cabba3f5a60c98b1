#include "platform/controls/checkbox.h"

namespace tarvello::controls {

void CheckBox::setCheckState(int state)
{
    const bool checked = state != 0;
    if (m_checked == checked)
        return;
    m_checked = checked;
    Q_EMIT valueChanged();
    raise("Click", [this] { Q_EMIT valueSet(checkState()); });
}

void CheckBox::setValue(const db::Value& value)
{
    setCheckState(value.isBlank() ? 0 : int(value.toInt64() != 0));
}

bool CheckBox::check(int state)
{
    if (!canReceiveFocus())
        return false;
    setCheckState(state);
    return true;
}

} // namespace tarvello::controls
