#include "schermatafixture.h"

#include "platform/db/demodata.h"
#include "platform/db/runtimeerror.h"
#include "src/detail/dettagliagente.h"

namespace tarvello::test {

ModuloDiProva::ModuloDiProva(host::Cinterface& agenti, QString nome, std::optional<Visto>& visto,
                             std::optional<db::Value> restituito, bool fallisce)
    : m_agenti(agenti)
    , m_nome(std::move(nome))
    , m_visto(visto)
    , m_restituito(std::move(restituito))
    , m_fallisce(fallisce)
{}

db::Value ModuloDiProva::TransferData(const db::Value& dati)
{
    m_eventi.raise(&host::DataTransferEvents::DataTransfer, dati);
    return {};
}

db::Value ModuloDiProva::ShowForm()
{
    host::GlobalContext* globale = ClsGlobal();
    m_visto = Visto{m_dati,
                    m_codice,
                    m_agenti.IsActive(),
                    IsActive(),
                    IsCalled(),
                    globale && globale->activeModule() == this,
                    globale && globale->secondModule() == this};
    if (m_fallisce)
        throw db::RuntimeError(5, QStringLiteral("Invalid procedure call"), m_nome);
    if (m_restituito)
        TransferData(db::ValueList{*m_restituito});
    return {};
}

void SchermataTest::registraModulo(const QString& identificativo,
                                   std::optional<db::Value> restituito, bool fallisce)
{
    host->modules().add(identificativo, [this, identificativo, restituito, fallisce] {
        return std::make_unique<ModuloDiProva>(*modulo, identificativo.section(u'.', 1), visto,
                                               restituito, fallisce);
    });
}

void SchermataTest::SetUp()
{
    m_database = std::make_unique<TestDatabase>(DatabaseTarget{QStringLiteral("sqlite"), false});
    db::createSchema(db());
    db().run(QStringLiteral("INSERT INTO CG18_DITTE (CG18_DITTA, CG18_RAGSOC, CG18_FLGDATIDIV) "
                            "VALUES (?, ?, ?)"),
             {dittaDivisionale, QStringLiteral("Ditta con dati divisionali"), 1});
    db().run(QStringLiteral("INSERT INTO CG18_DITTE (CG18_DITTA, CG18_RAGSOC, CG18_FLGDATIDIV) "
                            "VALUES (?, ?, ?)"),
             {dittaSemplice, QStringLiteral("Ditta senza dati divisionali"), 0});
    host = std::make_unique<services::HostContext>(prompts, m_database->connectionString(),
                                                   ditta(dittaDivisionale));
    toolbar = std::make_unique<services::HostNavigator>(*host);
    host->setNavigator(toolbar.get());
}

void SchermataTest::TearDown()
{
    if (modulo && modulo->screen()) {
        auto& aperta = schermata();
        if (aperta.isLoaded())
            aperta.unload();
    }
    modulo.reset();
}

host::Company SchermataTest::ditta(qint32 codice)
{
    const db::ResultSet riga = db().run(
        QStringLiteral("SELECT CG18_RAGSOC, CG18_FLGDATIDIV FROM CG18_DITTE WHERE CG18_DITTA = ?"),
        {codice});
    host::Company company;
    company.code = codice;
    company.name = riga.rows.first().at(0).toString();
    company.divisionalData = riga.rows.first().at(1).toInt() != 0;
    return company;
}

qint64 SchermataTest::inserisciAgente(const QString& codice, qint32 ditta, qint64 riferimento)
{
    const qint64 anagrafica = ++m_prossimaAnagrafica;
    db().run(QStringLiteral("INSERT INTO CG16_ANAGGEN (CG16_CODICE, CG16_RAGSOANAG) VALUES (?, ?)"),
             {anagrafica, QStringLiteral("AGENTE ") + codice});
    return db()
        .insertRow(
            QStringLiteral("MG17_AGENTI"),
            {QStringLiteral("MG17_DITTA_CG18"), QStringLiteral("MG17_AGENTE"),
             QStringLiteral("MG17_ANAGEN_CG16"), QStringLiteral("MG17_IDAGERIF_MG17")},
            {ditta, codice, anagrafica, riferimento ? db::Value(riferimento) : db::Value::null()},
            QStringLiteral("MG17_IDAGENTE"))
        .toInt64();
}

void SchermataTest::socio(qint64 agente, int codice, const QString& nome)
{
    db().run(QStringLiteral("INSERT INTO MG18_AGENTISOCI (MG18_DITTA_CG18, MG18_IDAGENTE_MG17, "
                            "MG18_CODSOCIO, MG18_NOMECOGN, MG18_PERQUOTA) VALUES (1, ?, ?, ?, 50)"),
             {agente, codice, nome});
}

void SchermataTest::giro(const QString& codice, const QString& descrizione)
{
    db().run(QStringLiteral("INSERT INTO MG1H_GIRI (MG1H_DITTA_CG18, MG1H_GIRO, MG1H_DESCRIZIONE) "
                            "VALUES (1, ?, ?)"),
             {codice, descrizione});
}

void SchermataTest::tappa(qint64 agente, const QString& codiceGiro, int progressivo,
                          const db::Value& cliente, const db::Value& destinazione)
{
    db().run(QStringLiteral("INSERT INTO MG1I_DETTAGLIOGIRI (MG1I_DITTA_CG18, MG1I_IDAGENTE_MG17, "
                            "MG1I_GIRO_MG1H, MG1I_PROGRESSIVO, MG1I_TIPOCF_CG44, MG1I_CLIFOR_CG44, "
                            "MG1I_CODDEST_MG22) VALUES (1, ?, ?, ?, 0, ?, ?)"),
             {agente, codiceGiro, progressivo, cliente, destinazione});
}

void SchermataTest::apriSu(const QString& codice)
{
    apri();
    const db::RecordsetPtr agenti = gestione(agenti::FRMMG_AGENTI::Agenti).recordset();
    agenti->moveFirst();
    ASSERT_TRUE(agenti->find(QStringLiteral("MG17_AGENTE = '%1'").arg(codice)));
    schermata().dettagli().ShowChild();
    schermata().Gcon_Connect()->log().clear();
}

agenti::CLSMG_AGENTI& SchermataTest::apri(const Apertura& apertura, qint32 codiceDitta)
{
    host->setCompany(ditta(codiceDitta));
    modulo = std::make_unique<agenti::CLSMG_AGENTI>(agenti::FRMMG_AGENTI::fabbrica());
    modulo->setClsGlobal(host.get());
    modulo->setActiveNavigator(toolbar.get());
    modulo->setClsVoceMenu(&menu);
    modulo->setCaption(QStringLiteral("Anagrafica agenti"));
    modulo->setProgramMode(apertura.programMode);
    modulo->setWindowModal(apertura.modale);
    modulo->setTop(apertura.top);
    modulo->setLeft(apertura.left);
    if (apertura.codiceChiamato || apertura.idChiamato) {
        modulo->setIsCalled(true);
        if (apertura.codiceChiamato) {
            modulo->setCodiceAgente(*apertura.codiceChiamato);
        } else {
            modulo->setIDAGENTE(*apertura.idChiamato);
            modulo->setCalledById(true);
        }
    }
    host->setActiveModule(modulo.get());
    modulo->setIsActive(true);
    modulo->ShowForm();
    return *modulo;
}

agenti::FRMMG_AGENTI& SchermataTest::schermata() const
{
    auto* aperta = dynamic_cast<agenti::FRMMG_AGENTI*>(modulo ? modulo->screen() : nullptr);
    if (!aperta)
        throw std::logic_error("no agents screen was opened");
    return *aperta;
}

frame::GestAnagrafica& SchermataTest::gestione(int numero) const
{
    frame::GestAnagrafica* trovata = schermata().FME_GestAnagrafica(numero);
    if (!trovata)
        throw std::logic_error("the screen has no such record frame");
    return *trovata;
}

QStringList SchermataTest::istruzioni() const
{
    QStringList testi;
    db::Connection* connessione = schermata().Gcon_Connect();
    if (!connessione)
        return testi;
    for (const db::StatementLog::Entry& voce : connessione->log().entries()) {
        if (!voce.internal)
            testi << voce.text;
    }
    return testi;
}

QString SchermataTest::fuoco() const
{
    const controls::Control* attivo = schermata().activeControl();
    return attivo ? attivo->name() : QString();
}

} // namespace tarvello::test
