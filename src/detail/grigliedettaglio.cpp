#include "src/detail/grigliedettaglio.h"

#include "platform/controls/form.h"
#include "platform/controls/grid.h"
#include "src/screen/controlli.h"

namespace tarvello::agenti {

namespace {

struct Colonna {
    const char* campo;
    const char* caption;
    int larghezza;
    const char* formato = "";
};

// Lays a grid out afresh: its key column, its columns in order, and those shown as numbers.
void impostaGriglia(const controls::Form& schermata, QStringView nome, const QString& chiave,
                    std::initializer_list<Colonna> colonne,
                    std::initializer_list<const char*> numeriche)
{
    auto& griglia = controlloDi<controls::Grid>(schermata, nome);
    griglia.clearColumns();
    griglia.setKeyColumn(chiave);
    for (const Colonna& colonna : colonne)
        griglia.addColumn(QString::fromUtf8(colonna.campo), QString::fromUtf8(colonna.caption),
                          colonna.larghezza, QString::fromUtf8(colonna.formato));
    for (const char* campo : numeriche)
        griglia.setColumnNumeric(QString::fromUtf8(campo), true);
}

} // namespace

void INIT_GRID_AGENTISOCI(const controls::Form& schermata)
{
    impostaGriglia(schermata, u"GRID_AGENTISOCI", QStringLiteral("ID"),
                   {
                       {"MG18_CODSOCIO", "Cod.", 585},
                       {"MG18_NOMECOGN", "Nome e cognome", 2850},
                       {"MG18_MATRSOCIO", "Matricola", 2190},
                       {"MG18_CODFISOCIO", "Codice fiscale", 2055},
                       {"MG18_PERQUOTA", "% Quota", 750, "#.000"},
                       {"MG18_DATAINRAPP", "Data in. rap.", 1200},
                       {"MG18_DATACESS", "Data ces. rap.", 1200},
                   },
                   {"MG18_CODSOCIO", "MG18_PERQUOTA"});
}

void INIT_GRID_AGENTIMAT(const controls::Form& schermata)
{
    impostaGriglia(schermata, u"GRID_AGENTIMAT", QStringLiteral("MG16_GGMATUR"),
                   {
                       {"MG16_TIPOEFF", "Tipo effetto", 3135},
                       {"MG16_GGMATUR", "GG mat.", 900},
                   },
                   {"MG16_GGMATUR"});
}

void INIT_GRD_DETTAGLIOGIRI(const controls::Form& schermata)
{
    impostaGriglia(schermata, u"GRD_DETTAGLIOGIRI", QStringLiteral("ID"),
                   {
                       {"MG1I_PROGRESSIVO", "Prog", 540},
                       {"MG1I_CLIFOR_CG44", "Cliente", 5900},
                   },
                   {"MG1I_PROGRESSIVO"});
}

void INIT_GRD_GIRI(const controls::Form& schermata)
{
    impostaGriglia(schermata, u"GRD_GIRI", QStringLiteral("MG1H_GIRO"),
                   {
                       {"MG1H_GIRO", "Giro", 525},
                       {"MG1H_DESCRIZIONE", "Descrizione", 3300},
                   },
                   {});
}

} // namespace tarvello::agenti
