#include "platform/controls/label.h"

#include "platform/controls/displayformat.h"

namespace tarvello::controls {

Label::Label(const QString& name, Form* form)
    : DataControl(name, form)
{
    setTabStop(false);
    connect(this, &Control::captionChanged, this, &DataControl::valueChanged);
}

db::Value Label::value() const
{
    return caption().isEmpty() ? db::Value::null() : db::Value(caption());
}

void Label::setValue(const db::Value& value)
{
    setCaption(formatForDisplay(value));
}

void Label::setAutoSize(bool autoSize)
{
    if (m_autoSize == autoSize)
        return;
    m_autoSize = autoSize;
    Q_EMIT autoSizeChanged(autoSize);
}

} // namespace tarvello::controls
