#include "src/detail/sociagente.h"

#include "platform/controls/eventargs.h"
#include "platform/controls/field.h"
#include "platform/controls/gridnavigator.h"
#include "platform/frame/gestanagrafica.h"
#include "src/common/errorreporter.h"
#include "src/common/richiesto.h"
#include "src/common/valuehelpers.h"
#include "src/detail/dettagliagente.h"
#include "src/detail/scorciatoie.h"
#include "src/host/errorlog.h"
#include "src/host/hostobjects.h"
#include "src/host/taxcodechecker.h"

namespace tarvello::agenti {

SociAgente::SociAgente(const ControlliSoci& controlli,
                       const QPointer<frame::GestAnagrafica>& gestione, DettagliAgente& dettagli,
                       const ErrorReporter& errori)
    : m_controlli(controlli)
    , m_gestione(gestione)
    , m_dettagli(dettagli)
    , m_errori(errori)
{}

SociAgente::~SociAgente() = default;

void SociAgente::collega(host::HostObjects& oggetti)
{
    using controls::Field;
    m_codiceFiscale = oggetti.newTaxCodeChecker();
    QObject::connect(&m_controlli.TXT_NUMSOCI, &Field::validate, &m_contesto,
                     [this](controls::CancelArgs&) { AggiornaNumeroSoci(); });
    QObject::connect(&m_controlli.TXT_CODSOCIO, &Field::validate, &m_contesto,
                     [this](controls::CancelArgs&) { controllaChiaveNuovaRiga(*m_gestione); });
    QObject::connect(&m_controlli.TXT_CODFISOCIO, &Field::validate, &m_contesto,
                     [this](controls::CancelArgs&) { TXT_CODFISOCIO_Validate(); });
    QObject::connect(&m_controlli.TXT_DATACESS, &Field::keyDown, &m_contesto,
                     [this](controls::KeyArgs& args) { TXT_DATACESS_KeyDown(args); });
}

void SociAgente::rilascia()
{
    m_codiceFiscale.reset();
}

void SociAgente::AggiornaNumeroSoci()
{
    controls::Control& avviso = m_controlli.LBL_MANCANUMSOCI;
    avviso.setVisible(false);
    const db::Value numero = RTrimN(m_controlli.TXT_NUMSOCI.text());
    if (numero.toString().isEmpty()) {
        avviso.setVisible(true);
        m_dettagli.mostraSociAggiungibili();
        return;
    }
    const db::Decimal dichiarati = CDecN(numero).toDecimal();
    if (dichiarati == db::Decimal(0)) {
        m_dettagli.setSociAggiungibili(false);
        return;
    }
    m_dettagli.setSociAggiungibili(true);
    const qsizetype righe = m_gestione->recordset()->recordCount();
    m_controlli.GRIDNAV_AGENTISOCI.setNewRowAllowed(db::Decimal(qint64(righe)) < dichiarati);
}

void SociAgente::TXT_CODFISOCIO_Validate()
{
    controls::Field& campo = m_controlli.TXT_CODFISOCIO;
    campo.setText(campo.text().toUpper());
    const QString codice = campo.text();
    if (m_gestione->status() == frame::FrameStatus::Search || codice.isEmpty())
        return;
    host::TaxCodeChecker& controllo = richiesto(m_codiceFiscale.get(), "ClsCodiceFiscale");
    controllo.setCode(codice);
    if (controllo.result() == 0)
        return;
    m_errori.log().message(QStringLiteral("Formato codice fiscale errato !!!"), host::Exclamation,
                           QStringLiteral("Errore"));
    campo.setAccepted(false);
}

void SociAgente::TXT_DATACESS_KeyDown(controls::KeyArgs& args)
{
    scorciatoiaRiga(*m_gestione, m_controlli.GRIDNAV_AGENTISOCI, args);
}

} // namespace tarvello::agenti
