#include "platform/gui/hosttoolbar.h"

#include "platform/db/runtimeerror.h"
#include "platform/gui/navigatoricons.h"
#include "platform/services/hostnavigator.h"
#include "platform/services/userprompts.h"

#include <QAction>
#include <QKeySequence>
#include <QToolBar>

namespace tarvello::gui {

namespace {

using Button = services::HostNavigator::Button;

struct ButtonLook {
    qint32 number;
    const char* key; // the navigator key text its icon is found by
    const char* caption;
    QKeySequence shortcut;
};

const QList<ButtonLook>& looks()
{
    static const QList<ButtonLook> buttons = {
        {Button::First, "Primo", "Primo", QKeySequence(Qt::CTRL | Qt::Key_Home)},
        {Button::PreviousBranch, "Ramo precedente", "Ramo precedente",
         QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_PageUp)},
        {Button::Previous, "Precedente", "Precedente", QKeySequence(Qt::CTRL | Qt::Key_PageUp)},
        {Button::Next, "Successivo", "Successivo", QKeySequence(Qt::CTRL | Qt::Key_PageDown)},
        {Button::NextBranch, "Ramo successivo", "Ramo successivo",
         QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_PageDown)},
        {Button::Last, "Ultimo", "Ultimo", QKeySequence(Qt::CTRL | Qt::Key_End)},
        {Button::New, "Nuovo", "Nuovo", QKeySequence(Qt::CTRL | Qt::Key_N)},
        {Button::Save, "Salva", "Salva", QKeySequence(Qt::CTRL | Qt::Key_S)},
        {Button::Undo, "Annulla", "Annulla modifiche", QKeySequence(Qt::CTRL | Qt::Key_R)},
        {Button::Delete, "Elimina", "Elimina", QKeySequence(Qt::CTRL | Qt::Key_Delete)},
        {Button::Search, "Cerca", "Ricerca", QKeySequence(Qt::CTRL | Qt::Key_F)},
        {Button::Multimedia, "Multimedia", "Multimedia", QKeySequence(Qt::CTRL | Qt::Key_M)},
    };
    return buttons;
}

const ButtonLook* lookOf(qint32 button)
{
    for (const ButtonLook& look : looks()) {
        if (look.number == button)
            return &look;
    }
    return nullptr;
}

} // namespace

const QList<qint32>& HostToolbar::allButtons()
{
    static const QList<qint32> buttons = {Button::First,
                                          Button::PreviousBranch,
                                          Button::Previous,
                                          Button::Next,
                                          Button::NextBranch,
                                          Button::Last,
                                          0,
                                          Button::New,
                                          Button::Save,
                                          Button::Undo,
                                          Button::Delete,
                                          Button::Search,
                                          0,
                                          Button::Multimedia};
    return buttons;
}

const QList<qint32>& HostToolbar::recordButtons()
{
    static const QList<qint32> buttons = {
        Button::First, Button::Previous, Button::Next, Button::Last,   0,
        Button::New,   Button::Save,     Button::Undo, Button::Delete, Button::Search};
    return buttons;
}

HostToolbar::HostToolbar(QToolBar& bar, services::HostNavigator& navigator,
                         services::UserPrompts& prompts, const QList<qint32>& buttons)
    : m_navigator(navigator)
    , m_prompts(prompts)
{
    for (const qint32 button : buttons) {
        const ButtonLook* look = lookOf(button);
        if (!look) {
            bar.addSeparator();
            continue;
        }
        const QString caption = QString::fromUtf8(look->caption);
        QAction* action =
            bar.addAction(navigatorIcon(QString::fromUtf8(look->key), *bar.style()), caption);
        action->setShortcut(look->shortcut);
        action->setToolTip(QStringLiteral("%1 (%2)").arg(
            caption, look->shortcut.toString(QKeySequence::NativeText)));
        QObject::connect(action, &QAction::triggered, &bar, [this, button] { press(button); });
        m_actions.insert(button, action);
    }
}

void HostToolbar::press(qint32 button)
{
    try {
        m_navigator.press(button);
    } catch (const db::RuntimeError& error) {
        m_prompts.messageBox(error.description(), 16, QObject::tr("Navigatore"));
    } catch (const services::PromptError& error) {
        m_prompts.messageBox(error.message(), 16, QObject::tr("Navigatore"));
    }
}

void HostToolbar::showFrameState(bool frameShown)
{
    m_navigator.update();
    for (auto it = m_actions.cbegin(); it != m_actions.cend(); ++it)
        it.value()->setEnabled(frameShown && m_navigator.isEnabled(it.key()));
}

} // namespace tarvello::gui
