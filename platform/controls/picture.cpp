#include "platform/controls/picture.h"

namespace tarvello::controls {

Picture::Picture(const QString& name, Form* form)
    : Control(name, form)
{
    setTabStop(false);
}

void Picture::setImageKey(const QString& key)
{
    if (m_imageKey == key)
        return;
    m_imageKey = key;
    Q_EMIT imageKeyChanged(key);
}

bool Picture::click()
{
    if (!isEnabled() || !isVisible())
        return false;
    raise("Click", [this] { Q_EMIT clicked(); });
    return true;
}

} // namespace tarvello::controls
