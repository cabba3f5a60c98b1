#include "platform/gui/shellapplication.h"

#include "platform/db/runtimeerror.h"
#include "platform/services/userprompts.h"
#include "src/host/errorlog.h"

namespace tarvello::gui {

ShellApplication::ShellApplication(int& argc, char** argv)
    : QApplication(argc, argv)
{}

bool ShellApplication::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const db::RuntimeError& error) {
        const QString text = tr("Si è verificato un errore imprevisto; il programma continua.\r\n"
                                "Errore n. %1: %2")
                                 .arg(error.number())
                                 .arg(error.description());
        qWarning("%s", qPrintable(text));
        if (m_prompts)
            m_prompts->messageBox(text, host::Critical, applicationName());
        return false;
    }
}

} // namespace tarvello::gui
