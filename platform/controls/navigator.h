#pragma once

#include "platform/controls/control.h"

#include <QList>
#include <QStringList>
#include <optional>

namespace tarvello::controls {

class NavigatorTarget;

// The key texts of navigator buttons.
namespace NavigatorKey {
inline const QString New = QStringLiteral("Nuovo");
inline const QString Confirm = QStringLiteral("Conferma");
inline const QString Cancel = QStringLiteral("Annulla");
inline const QString Delete = QStringLiteral("Elimina");
inline const QString First = QStringLiteral("Primo");
inline const QString Previous = QStringLiteral("Precedente");
inline const QString Next = QStringLiteral("Successivo");
inline const QString Last = QStringLiteral("Ultimo");
inline const QString Open = QStringLiteral("Apri");
inline const QString Back = QStringLiteral("Indietro");
inline const QString Forward = QStringLiteral("Avanti");
inline const QString Print = QStringLiteral("Stampa");
inline const QString Export = QStringLiteral("Esporta");
} // namespace NavigatorKey

// A bar of buttons known by key text. Pressing one (the person, or code acting for one)
// raises beforeButton, which may cancel; then buttonClicked; then the target's action
// (a record frame's) or the navigator's own; then afterButton with whether it succeeded.
// A cancelled press raises nothing after beforeButton.
//
// The new-row switch is the screen's word on whether a new row may be added now: while it is
// off the person cannot press "Nuovo". Code pressing it on the person's behalf still reaches
// beforeButton, where the screen decides (and explains a refusal). The change indicator tells
// that rows were changed behind the target's back.
class Navigator : public Control {
    Q_OBJECT
public:
    struct Button {
        QString key;
        QString caption;
        bool visible = true;
        bool enabled = true;
    };

    Navigator(const QString& name, Form* form, const QStringList& keys);

    bool isFocusable() const override { return false; }

    const QList<Button>& buttons() const { return m_buttons; }
    // nullptr when there is no button with that key.
    const Button* button(QStringView key) const;
    void setButtonVisible(const QString& key, bool visible);
    void setButtonEnabled(const QString& key, bool enabled);
    // Gives a button a new key text and caption: its presses report the new key.
    bool relabelButton(const QString& key, const QString& newKey, const QString& caption);
    // The button's enabled setting, and for "Nuovo" the new-row switch as well.
    bool isButtonEnabled(QStringView key) const;
    // Whether a press of that button would act now.
    bool isAvailable(QStringView key) const;

    bool isNewRowAllowed() const { return m_newRowAllowed; }
    void setNewRowAllowed(bool allowed);
    bool changeIndicator() const { return m_changed; }
    void setChangeIndicator(bool changed);

    // Not owned; nullptr detaches.
    NavigatorTarget* target() const { return m_target; }
    void setTarget(NavigatorTarget* target) { m_target = target; }

    // False when the button is not available or the press was cancelled or failed.
    bool press(const QString& key);
    // Code pressing a button on the person's behalf: a button hidden at design time acts all
    // the same (a screen may leave a button off its bar and press it from a key shortcut);
    // a disabled button or navigator does nothing.
    bool pressFromCode(const QString& key);
    // A command of the host's own (its "Stampa agente") reaches the bar as a click with that
    // key, whether or not one of its buttons shows the key now. False while the bar is off.
    bool command(const QString& key);

Q_SIGNALS:
    void buttonsChanged();
    void newRowAllowedChanged(bool allowed);
    void changeIndicatorChanged(bool changed);

    void beforeButton(tarvello::controls::NavigatorButtonArgs& args);
    void buttonClicked(const QString& key);
    void afterButton(bool success, const QString& key);

protected:
    // What the navigator does by itself for a key its target left alone.
    virtual std::optional<bool> ownAction(const QString& key);

private:
    bool act(const QString& key);
    Button* findButton(QStringView key);

    QList<Button> m_buttons;
    bool m_newRowAllowed = true;
    bool m_changed = false;
    NavigatorTarget* m_target = nullptr; // Not owned.
};

} // namespace tarvello::controls
