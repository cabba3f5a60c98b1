#include "app/shellassembly.h"

#include "platform/script/agentsmodule.h"
#include "platform/services/hostcontext.h"
#include "src/screen/frmmg_agenti.h"
#include "ui_frmmg_agenti.h"

namespace tarvello::app {

namespace {

std::unique_ptr<QWidget> agentsLayout()
{
    auto widget = std::make_unique<QWidget>();
    Ui::FrmMgAgenti layout;
    layout.setupUi(widget.get());
    return widget;
}

} // namespace

void registerModules(services::HostContext& context)
{
    script::registerAgentsModule(context.modules(), agenti::FRMMG_AGENTI::fabbrica());
}

gui::ShellWindow::ModuleEntry agentsEntry()
{
    return {QStringLiteral("Anagrafica agenti"), script::agentsModuleIdentifier()};
}

void assembleShell(gui::ShellWindow& window)
{
    window.addModule(agentsEntry());
    window.addModule(
        {QStringLiteral("Stampa agenti"), QStringLiteral("Brendolo.CLSMG_STAGENTI"), true});
    window.addScreenLayout(QStringLiteral("FRMMG_AGENTI"), agentsLayout);
}

} // namespace tarvello::app
