#include "platform/controls/field.h"
#include "platform/services/parametertext.h"
#include "schermatafixture.h"
#include "src/host/lookupdecoder.h"
#include "src/screen/classificazioni.h"

namespace tarvello::test {

namespace {

using agenti::FRMMG_AGENTI;

class Classificazioni : public SchermataTest {
protected:
    void SetUp() override
    {
        SchermataTest::SetUp();
        const auto righe = [this](const char* sql) { db().run(QString::fromLatin1(sql)); };
        righe("INSERT INTO MGL1_MACROAREE (MGL1_DITTA_CG18, MGL1_MACROAREA, MGL1_DESCRIZIONE) "
              "VALUES (1, 'NOR', 'Nord'), (1, 'SUD', 'Sud')");
        righe("INSERT INTO MGL2_AREE (MGL2_DITTA_CG18, MGL2_MACROAREA_MGL1, MGL2_AREA, "
              "MGL2_DESCRIZIONE) VALUES (1, 'NOR', 'A1', 'Nord-ovest'), (1, 'SUD', 'A1', 'Isole')");
        righe("INSERT INTO MGL3_ZONE (MGL3_DITTA_CG18, MGL3_MACROAREA_MGL1, MGL3_AREA_MGL2, "
              "MGL3_ZONA, MGL3_DESCRIZIONE) VALUES (1, 'NOR', 'A1', 'Z1', 'Liguria')");
        righe("INSERT INTO MGL8_RAGGRUPPAMENTI2 (MGL8_DITTA_CG18, MGL8_RAGGR2, MGL8_DESCRIZIONE) "
              "VALUES (1, 'R2', 'Grandi clienti')");
        inserisciAgente(QStringLiteral("A001"));
        apri();
        schermata().SelezionaTab(5);
    }

    controls::Field& campo(QStringView nome) const { return controllo<controls::Field>(nome); }
    QString testo(QStringView nome) const { return campo(nome).text(); }
    // As a person types a code and moves on: the field decodes as the focus leaves it.
    void digita(QStringView nome, const QString& codice)
    {
        ASSERT_TRUE(campo(nome).setFocus());
        campo(nome).setText(codice);
        ASSERT_TRUE(campo(u"TXT_RAGGR3").setFocus());
    }
    agenti::Classificazioni& classificazioni() const { return schermata().classificazioni(); }
    host::LookupDecoder& decodificatore() const
    {
        return *schermata().ambiente().decodificatori().classificazioni;
    }
    // The last management opened: its parameters as name=value pairs.
    QList<std::pair<QString, QString>> parametriGestione() const
    {
        for (qsizetype i = prompts.history().size() - 1; i >= 0; --i) {
            const services::PromptRecord& r = prompts.history().at(i);
            if (r.kind == services::PromptKind::Management)
                return services::readParameters(r.details);
        }
        return {};
    }
    qsizetype gestioniAperte() const
    {
        return std::count_if(prompts.history().begin(), prompts.history().end(),
                             [](const services::PromptRecord& r) {
                                 return r.kind == services::PromptKind::Management;
                             });
    }
    void codiciRestituiti(const QStringList& codici)
    {
        prompts.queue(services::PromptAnswer::codes(codici));
    }
};

using Parametri = QList<std::pair<QString, QString>>;

// An empty parent reaches the list as two quotes and the decoding as an empty text: the host
// quotes both, so the list filters on a code of two quotes and the decoding on an empty code.
TEST_F(Classificazioni, AnEmptyParentIsPassedAsTwoQuotesToTheListAndEmptyToTheDecoding)
{
    controls::LookupArgs lista;
    Q_EMIT campo(u"TXT_AREA").lookupRequested(lista);
    EXPECT_TRUE(lista.sql.contains(u"MGL2_MACROAREA_MGL1 = ''''''")) << lista.sql.toStdString();
    EXPECT_EQ(lista.title, QStringLiteral("Elenco aree agenti"));
    EXPECT_EQ(campo(u"TXT_AREA").lookupId(), QStringLiteral("Lkp_AreeAge"));

    digita(u"TXT_AREA", QStringLiteral("A1"));
    EXPECT_TRUE(decodificatore().query().contains(u"MGL2_MACROAREA_MGL1 = ''"));
    EXPECT_FALSE(decodificatore().query().contains(u"''''"));
    EXPECT_FALSE(campo(u"TXT_AREA").isValid());

    campo(u"TXT_MACROAREA").setText(QStringLiteral("NOR"));
    controls::LookupArgs zone;
    Q_EMIT campo(u"TXT_ZONA").lookupRequested(zone);
    EXPECT_TRUE(zone.sql.contains(u"MGL3_MACROAREA_MGL1 = 'NOR'"));
    EXPECT_TRUE(zone.sql.contains(u"MGL3_AREA_MGL2 = 'A1'"));
}

TEST_F(Classificazioni, EachFieldOpensItsOwnBranchOfTheManagement)
{
    struct Caso {
        const char* campo;
        const char* ramo;
        qsizetype parametri;
    };
    for (const Caso& caso :
         {Caso{"TXT_MACROAREA", "0", 1}, Caso{"TXT_AREA", "1", 2}, Caso{"TXT_MACROCAT", "3", 1},
          Caso{"TXT_CATEGORIA", "4", 2}, Caso{"TXT_SOTTOCAT", "5", 3}, Caso{"TXT_RAGGR1", "6", 1},
          Caso{"TXT_RAGGR2", "7", 1}, Caso{"TXT_RAGGR3", "8", 1}}) {
        SCOPED_TRACE(caso.campo);
        campo(QString::fromLatin1(caso.campo)).pressManagementKey();
        const Parametri parametri = parametriGestione();
        ASSERT_EQ(parametri.size(), caso.parametri + 1);
        EXPECT_EQ(parametri.last().second, QString::fromLatin1(caso.ramo));
    }
    EXPECT_EQ(classificazioni().RamoCategorie(), 2);
    EXPECT_EQ(classificazioni().RamoRaggruppamenti(), 2);
    EXPECT_EQ(parametriGestione().first().first, QStringLiteral("Pvar_RAGGRUPPAMENTI3"));
}

TEST_F(Classificazioni, OnlyTheManagementKeyOpensTheManagement)
{
    const qsizetype prima = gestioniAperte();
    Q_EMIT campo(u"TXT_AREA").managementKeyPressed(QStringLiteral("Kpers1"));
    Q_EMIT campo(u"TXT_AREA").managementKeyPressed(QStringLiteral("kgestione"));
    EXPECT_EQ(gestioniAperte(), prima);
    EXPECT_EQ(classificazioni().RamoAreeZone(), 0);
}

// The territory reports a short answer and lets the person go on; the other groups write an
// empty code for every level the management did not hand back.
TEST_F(Classificazioni, AShortAnswerIsReportedForTheTerritoryAndEmptiesTheOtherCodes)
{
    campo(u"TXT_MACROCAT").setText(QStringLiteral("M1"));
    campo(u"TXT_CATEGORIA").setText(QStringLiteral("C1"));
    codiciRestituiti({QStringLiteral("C9")});
    campo(u"TXT_CATEGORIA").pressManagementKey();
    EXPECT_EQ(testo(u"TXT_MACROCAT"), QString());
    EXPECT_EQ(testo(u"TXT_CATEGORIA"), QStringLiteral("C9"));

    const qsizetype prima = prompts.history().size();
    campo(u"TXT_MACROAREA").setText(QStringLiteral("NOR"));
    codiciRestituiti({QStringLiteral("A2")});
    rispondi(5); // ignore: the next step runs
    campo(u"TXT_AREA").pressManagementKey();
    ASSERT_GT(prompts.history().size(), prima + 1);
    EXPECT_TRUE(prompts.history().at(prima + 1).text.contains(u"InvocaGestioneAreeZone"))
        << prompts.history().at(prima + 1).text.toStdString();
    EXPECT_EQ(testo(u"TXT_MACROAREA"), QStringLiteral("NOR"));
    EXPECT_EQ(testo(u"TXT_AREA"), QStringLiteral("A2"));
}

} // namespace

} // namespace tarvello::test
