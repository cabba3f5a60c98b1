#include "platform/gui/recordcaption.h"

#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/frame/frameeventargs.h"
#include "platform/frame/gestanagrafica.h"
#include "platform/gui/controlview.h"
#include "platform/gui/formview.h"

#include <QLineEdit>
#include <QMdiSubWindow>
#include <QTime>

namespace tarvello::gui {

namespace {

// The style property the form's style sheet tints the key field with in search entry.
constexpr char searchingProperty[] = "tarvelloSearching";

} // namespace

RecordCaption::RecordCaption(QMdiSubWindow& window, controls::Form& form, FormView& view,
                             frame::GestAnagrafica* master)
    : QObject(&window)
    , m_window(window)
    , m_form(&form)
    , m_view(&view)
    , m_master(master)
{
    connect(&form, &controls::Form::captionChanged, this, &RecordCaption::show);
    if (master) {
        connect(master, &frame::GestAnagrafica::stateChanged, this, &RecordCaption::show);
        connect(master, &frame::GestAnagrafica::AfterUpdate, this,
                [this] { announce(tr("Salvato")); });
        connect(master, &frame::GestAnagrafica::AfterDelete, this,
                [this] { announce(tr("Eliminato")); });
    }
    show();
}

QString RecordCaption::recordShown() const
{
    return m_master && m_master->status() == frame::FrameStatus::Browse
               ? m_master->recordDescription()
               : QString();
}

void RecordCaption::show()
{
    if (!m_form)
        return;
    QString record;
    const frame::FrameStatus status = m_master ? m_master->status() : frame::FrameStatus::Browse;
    if (status == frame::FrameStatus::Search)
        record = tr("Ricerca");
    else if (status == frame::FrameStatus::New)
        record = tr("Nuovo");
    else
        record = recordShown();
    const QString caption = m_form->caption();
    m_window.setWindowTitle(
        (record.isEmpty() ? caption : caption + QStringLiteral(" - ") + record) +
        QStringLiteral("[*]"));
    m_window.setWindowModified(m_master && status != frame::FrameStatus::Search &&
                               (m_master->changeFlag() || m_master->secondChangeFlag()));

    auto* key = m_master && m_view
                    ? qobject_cast<QLineEdit*>(m_view->focusWidgetOf(m_master->keyField()))
                    : nullptr;
    if (key) {
        const bool searching = status == frame::FrameStatus::Search;
        ControlView::setStyleFlag(*key, searchingProperty, searching);
        key->setPlaceholderText(searching ? tr("Codice o nome, poi Invio") : QString());
    }
}

void RecordCaption::announce(const QString& what)
{
    // The fields still show the record: an AfterDelete comes before the next row is shown.
    Q_EMIT statusMessage(tr("%1: %2 alle %3")
                             .arg(what, m_master ? m_master->recordDescription() : QString(),
                                  QTime::currentTime().toString(QStringLiteral("HH:mm"))));
}

} // namespace tarvello::gui
