#include "demoscreen.h"

#include "platform/controls/checkbox.h"
#include "platform/controls/combobox.h"
#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/controls/label.h"
#include "platform/controls/navigatorbar.h"
#include "platform/controls/picture.h"
#include "platform/controls/tabstrip.h"
#include "platform/controls/treegrid.h"
#include "platform/db/recordset.h"
#include "platform/frame/gestanagrafica.h"
#include "platform/services/userprompts.h"
#include "src/host/cinterface.h"
#include "src/host/globalcontext.h"

#include <QEventLoop>

namespace tarvello::app {

namespace {

using controls::CheckBox;
using controls::ComboBox;
using controls::Field;
using controls::Label;

const QString typeCaptions[] = {QStringLiteral("Agente"), QStringLiteral("Capo zona"),
                                QStringLiteral("Capo area")};

// The information style of a message box, and the exclamation one.
constexpr int informationStyle = 64;
constexpr int warningStyle = 48;

template <class T>
T& control(controls::Form& form, const char* name)
{
    return *form.find<T>(QString::fromLatin1(name));
}

} // namespace

DemoScreen::DemoScreen(services::UserPrompts& prompts)
    : m_prompts(prompts)
{}

DemoScreen::~DemoScreen()
{
    // The module object is going away around this screen: only the host's own objects and
    // the screen's are touched here.
    if (m_navigator)
        m_navigator->events().unsubscribe(this);
    if (m_frame)
        m_frame->terminate();
}

void DemoScreen::setWindowState(short state)
{
    if (!m_form)
        load();
    if (m_form)
        m_form->setWindowState(state == 2   ? controls::Form::WindowState::Maximized
                               : state == 1 ? controls::Form::WindowState::Minimized
                                            : controls::Form::WindowState::Normal);
}

void DemoScreen::setTitle(const QString& title)
{
    if (m_form)
        m_form->setCaption(QStringLiteral("%1 - dimostrazione").arg(title));
}

void DemoScreen::show(bool modal)
{
    if (!m_form)
        return;
    m_form->show(modal);
    if (modal && m_form->isLoaded()) {
        QEventLoop loop;
        QObject::connect(m_form.get(), &controls::Form::unloaded, &loop, &QEventLoop::quit);
        loop.exec();
    }
}

void DemoScreen::load()
{
    host::GlobalContext* global = m_module ? m_module->ClsGlobal() : nullptr;
    if (!global)
        return;
    m_company = global->company().code;
    m_connection.open(global->connectionString());
    m_module->setConnection(&m_connection);
    m_connections.add(m_connection);
    m_form = std::make_unique<controls::Form>(formName());
    m_form->setConnectionSource(&m_connections);
    buildControls();
    openFrame();
    connectEvents();
    // The row was shown before the fields had their decodings: shown again, it decodes.
    m_frame->refresh();
    loadTree();
    m_navigator = m_module->ActiveNavigator();
    if (m_navigator) {
        m_navigator->registerModule(m_module);
        m_navigator->events().subscribe(this);
    }
    m_form->load();
}

void DemoScreen::buildControls()
{
    controls::Form& form = *m_form;
    auto* search = form.add<Field>(QStringLiteral("TXT_CERCA"), Field::Kind::Code);
    search->setCaption(QStringLiteral("Vai all'agente"));
    search->setUpperCase(true);
    search->setMaxLength(20);
    search->setToolTip(QStringLiteral("Codice di un agente della ditta: Invio per andarci"));
    form.add<Label>(QStringLiteral("LBL_NOMECERCA"));
    form.add<controls::NavigatorBar>(QStringLiteral("INTERNAV"));

    auto* tabs = form.add<controls::TabStrip>(QStringLiteral("TAB_DEMO"));
    tabs->addPage(QStringLiteral("Dati &generali"));
    tabs->addPage(QStringLiteral("&Provvigioni"));
    tabs->selectPage(0);

    auto* code = form.add<Field>(QStringLiteral("TXT_AGENTE"));
    code->setCaption(QStringLiteral("Codice agente"));
    code->setDataField(QStringLiteral("MG17_AGENTE"));
    code->setUpperCase(true);
    code->setMaxLength(20);
    code->setRequired(true);
    auto* registry = form.add<Field>(QStringLiteral("TXT_ANAGEN"), Field::Kind::Code);
    registry->setCaption(QStringLiteral("Anagrafica generale"));
    registry->setDataField(QStringLiteral("MG17_ANAGEN_CG16"));
    registry->setNumbersOnly(true);
    registry->setRequired(true);
    form.add<Label>(QStringLiteral("LBL_RAGSOANAG"));
    auto* type = form.add<ComboBox>(QStringLiteral("CBO_INDTIPOAGE"));
    type->setCaption(QStringLiteral("Tipo agente"));
    type->setDataField(QStringLiteral("MG17_INDTIPOAGE"));
    for (int kind = 0; kind < 3; ++kind)
        type->addItem(typeCaptions[kind], kind);

    auto* percentage = form.add<Field>(QStringLiteral("TXT_PERPROV"), Field::Kind::Numeric);
    percentage->setCaption(QStringLiteral("Percentuale provvigione"));
    percentage->setDataField(QStringLiteral("MG17_PERPROV"));
    percentage->setNumbersOnly(true);
    percentage->setDisplayFormat(QStringLiteral("#,0.000"));
    auto* byCustomer = form.add<CheckBox>(QStringLiteral("CHK_FLGREGIMECL"));
    byCustomer->setCaption(QStringLiteral("Provvigioni per cliente"));
    byCustomer->setDataField(QStringLiteral("MG17_FLGREGIMECL"));
    auto* byItem = form.add<CheckBox>(QStringLiteral("CHK_FLGREGIMEART"));
    byItem->setCaption(QStringLiteral("Provvigioni per articolo"));
    byItem->setDataField(QStringLiteral("MG17_FLGREGIMEART"));

    auto* grid = form.add<controls::Grid>(QStringLiteral("GRD_AGENTI"));
    grid->addColumn(QStringLiteral("MG17_AGENTE"), QStringLiteral("Codice"), 1800);
    grid->addColumn(QStringLiteral("MG17_INDTIPOAGE"), QStringLiteral("Tipo"), 1500);
    grid->addColumn(QStringLiteral("MG17_ANAGEN_CG16"), QStringLiteral("Anagrafica"), 1400);
    grid->setColumnNumeric(QStringLiteral("MG17_ANAGEN_CG16"), true);
    grid->addColumn(QStringLiteral("MG17_PERPROV"), QStringLiteral("% Provvigione"), 1500,
                    QStringLiteral("#,0.000"));
    grid->setColumnNumeric(QStringLiteral("MG17_PERPROV"), true);

    auto* tree = form.add<controls::TreeGrid>(QStringLiteral("GRD_ALBERO"));
    tree->setTreeColumns(QStringLiteral("MG17_IDAGENTE"), QStringLiteral("MG17_IDAGERIF_MG17"));
    tree->addColumn(QStringLiteral("AGENTE"), QStringLiteral("Agente"), 4200);
    tree->addColumn(QStringLiteral("MG17_INDTIPOAGE"), QStringLiteral(" "), 600);
    tree->setColumnImageList(QStringLiteral("MG17_INDTIPOAGE"), QStringLiteral("IMG_ICONETREE"));
    form.add<controls::Picture>(QStringLiteral("IMG_ESPANDI"))
        ->setImageKey(QStringLiteral("Espandi"));
    form.add<controls::Picture>(QStringLiteral("IMG_COMPRIMI"))
        ->setImageKey(QStringLiteral("Comprimi"));
}

QString DemoScreen::companyFilter() const
{
    return QStringLiteral("MG17_DITTA_CG18 = %1").arg(m_company);
}

QString DemoScreen::agentsSql() const
{
    return QStringLiteral("SELECT * FROM MG17_AGENTI WHERE %1 ORDER BY MG17_AGENTE")
        .arg(companyFilter());
}

void DemoScreen::openFrame()
{
    controls::Form& form = *m_form;
    m_frame = new frame::GestAnagrafica(m_prompts, m_form.get());
    m_frame->setObjectName(QStringLiteral("FME_GestAnagrafica1"));
    m_frame->setDescription(QStringLiteral("la gestione anagrafica agenti"));
    m_frame->setMaster(true);
    const QString sql = agentsSql();
    m_frame->initialise(m_form.get(), m_connection, db::Recordset::open(m_connection, sql), sql,
                        companyFilter(), &control<controls::NavigatorBar>(form, "INTERNAV"),
                        &control<controls::Grid>(form, "GRD_AGENTI"));
    for (const char* name : {"TXT_AGENTE", "TXT_ANAGEN", "CBO_INDTIPOAGE", "TXT_PERPROV",
                             "CHK_FLGREGIMECL", "CHK_FLGREGIMEART"})
        m_frame->registerField(&control<controls::DataControl>(form, name));
    m_frame->setKeyField(&control<Field>(form, "TXT_AGENTE"));
    control<controls::Grid>(form, "GRD_AGENTI").setDataSource(m_frame->recordset());
    m_module->setActiveFrame(m_frame);
}

void DemoScreen::connectEvents()
{
    connectRecord();
    connectTree();
    connectSearch();
    connectRegistry();
    controls::Form& form = *m_form;
    QObject::connect(&form, &controls::Form::activated, &form, [this] { activate(); });
    QObject::connect(&form, &controls::Form::queryClose, &form, [this](controls::CloseArgs& args) {
        args.cancel = m_frame && !m_frame->confirmPendingChanges(true, false, true);
    });
    QObject::connect(&form, &controls::Form::unloaded, &form, [this] { unload(); });
}

void DemoScreen::connectRecord()
{
    frame::GestAnagrafica* frame = m_frame;
    auto& grid = control<controls::Grid>(*m_form, "GRD_AGENTI");
    QObject::connect(frame, &frame::GestAnagrafica::recordsetChanged, &grid,
                     [&grid](const db::RecordsetPtr& recordset) { grid.setDataSource(recordset); });
    QObject::connect(frame, &frame::GestAnagrafica::AfterAddNew, frame, [this](int) {
        m_frame->recordset()->setValue(u"MG17_DITTA_CG18", m_company);
    });
    QObject::connect(frame, &frame::GestAnagrafica::AfterUpdate, frame,
                     [this](int) { loadTree(); });
    QObject::connect(frame, &frame::GestAnagrafica::AfterDelete, frame,
                     [this](int) { loadTree(); });
    QObject::connect(&grid, &controls::Grid::cellTextRequested, &grid,
                     [](controls::CellTextArgs& args) {
                         if (args.field == u"MG17_INDTIPOAGE" && !args.value.isBlank())
                             args.text = typeCaptions[qBound(0, args.value.toInt(), 2)];
                     });
    auto& percentage = control<Field>(*m_form, "TXT_PERPROV");
    QObject::connect(&percentage, &Field::validate, &percentage,
                     [this](controls::CancelArgs& args) { validatePercentage(args); });
}

void DemoScreen::connectTree()
{
    auto& tree = control<controls::TreeGrid>(*m_form, "GRD_ALBERO");
    // The tree is a second way through the agents: a click shows that agent in the frame.
    QObject::connect(&tree, &controls::Grid::clicked, m_frame, [this, &tree] {
        const int row = tree.selectedRow();
        if (row >= 0)
            showAgent(QStringLiteral("MG17_IDAGENTE = %1")
                          .arg(tree.value(row, u"MG17_IDAGENTE").toInt64()));
    });
    QObject::connect(&control<controls::Picture>(*m_form, "IMG_ESPANDI"),
                     &controls::Picture::clicked, &tree, &controls::TreeGrid::expandAll);
    QObject::connect(&control<controls::Picture>(*m_form, "IMG_COMPRIMI"),
                     &controls::Picture::clicked, &tree, &controls::TreeGrid::collapseAll);
}

void DemoScreen::connectSearch()
{
    auto& search = control<Field>(*m_form, "TXT_CERCA");
    QObject::connect(&search, &Field::decodeRequested, &search,
                     [this](controls::DecodeArgs& args) { decodeSearch(args); });
    QObject::connect(&search, &Field::lookupRequested, &search, [this](controls::LookupArgs& args) {
        args.sql = QStringLiteral("SELECT MG17_AGENTE, CG16_RAGSOANAG FROM MG17_AGENTI "
                                  "LEFT JOIN CG16_ANAGGEN ON CG16_CODICE = MG17_ANAGEN_CG16 "
                                  "WHERE %1 ORDER BY MG17_AGENTE")
                       .arg(companyFilter());
        args.columns = {QStringLiteral("Codice"), QStringLiteral("Nome")};
        args.title = QStringLiteral("Agenti della ditta");
        args.connectionString = m_connection.connectionString();
    });
    QObject::connect(&search, &Field::validate, &search,
                     [this](controls::CancelArgs& args) { validateSearch(args); });
}

void DemoScreen::connectRegistry()
{
    auto& registry = control<Field>(*m_form, "TXT_ANAGEN");
    QObject::connect(&registry, &Field::decodeRequested, &registry,
                     [this](controls::DecodeArgs& args) { decodeRegistry(args); });
    QObject::connect(
        &registry, &Field::lookupRequested, &registry, [this](controls::LookupArgs& args) {
            args.sql =
                QStringLiteral("SELECT CG16_CODICE, CG16_RAGSOANAG, CG16_CITTA FROM CG16_ANAGGEN "
                               "ORDER BY CG16_RAGSOANAG");
            args.columns = {QStringLiteral("Codice"), QStringLiteral("Ragione sociale"),
                            QStringLiteral("Città")};
            args.title = QStringLiteral("Anagrafiche generali");
            args.connectionString = m_connection.connectionString();
        });
}

void DemoScreen::decodeSearch(controls::DecodeArgs& args)
{
    const QString code = control<Field>(*m_form, "TXT_CERCA").text().trimmed();
    args.targets = {{&control<Label>(*m_form, "LBL_NOMECERCA"), QStringLiteral("CG16_RAGSOANAG")}};
    args.connectionString = m_connection.connectionString();
    // An empty field decodes to nothing, and is not wrong for it.
    if (code.isEmpty())
        return;
    args.sql = QStringLiteral("SELECT CG16_RAGSOANAG FROM MG17_AGENTI INNER JOIN CG16_ANAGGEN "
                              "ON CG16_CODICE = MG17_ANAGEN_CG16 WHERE %1 AND MG17_AGENTE = %2")
                   .arg(companyFilter(), db::quoted(code));
}

// An agent that is not there keeps the person in the field; one that is, is shown.
void DemoScreen::validateSearch(controls::CancelArgs& args)
{
    const Field& search = control<Field>(*m_form, "TXT_CERCA");
    const QString code = search.text().trimmed();
    if (code.isEmpty())
        return;
    if (!search.isValid()) {
        m_prompts.messageBox(
            QStringLiteral("L'agente %1 non esiste nella ditta %2").arg(code).arg(m_company),
            warningStyle, QStringLiteral("Avviso Utente"));
        args.cancel = true;
        return;
    }
    showAgent(QStringLiteral("MG17_AGENTE = %1").arg(db::quoted(code)));
}

void DemoScreen::decodeRegistry(controls::DecodeArgs& args)
{
    const Field& registry = control<Field>(*m_form, "TXT_ANAGEN");
    auto& name = control<Label>(*m_form, "LBL_RAGSOANAG");
    args.targets = {{&name, QStringLiteral("CG16_RAGSOANAG")}};
    args.connectionString = m_connection.connectionString();
    // The code reaches the statement only as a number; no number, no statement.
    if (!registry.value().looksNumeric()) {
        name.setValue(db::Value::null());
        return;
    }
    args.sql = QStringLiteral("SELECT CG16_RAGSOANAG FROM CG16_ANAGGEN WHERE CG16_CODICE = %1")
                   .arg(registry.value().toInt64());
}

void DemoScreen::validatePercentage(controls::CancelArgs& args)
{
    const db::Value value = control<Field>(*m_form, "TXT_PERPROV").value();
    if (!value.isNumeric())
        return;
    const db::Decimal percentage = value.toDecimal();
    if (percentage < db::Decimal(0) || percentage > db::Decimal(100)) {
        m_prompts.messageBox(QStringLiteral("La percentuale di provvigione va da 0 a 100"),
                             informationStyle, QStringLiteral("Avviso Utente"));
        args.cancel = true;
    }
}

void DemoScreen::showAgent(const QString& criterion)
{
    const db::RecordsetPtr agents = m_frame ? m_frame->recordset() : nullptr;
    if (!agents || agents->recordCount() == 0)
        return;
    agents->moveFirst();
    agents->find(criterion);
}

void DemoScreen::loadTree()
{
    auto* tree = m_form->find<controls::TreeGrid>(u"GRD_ALBERO");
    tree->setDataSource(m_connection.execute(
        QStringLiteral("SELECT RTRIM(MG17_AGENTE) + ' - ' + ISNULL(CG16_RAGSOANAG, '') AS AGENTE, "
                       "MG17_AGENTE, MG17_IDAGENTE, MG17_IDAGERIF_MG17, MG17_INDTIPOAGE "
                       "FROM MG17_AGENTI WITH (NOLOCK) LEFT JOIN CG16_ANAGGEN WITH (NOLOCK) "
                       "ON CG16_CODICE = MG17_ANAGEN_CG16 WHERE %1 ORDER BY MG17_AGENTE")
            .arg(companyFilter())));
}

void DemoScreen::activate()
{
    if (!m_module || !m_frame)
        return;
    m_module->setActiveFrame(m_frame);
    if (host::GlobalContext* global = m_module->ClsGlobal())
        global->setActiveModule(m_module);
    if (host::Navigator* navigator = m_module->ActiveNavigator()) {
        navigator->setFrameStatus(short(m_frame->status()));
        navigator->refresh();
    }
}

void DemoScreen::BeforeChangeDitta(bool& Cancel)
{
    if (m_frame && m_form && m_form->isLoaded())
        Cancel = !m_frame->confirmPendingChanges(true, false, true);
}

void DemoScreen::ChangeDitta(qint32)
{
    if (!m_frame || !m_form || !m_form->isLoaded())
        return;
    m_company = m_module->ClsGlobal()->company().code;
    m_frame->detach();
    m_frame->refresh(agentsSql());
    loadTree();
}

void DemoScreen::unload()
{
    if (m_navigator)
        m_navigator->events().unsubscribe(this);
    m_navigator = nullptr;
    if (m_frame)
        m_frame->terminate();
    if (m_module) {
        if (host::GlobalContext* global = m_module->ClsGlobal())
            global->deregisterModule(m_module);
        if (m_module->ActiveFrame() == m_frame)
            m_module->setActiveFrame(nullptr);
    }
}

} // namespace tarvello::app
