#pragma once

#include "platform/controls/datacontrol.h"

namespace tarvello::controls {

// A check box whose value is 0 or 1, as the columns store it. Every change of value, by
// the person or by code, raises valueSet.
class CheckBox : public DataControl {
    Q_OBJECT
public:
    using DataControl::DataControl;

    int checkState() const { return m_checked ? 1 : 0; }
    void setCheckState(int state);
    // A number other than 0 checks the box; Empty and Null clear it.
    db::Value value() const override { return checkState(); }
    void setValue(const db::Value& value) override;
    // The person sets the box; false when it cannot take input.
    bool check(int state);

Q_SIGNALS:
    void valueSet(int state);

private:
    bool m_checked = false;
};

} // namespace tarvello::controls
