#pragma once

#include "platform/gui/shellwindow.h"

namespace tarvello::services {
class HostContext;
}

namespace tarvello::app {

// The host's modules: the agents module with its screen FRMMG_AGENTI.
void registerModules(services::HostContext& context);

// The menu item that opens "Anagrafica agenti".
gui::ShellWindow::ModuleEntry agentsEntry();

// Puts into the shell what a person finds in its menus: the modules the host offers and the
// layouts of their screens. The modules must be registered with the host's context first.
void assembleShell(gui::ShellWindow& window);

} // namespace tarvello::app
