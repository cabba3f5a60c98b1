#pragma once

#include "platform/gui/controlview.h"

class QLineEdit;

namespace tarvello::controls {
class Field;
}

namespace tarvello::gui {

// A text, code, numeric or date field on a line edit. The person's typing goes to the
// model as typed text, and the line edit then shows the model's text (upper-cased, cut to
// the maximum length, filtered to digits): the model's rules are the only rules. Without
// the focus the line edit shows the formatted display text. A code field gets a search
// button that opens its lookup; the management key and the extra menu items are in the
// context menu.
class FieldView final : public ControlView {
    Q_OBJECT
public:
    FieldView(controls::Field& field, QLineEdit& edit);

    void focusMoved(bool hasFocus) override;
    void selectContents() override;

protected:
    bool keyIsModels(int keyCode, int shift) const override;
    bool actOnKey(int keyCode, int shift) override;
    QString toolTipText() const override;
    // A text the person was warned about is dressed as a wrong value too, though it is kept.
    bool holdsWrongValue() const override;

private:
    void showText();
    void showMaxLength();
    void showFromStart();
    void takeTyping(const QString& typed);
    void openLookup();
    void openCalendar();
    bool isDate() const;
    void showContextMenu(const QPoint& position);

    QLineEdit& m_edit; // Not owned: the widget this view watches.
};

} // namespace tarvello::gui
