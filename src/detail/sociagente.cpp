#include "src/detail/sociagente.h"

#include "platform/controls/eventargs.h"
#include "platform/controls/field.h"
#include "platform/controls/gridnavigator.h"
#include "platform/frame/gestanagrafica.h"
#include "src/common/richiesto.h"
#include "src/common/valuehelpers.h"
#include "src/detail/dettagliagente.h"
#include "src/detail/scorciatoie.h"
#include "src/host/errorlog.h"
#include "src/host/globalcontext.h"
#include "src/host/hostobjects.h"
#include "src/host/taxcodechecker.h"
#include "src/screen/frmmg_agenti.h"

namespace tarvello::agenti {

namespace {

constexpr int StileAvviso = 48;

} // namespace

SociAgente::SociAgente(FRMMG_AGENTI& schermata)
    : m_schermata(schermata)
{}

SociAgente::~SociAgente() = default;

void SociAgente::collega()
{
    using controls::Field;
    QObject* contesto = &m_schermata;
    m_codiceFiscale = m_schermata.globale().objects().newTaxCodeChecker();
    QObject::connect(&m_schermata, &controls::Form::unloaded, contesto,
                     [this] { m_codiceFiscale.reset(); });

    QObject::connect(&m_schermata.controllo<Field>(u"TXT_NUMSOCI"), &Field::validate, contesto,
                     [this](controls::CancelArgs&) { AggiornaNumeroSoci(); });
    QObject::connect(&m_schermata.controllo<Field>(u"TXT_CODSOCIO"), &Field::validate, contesto,
                     [this](controls::CancelArgs&) {
                         controllaChiaveNuovaRiga(
                             *m_schermata.FME_GestAnagrafica(FRMMG_AGENTI::Soci));
                     });
    QObject::connect(&m_schermata.controllo<Field>(u"TXT_CODFISOCIO"), &Field::validate, contesto,
                     [this](controls::CancelArgs&) { TXT_CODFISOCIO_Validate(); });
    QObject::connect(&m_schermata.controllo<Field>(u"TXT_DATACESS"), &Field::keyDown, contesto,
                     [this](controls::KeyArgs& args) { TXT_DATACESS_KeyDown(args); });
}

void SociAgente::AggiornaNumeroSoci()
{
    auto& avviso = m_schermata.controllo<controls::Control>(u"LBL_MANCANUMSOCI");
    avviso.setVisible(false);
    const db::Value numero = RTrimN(m_schermata.controllo<controls::Field>(u"TXT_NUMSOCI").text());
    if (numero.toString().isEmpty()) {
        avviso.setVisible(true);
        m_schermata.dettagli().mostraSociAggiungibili();
        return;
    }
    const db::Decimal dichiarati = CDecN(numero).toDecimal();
    DettagliAgente& dettagli = m_schermata.dettagli();
    if (dichiarati == db::Decimal(0)) {
        dettagli.setSociAggiungibili(false);
        return;
    }
    dettagli.setSociAggiungibili(true);
    const qsizetype righe = m_schermata.Grst_GestAnagrafica(FRMMG_AGENTI::Soci)->recordCount();
    m_schermata.controllo<controls::GridNavigator>(u"GRIDNAV_AGENTISOCI")
        .setNewRowAllowed(db::Decimal(qint64(righe)) < dichiarati);
}

void SociAgente::TXT_CODFISOCIO_Validate()
{
    auto& campo = m_schermata.controllo<controls::Field>(u"TXT_CODFISOCIO");
    campo.setText(campo.text().toUpper());
    const QString codice = campo.text();
    if (m_schermata.FME_GestAnagrafica(FRMMG_AGENTI::Soci)->status() ==
            frame::FrameStatus::Search ||
        codice.isEmpty())
        return;
    host::TaxCodeChecker& controllo = richiesto(m_codiceFiscale.get(), "ClsCodiceFiscale");
    controllo.setCode(codice);
    if (controllo.result() == 0)
        return;
    richiesto(m_schermata.Gcls_Log(), "Gcls_Log")
        .message(QStringLiteral("Formato codice fiscale errato !!!"), StileAvviso,
                 QStringLiteral("Errore"));
    campo.setAccepted(false);
}

void SociAgente::TXT_DATACESS_KeyDown(controls::KeyArgs& args)
{
    scorciatoiaRiga(*m_schermata.FME_GestAnagrafica(FRMMG_AGENTI::Soci),
                    m_schermata.controllo<controls::GridNavigator>(u"GRIDNAV_AGENTISOCI"), args);
}

} // namespace tarvello::agenti
