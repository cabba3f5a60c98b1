#pragma once

#include "platform/controls/control.h"
#include "platform/db/value.h"

namespace tarvello::controls {

// A control holding a value that a record frame binds to a column and a decoding fills:
// fields, lists, check boxes, labels. It can be required, and marked not valid.
class DataControl : public Control {
    Q_OBJECT
public:
    using Control::Control;

    // The column the control is bound to (the designer's data field).
    QString dataField() const { return m_dataField; }
    void setDataField(const QString& column);
    bool isRequired() const { return m_required; }
    void setRequired(bool required);
    // False when the value was found wrong (a code that decodes to nothing), with why when
    // whoever found it said so.
    bool isValid() const { return m_valid; }
    QString invalidReason() const { return m_valid ? QString() : m_invalidReason; }
    void setValid(bool valid, const QString& reason = {});

    virtual db::Value value() const = 0;
    virtual void setValue(const db::Value& value) = 0;
    // No value a person would see: Empty, Null or an empty text.
    bool isBlank() const { return value().isBlank(); }

Q_SIGNALS:
    void dataFieldChanged(const QString& column);
    void requiredChanged(bool required);
    void validChanged(bool valid);
    // The value changed, by the person or by code.
    void valueChanged();

private:
    QString m_dataField;
    bool m_required = false;
    bool m_valid = true;
    QString m_invalidReason;
};

} // namespace tarvello::controls
