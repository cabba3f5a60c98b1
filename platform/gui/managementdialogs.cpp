#include "platform/gui/managementdialogs.h"

#include "platform/controls/form.h"
#include "platform/gui/managementwindow.h"
#include "platform/services/management/tablemanagement.h"

#include <QApplication>

namespace tarvello::gui {

void ManagementDialogs::present(services::TableManagement& management, host::Cinterface&)
{
    controls::Form& form = management.form();
    form.show(true);
    ManagementWindow window(management, m_navigator, m_prompts,
                            m_parent ? m_parent.data() : QApplication::activeWindow());
    window.exec();
    // A window closed from outside (the application quitting) leaves no management behind.
    if (form.isLoaded())
        form.unload();
}

} // namespace tarvello::gui
