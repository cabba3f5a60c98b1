#pragma once

#include "platform/controls/control.h"

namespace tarvello::controls {

// A picture (an icon, or a picture button) named by the key of its image.
class Picture : public Control {
    Q_OBJECT
public:
    Picture(const QString& name, Form* form);

    bool isFocusable() const override { return false; }
    QString imageKey() const { return m_imageKey; }
    void setImageKey(const QString& key);
    // A person clicks it; false when it is disabled or hidden.
    bool click();

Q_SIGNALS:
    void imageKeyChanged(const QString& key);
    void clicked();

private:
    QString m_imageKey;
};

} // namespace tarvello::controls
