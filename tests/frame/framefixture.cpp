#include "framefixture.h"

namespace tarvello::test {

using controls::Field;

void FrameTest::SetUp()
{
    m_database = std::make_unique<TestDatabase>(GetParam());
    db::createSchema(db());
    form.load();

    agente = form.add<Field>(QStringLiteral("TXT_AGENTE"), Field::Kind::Code);
    agente->setCaption(QStringLiteral("Codice agente"));
    agente->setDataField(QStringLiteral("MG17_AGENTE"));
    agente->setUpperCase(true);
    agente->setRequired(true);
    ragioneSociale = form.add<Field>(QStringLiteral("TXT_RAGSOANAG"));
    ragioneSociale->setCaption(QStringLiteral("Ragione sociale dell'agente"));
    regime = form.add<controls::ComboBox>(QStringLiteral("CBO_REGPROV"));
    regime->setCaption(QStringLiteral("Regime provvigioni"));
    regime->setDataField(QStringLiteral("MG17_REGIMEPROV"));
    regime->setRequired(true);
    regime->addItem(QStringLiteral("Percentuale"), 0);
    regime->addItem(QStringLiteral("Tabella"), 1);
    percentuale = form.add<Field>(QStringLiteral("TXT_PERPROV"), Field::Kind::Numeric);
    percentuale->setCaption(QStringLiteral("Percentuale di provvigione"));
    percentuale->setDataField(QStringLiteral("MG17_PERPROV"));
    internav = form.add<controls::NavigatorBar>(QStringLiteral("INTERNAV"));

    codSocio = form.add<Field>(QStringLiteral("TXT_CODSOCIO"), Field::Kind::Numeric);
    codSocio->setCaption(QStringLiteral("Codice socio"));
    codSocio->setDataField(QStringLiteral("MG18_CODSOCIO"));
    codSocio->setRequired(true);
    nomeSocio = form.add<Field>(QStringLiteral("TXT_NOMECOGN"));
    nomeSocio->setCaption(QStringLiteral("Cognome e nome socio"));
    nomeSocio->setDataField(QStringLiteral("MG18_NOMECOGN"));
    nomeSocio->setRequired(true);
    quota = form.add<Field>(QStringLiteral("TXT_PERQUOTA"), Field::Kind::Numeric);
    quota->setCaption(QStringLiteral("Percentuale quota di possesso"));
    quota->setDataField(QStringLiteral("MG18_PERQUOTA"));
    quota->setRequired(true);
    gridSoci = form.add<controls::Grid>(QStringLiteral("GRID_AGENTISOCI"));
    gridSoci->setKeyColumn(QStringLiteral("ID"));
    for (const auto& [field, caption] :
         {std::pair{QStringLiteral("MG18_CODSOCIO"), QStringLiteral("Cod.")},
          std::pair{QStringLiteral("MG18_NOMECOGN"), QStringLiteral("Nome e cognome")}}) {
        controls::GridColumn column;
        column.field = field;
        column.caption = caption;
        gridSoci->addColumn(column);
    }
    navSoci = form.add<controls::GridNavigator>(QStringLiteral("GRIDNAV_AGENTISOCI"));
    navSoci->setGrid(gridSoci);

    agentEvents.idColumn = QStringLiteral("MG17_IDAGENTE");
    agentEvents.watch(agents);
    partnerEvents.watch(partners);

    // What the screen's handlers do with a new row: the company, and for a partner its agent.
    QObject::connect(&agents, &frame::GestAnagrafica::AfterAddNew, [this](int result) {
        if (result == frame::OperationSucceeded)
            agents.recordset()->setValue(u"MG17_DITTA_CG18", company);
    });
    QObject::connect(&partners, &frame::GestAnagrafica::AfterAddNew, [this](int result) {
        if (result != frame::OperationSucceeded)
            return;
        partners.recordset()->setValue(u"MG18_DITTA_CG18", company);
        partners.recordset()->setValue(u"MG18_IDAGENTE_MG17",
                                       agents.recordset()->value(u"MG17_IDAGENTE"));
    });
}

qint64 FrameTest::insertAgent(const QString& code, int ditta)
{
    return db()
        .insertRow(QStringLiteral("MG17_AGENTI"),
                   {QStringLiteral("MG17_DITTA_CG18"), QStringLiteral("MG17_AGENTE")},
                   {ditta, code}, QStringLiteral("MG17_IDAGENTE"))
        .toInt64();
}

void FrameTest::insertPartner(qint64 agent, int code, const QString& name)
{
    db().insertRow(QStringLiteral("MG18_AGENTISOCI"),
                   {QStringLiteral("MG18_DITTA_CG18"), QStringLiteral("MG18_IDAGENTE_MG17"),
                    QStringLiteral("MG18_CODSOCIO"), QStringLiteral("MG18_NOMECOGN"),
                    QStringLiteral("MG18_PERQUOTA")},
                   {company, agent, code, name, 50}, QString());
}

QString FrameTest::agentsSql(const QString& more) const
{
    return QStringLiteral("SELECT  * FROM MG17_AGENTI WHERE MG17_DITTA_CG18 = %1").arg(company) +
           more;
}

void FrameTest::openAgents(const QString& more)
{
    const QString sql = agentsSql(more);
    agents.initialise(nullptr, db(), db::Recordset::open(db(), sql), sql, {}, internav, nullptr);
    agents.setDescription(QStringLiteral("la gestione anagrafica agenti"));
    agents.setWriteMode(frame::GestAnagrafica::WriteMode::AtOnce);
    agents.setKeyField(agente);
    for (controls::DataControl* control :
         std::initializer_list<controls::DataControl*>{ragioneSociale, regime, percentuale})
        agents.registerField(control);
    agentEvents.take();
}

void FrameTest::openPartners()
{
    const QString sql = QStringLiteral("SELECT ROW_NUMBER() OVER (ORDER BY MG18_DITTA_CG18) AS "
                                       "ID, * FROM MG18_AGENTISOCI WHERE 1 = 0");
    const db::RecordsetPtr rows = db::Recordset::open(db(), sql);
    partners.initialise(nullptr, db(), rows, sql, {}, navSoci, gridSoci);
    gridSoci->setDataSource(rows);
    partners.setKeyField(codSocio);
    partners.registerField(nomeSocio);
    partners.registerField(quota);
    agents.addDetailFrame(&partners);
    partnerEvents.take();
}

QString FrameTest::partnersSql(qint64 agent) const
{
    return QStringLiteral("SELECT  ROW_NUMBER() OVER (ORDER BY MG18_DITTA_CG18) AS ID, * FROM "
                          "MG18_AGENTISOCI WHERE MG18_DITTA_CG18 = %1 AND MG18_IDAGENTE_MG17 = %2")
        .arg(company)
        .arg(agent);
}

services::PromptRecord FrameTest::lastPrompt() const
{
    return prompts.history().isEmpty() ? services::PromptRecord{} : prompts.history().last();
}

} // namespace tarvello::test
