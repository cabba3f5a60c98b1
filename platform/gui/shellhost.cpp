#include "platform/gui/shellhost.h"

#include "src/host/calledmodule.h"
#include "src/host/cinterface.h"
#include "src/host/menuentry.h"

#include <algorithm>

namespace tarvello::gui {

namespace {

// The host's menu entry a module is opened from: its key is the module's identifier.
class ShellMenuEntry final : public host::MenuEntry {
public:
    explicit ShellMenuEntry(QString key)
        : m_key(std::move(key))
    {}
    QString key() const override { return m_key; }

private:
    QString m_key;
};

host::Company companyFromRow(const db::ValueList& row)
{
    host::Company company;
    company.code = row.at(0).toInt();
    company.name = row.at(1).toString();
    company.divisionalData = !row.at(2).isBlank() && row.at(2).toInt() != 0;
    return company;
}

const QString companyColumns = QStringLiteral("SELECT CG18_DITTA, CG18_RAGSOC, CG18_FLGDATIDIV "
                                              "FROM CG18_DITTE");

} // namespace

struct ShellHost::OpenModule {
    std::unique_ptr<host::CalledModule> module;
    ShellMenuEntry menuEntry;
};

ShellHost::ShellHost(services::UserPrompts& prompts, const QString& connectionString,
                     std::optional<qint32> company)
    : m_prompts(prompts)
{
    m_database.open(connectionString);
    host::Company current;
    if (company) {
        current = this->company(*company);
    } else if (const QList<host::Company> all = companies(); !all.isEmpty()) {
        current = all.first();
    }
    m_context = std::make_unique<services::HostContext>(prompts, connectionString, current);
    m_navigator = std::make_unique<services::HostNavigator>(*m_context);
    m_context->setNavigator(m_navigator.get());
}

ShellHost::~ShellHost()
{
    // Modules go before the navigator and context they subscribed to.
    while (!m_modules.empty())
        releaseModule(*m_modules.back()->module);
}

QList<host::Company> ShellHost::companies()
{
    QList<host::Company> result;
    for (const db::ValueList& row :
         m_database.run(companyColumns + QStringLiteral(" ORDER BY CG18_DITTA")).rows)
        result << companyFromRow(row);
    return result;
}

host::Company ShellHost::company(qint32 code)
{
    const db::ResultSet found =
        m_database.run(companyColumns + QStringLiteral(" WHERE CG18_DITTA = ?"), {code});
    if (found.rows.isEmpty()) {
        host::Company bare;
        bare.code = code;
        return bare;
    }
    return companyFromRow(found.rows.first());
}

host::CalledModule& ShellHost::openModule(const QString& identifier, const QString& caption,
                                          QObject* statusBar)
{
    auto open = std::make_unique<OpenModule>(
        OpenModule{m_context->createModule(identifier), ShellMenuEntry(identifier)});
    host::Cinterface& module = open->module->contract();
    module.setClsGlobal(m_context.get());
    module.setActiveNavigator(m_navigator.get());
    module.setClsVoceMenu(&open->menuEntry);
    module.setStatusBar(statusBar);
    module.setMenuModulo(identifier.section(u'.', 0, 0));
    module.setMenuProg(identifier);
    module.setCaption(caption);
    module.setCanInsert(true);
    module.setCanUpdate(true);
    module.setCanDelete(true);
    module.setCanQbe(true);
    module.setWindowState(0);
    module.setWindowModal(false);
    module.setProgramMode(0);
    m_modules.push_back(std::move(open));
    host::CalledModule& opened = *m_modules.back()->module;
    module.ShowForm();
    return opened;
}

void ShellHost::releaseModule(host::CalledModule& module)
{
    const auto found = std::find_if(m_modules.begin(), m_modules.end(), [&](const auto& open) {
        return open->module.get() == &module;
    });
    if (found == m_modules.end())
        return;
    m_context->deregisterModule(&module.contract());
    m_modules.erase(found);
}

} // namespace tarvello::gui
