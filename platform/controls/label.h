#pragma once

#include "platform/controls/datacontrol.h"

namespace tarvello::controls {

// A text shown on the form: its caption. As a decoding target or a bound control its
// value is the caption.
class Label : public DataControl {
    Q_OBJECT
public:
    Label(const QString& name, Form* form);

    bool isFocusable() const override { return false; }
    db::Value value() const override;
    void setValue(const db::Value& value) override;
    // The label grows to fit its text.
    bool autoSize() const { return m_autoSize; }
    void setAutoSize(bool autoSize);

Q_SIGNALS:
    void autoSizeChanged(bool autoSize);

private:
    bool m_autoSize = false;
};

} // namespace tarvello::controls
