#pragma once

#include <QObject>
#include <QPointer>

class QMdiSubWindow;

namespace tarvello::controls {
class Form;
}

namespace tarvello::frame {
class GestAnagrafica;
}

namespace tarvello::gui {

class FormView;

// Tells the person which record a screen is on. The window title carries the form's caption
// and the record on view (its key and the first field after it with a text: "A001 RICCI
// FRANCESCA"), "Nuovo" while a new record is entered or "Ricerca" in search entry, and the
// modified mark while it has unsaved changes. In search entry the key field is tinted and
// says what it takes. After each save and delete a line for the status bar is announced.
class RecordCaption final : public QObject {
    Q_OBJECT
public:
    // Lives as long as the window (its QObject child).
    RecordCaption(QMdiSubWindow& window, controls::Form& form, FormView& view,
                  frame::GestAnagrafica* master);

    // "A001 RICCI FRANCESCA"; empty when no existing record is shown.
    QString recordShown() const;

Q_SIGNALS:
    void statusMessage(const QString& text);

private:
    void show();
    void announce(const QString& what);

    QMdiSubWindow& m_window;                  // Not owned: the parent.
    QPointer<controls::Form> m_form;          // Not owned.
    QPointer<FormView> m_view;                // Not owned.
    QPointer<frame::GestAnagrafica> m_master; // Not owned.
};

} // namespace tarvello::gui
