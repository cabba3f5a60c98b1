#include "agentsscreen.h"

#include "platform/controls/button.h"
#include "platform/controls/checkbox.h"
#include "platform/controls/combobox.h"
#include "platform/controls/field.h"
#include "platform/controls/label.h"
#include "platform/controls/menubutton.h"
#include "platform/controls/navigatorbar.h"
#include "platform/controls/picture.h"
#include "platform/controls/tabstrip.h"
#include "platform/controls/treegrid.h"
#include "platform/frame/gestanagrafica.h"
#include "platform/script/agentsmodule.h"
#include "platform/services/hostcontext.h"
#include "src/host/cinterface.h"
#include "src/host/errorlog.h"
#include "src/host/globalcontext.h"
#include "src/host/hostobjects.h"
#include "src/host/registrysearch.h"
#include "src/screen/clsmg_agenti.h"

#include <QEventLoop>

namespace tarvello::test {

using namespace controls;

AgentsTestScreen::AgentsTestScreen(services::UserPrompts& prompts)
    : m_prompts(prompts)
{
    QObject::connect(&m_form, &Form::activated, [this] { activated(); });
    QObject::connect(&m_form, &Form::queryClose, [this](CloseArgs& args) {
        args.cancel = !m_agents->confirmPendingChanges({.check = true, .ask = true});
    });
}

AgentsTestScreen::~AgentsTestScreen()
{
    if (m_navigator)
        m_navigator->events().unsubscribe(this);
}

void AgentsTestScreen::registerWith(services::HostContext& host)
{
    script::registerAgentsModule(
        host.modules(), [&host] { return std::make_unique<AgentsTestScreen>(host.prompts()); });
}

void AgentsTestScreen::setWindowState(short)
{
    if (!m_loaded)
        load();
}

void AgentsTestScreen::show(bool modal)
{
    m_form.show(modal);
    if (!modal)
        return;
    QEventLoop wait;
    QObject::connect(&m_form, &Form::unloaded, &wait, &QEventLoop::quit);
    wait.exec();
}

QString AgentsTestScreen::agentsSql() const
{
    return QStringLiteral(
               "SELECT * FROM MG17_AGENTI WHERE MG17_DITTA_CG18 = %1 ORDER BY MG17_AGENTE")
        .arg(m_module->ClsGlobal()->company().code);
}

void AgentsTestScreen::load()
{
    m_loaded = true;
    host::GlobalContext& host = *m_module->ClsGlobal();
    m_connection.open(host.connectionString());
    m_module->setConnection(&m_connection);
    m_connections.add(m_connection);
    m_form.setConnectionSource(&m_connections);
    m_log = host.objects().newErrorLog();
    m_log->bind(m_module);
    m_navigator = m_module->ActiveNavigator();
    m_navigator->events().subscribe(this);
    createControls();
    m_agents = new frame::GestAnagrafica(m_prompts, &m_form);
    m_agents->setObjectName(QStringLiteral("FME_GestAnagrafica1"));
    m_agents->setWriteMode(frame::GestAnagrafica::WriteMode::AtOnce);
    m_agents->setDescription(QStringLiteral("la gestione anagrafica agenti"));
    QObject::connect(m_agents, &frame::GestAnagrafica::AfterAddNew, [this](int) {
        m_agents->recordset()->setValue(u"MG17_DITTA_CG18", m_module->ClsGlobal()->company().code);
    });
    openAgents();
    m_module->setActiveFrame(m_agents);
    m_form.load();
}

void AgentsTestScreen::openAgents()
{
    const QString sql = agentsSql();
    m_agents->initialise(nullptr, m_connection, db::Recordset::open(m_connection, sql), sql, {},
                         m_form.find<Navigator>(u"INTERNAV"), nullptr);
    m_agents->setKeyField(m_form.find<DataControl>(u"TXT_AGENTE"));
    for (const char* name : {"TXT_ANAGEN", "CBO_INDTIPOAGE", "CHK_FLGREGIMECL", "TXT_PERPROV"})
        m_agents->registerField(m_form.find<DataControl>(QString::fromLatin1(name)));
    m_agents->refresh();
}

void AgentsTestScreen::createControls()
{
    auto* agent = m_form.add<Field>(QStringLiteral("TXT_AGENTE"), Field::Kind::Code);
    agent->setCaption(QStringLiteral("Codice agente"));
    agent->setDataField(QStringLiteral("MG17_AGENTE"));
    agent->setUpperCase(true);
    agent->setMaxLength(20);
    agent->setRequired(true);
    agent->addMenuItem(QStringLiteral("1"), QStringLiteral("Cerca in anagrafica"));
    QObject::connect(agent, &Field::managementKeyPressed, [this](const QString& key) {
        if (key != u"Kpers1")
            return;
        const std::unique_ptr<host::GeneralRegistrySearch> search =
            m_module->ClsGlobal()->objects().newRegistrySearch();
        search->setContext(m_module->ClsGlobal());
        search->setConnection(&m_connection, m_connection.connectionString());
        search->setCompany(m_module->ClsGlobal()->company().code);
        search->setTitle(QStringLiteral("Ricerca agenti"));
        search->setKind(host::GeneralRegistrySearch::AgentsAndFreeEntries);
        search->run();
        if (!search->selectedAgent().isEmpty())
            showAgent(search->selectedAgent());
    });

    auto* registry = m_form.add<Field>(QStringLiteral("TXT_ANAGEN"), Field::Kind::Numeric);
    registry->setCaption(QStringLiteral("Anagrafica generale"));
    registry->setDataField(QStringLiteral("MG17_ANAGEN_CG16"));
    registry->setManagementKey(true);
    auto* name = m_form.add<Label>(QStringLiteral("LBL_RAGSOANAG"));
    QObject::connect(registry, &Field::decodeRequested, [this, registry, name](DecodeArgs& args) {
        const db::Value code = registry->value();
        if (code.isNull())
            return;
        args.sql = QStringLiteral("SELECT CG16_RAGSOANAG FROM CG16_ANAGGEN WHERE CG16_CODICE = %1")
                       .arg(code.toInt64());
        args.targets = {{name, {}}};
        args.connectionString = m_connection.connectionString();
    });
    QObject::connect(registry, &Field::lookupRequested, [this](LookupArgs& args) {
        args.sql = QStringLiteral("SELECT CG16_CODICE, CG16_RAGSOANAG FROM CG16_ANAGGEN "
                                  "ORDER BY CG16_CODICE");
        args.columns = {QStringLiteral("Codice"), QStringLiteral("Ragione sociale")};
        args.title = QStringLiteral("Anagrafiche generali");
        args.connectionString = m_connection.connectionString();
    });
    QObject::connect(registry, &Field::managementKeyPressed, [this](const QString&) {
        m_module->setIsActive(false);
        m_module->ClsGlobal()->startModule(nullptr, QStringLiteral("Dorvanti.CLSCO_TABANAGGEN"),
                                           host::startModuleArguments());
        m_module->setIsActive(true);
    });

    auto* type = m_form.add<ComboBox>(QStringLiteral("CBO_INDTIPOAGE"));
    type->setCaption(QStringLiteral("Tipo agente"));
    type->setDataField(QStringLiteral("MG17_INDTIPOAGE"));
    type->addItem(QStringLiteral("Agente"), 0);
    type->addItem(QStringLiteral("Capo zona"), 1);
    type->addItem(QStringLiteral("Capo area"), 2);

    auto* byCustomer = m_form.add<CheckBox>(QStringLiteral("CHK_FLGREGIMECL"));
    byCustomer->setCaption(QStringLiteral("Regime per cliente"));
    byCustomer->setDataField(QStringLiteral("MG17_FLGREGIMECL"));

    auto* share = m_form.add<Field>(QStringLiteral("TXT_PERPROV"), Field::Kind::Numeric);
    share->setCaption(QStringLiteral("Percentuale provvigione"));
    share->setDataField(QStringLiteral("MG17_PERPROV"));
    QObject::connect(share, &Control::validate, [this, share](CancelArgs& args) {
        if (share->value().isNull() || share->value().toDecimal() <= db::Decimal(100))
            return;
        m_log->message(QStringLiteral("La percentuale non può superare 100"), host::Exclamation,
                       QStringLiteral("Avviso Utente"));
        args.cancel = true;
    });

    auto* answer = m_form.add<Label>(QStringLiteral("LBL_RISPOSTA"));
    auto* ask = m_form.add<Button>(QStringLiteral("CMD_DOMANDA"));
    ask->setCaption(QStringLiteral("Domanda"));
    QObject::connect(ask, &Button::clicked, [this, answer] {
        const int given = m_log->message(QStringLiteral("Procedere?"), host::YesNo | host::Question,
                                         QStringLiteral("Conferma"));
        answer->setValue(given == host::Yes ? QStringLiteral("si") : QStringLiteral("no"));
    });

    auto* tabs = m_form.add<TabStrip>(QStringLiteral("TAB_AGENTI"));
    tabs->addPage(QStringLiteral("Dati &generali"));
    tabs->addPage(QStringLiteral("&Provvigioni"));
    tabs->addPage(QStringLiteral("&Note"));
    tabs->selectPage(0);
    QObject::connect(tabs, &TabStrip::currentPageChanged, [share](int page, int) {
        if (page == 1)
            share->setFocus();
    });

    auto* linked = m_form.add<MenuButton>(QStringLiteral("CMD_GESTCOLL"));
    linked->addItem(QStringLiteral("key_anagrafica"), QStringLiteral("Anagrafica generale"));
    linked->addItem(QStringLiteral("key_divisionali"), QStringLiteral("Dati divisionali"));
    linked->setItemVisible(QStringLiteral("key_divisionali"),
                           m_module->ClsGlobal()->company().divisionalData);
    QObject::connect(linked, &MenuButton::itemClicked, [registry](const QString& key) {
        if (key == u"key_anagrafica")
            registry->pressManagementKey();
    });

    m_tree = m_form.add<TreeGrid>(QStringLiteral("GRD_AGENTI"));
    m_tree->addColumn(QStringLiteral("MG17_AGENTE"), QStringLiteral("Codice Agente"), 1000);
    m_tree->setTreeColumns(QStringLiteral("MG17_IDAGENTE"), QStringLiteral("MG17_IDAGERIF_MG17"));
    QObject::connect(m_tree, &Grid::clicked, [this] {
        if (m_tree->selectedRow() >= 0)
            showAgent(m_tree->value(m_tree->selectedRow(), u"MG17_AGENTE").toString());
    });
    auto* collapse = m_form.add<Picture>(QStringLiteral("IMG_COMPRIMI"));
    QObject::connect(collapse, &Picture::clicked, [this] { m_tree->collapseAll(); });

    auto* internav = m_form.add<NavigatorBar>(QStringLiteral("INTERNAV"));
    QObject::connect(internav, &Navigator::buttonClicked, [this, agent](const QString& key) {
        if (key == NavigatorKey::Forward && m_module->IsCalled())
            m_module->TransferData(db::ValueList{agent->text()});
    });
}

void AgentsTestScreen::loadTree()
{
    m_treeRows = db::Recordset::open(
        m_connection,
        QStringLiteral("SELECT MG17_AGENTE, MG17_IDAGENTE, MG17_IDAGERIF_MG17 FROM MG17_AGENTI "
                       "WHERE MG17_DITTA_CG18 = %1 ORDER BY MG17_AGENTE")
            .arg(m_module->ClsGlobal()->company().code));
    m_tree->setDataSource(m_treeRows);
}

void AgentsTestScreen::showAgent(const QString& code)
{
    const db::RecordsetPtr rows = m_agents->recordset()->clone();
    if (rows->find(QStringLiteral("MG17_AGENTE = %1").arg(db::quoted(code))))
        m_agents->moveToBookmark(rows->bookmark());
}

void AgentsTestScreen::activated()
{
    m_module->setActiveFrame(m_agents);
    if (m_activatedBefore)
        return;
    m_activatedBefore = true;
    loadTree();
    if (m_module->IsCalled() && m_class) {
        if (m_class->CalledById()) {
            const db::RecordsetPtr rows = m_agents->recordset()->clone();
            if (rows->find(QStringLiteral("MG17_IDAGENTE = %1").arg(m_class->IDAGENTE().toInt64())))
                m_agents->moveToBookmark(rows->bookmark());
        } else {
            showAgent(m_class->CodiceAgente().toString());
        }
    }
    if (m_module->ProgramMode() == 2)
        m_agents->addNew();
    m_form.find<Control>(u"TXT_AGENTE")->setFocus();
}

void AgentsTestScreen::BeforeChangeDitta(bool& Cancel)
{
    Cancel = !m_agents->confirmPendingChanges({.check = true, .ask = true});
}

void AgentsTestScreen::ChangeDitta(qint32)
{
    m_agents->detach();
    m_agents->refresh(agentsSql());
    loadTree();
}

} // namespace tarvello::test
