#include "platform/db/recordset.h"
#include "schemadatabase.h"

using namespace tarvello;
using namespace tarvello::db;

namespace {

// A statement that counts rows breaking an invariant, and what the invariant says.
struct Invariant {
    const char* what;
    const char* violations;
};

// What holds for the hand-made and the generated sets alike.
const Invariant invariants[] = {
    {"a reference agent, area manager or zone manager set is an agent of the same company",
     "SELECT COUNT(*) FROM MG17_AGENTI a WHERE (IFNULL(a.MG17_IDAGERIF_MG17, 0) <> 0 AND NOT "
     "EXISTS (SELECT 1 FROM MG17_AGENTI r WHERE r.MG17_IDAGENTE = a.MG17_IDAGERIF_MG17 AND "
     "r.MG17_DITTA_CG18 = a.MG17_DITTA_CG18)) OR (a.MG17_IDCAPOAREA_MG17 IS NOT NULL AND NOT "
     "EXISTS (SELECT 1 FROM MG17_AGENTI r WHERE r.MG17_IDAGENTE = a.MG17_IDCAPOAREA_MG17 AND "
     "r.MG17_DITTA_CG18 = a.MG17_DITTA_CG18 AND r.MG17_INDTIPOAGE = 2)) OR "
     "(a.MG17_IDCAPOZONA_MG17 IS NOT NULL AND NOT EXISTS (SELECT 1 FROM MG17_AGENTI r WHERE "
     "r.MG17_IDAGENTE = a.MG17_IDCAPOZONA_MG17 AND r.MG17_DITTA_CG18 = a.MG17_DITTA_CG18 AND "
     "r.MG17_INDTIPOAGE = 1))"},
    {"an agent's reference agent ranks above it, and area managers are roots",
     "SELECT COUNT(*) FROM MG17_AGENTI a LEFT JOIN MG17_AGENTI r ON r.MG17_IDAGENTE = "
     "a.MG17_IDAGERIF_MG17 WHERE (r.MG17_IDAGENTE IS NOT NULL AND r.MG17_INDTIPOAGE <= "
     "a.MG17_INDTIPOAGE) OR (a.MG17_INDTIPOAGE = 2 AND IFNULL(a.MG17_IDAGERIF_MG17, 0) <> 0)"},
    {"the zone manager of an agent under a zone manager is that zone manager",
     "SELECT COUNT(*) FROM MG17_AGENTI a INNER JOIN MG17_AGENTI r ON r.MG17_IDAGENTE = "
     "a.MG17_IDAGERIF_MG17 WHERE r.MG17_INDTIPOAGE = 1 AND IFNULL(a.MG17_IDCAPOZONA_MG17, 0) <> "
     "r.MG17_IDAGENTE"},
    {"a supplier belongs to the agent's registry entry and has kind 1; none has kind Null",
     "SELECT COUNT(*) FROM MG17_AGENTI WHERE (MG17_CLIFOR_CG44 IS NULL AND MG17_TIPOCF_CG44 IS "
     "NOT NULL) OR (MG17_CLIFOR_CG44 IS NOT NULL AND (MG17_TIPOCF_CG44 <> 1 OR NOT EXISTS "
     "(SELECT 1 FROM CG44_CLIFOR WHERE CG44_DITTA_CG18 = MG17_DITTA_CG18 AND CG44_TIPOCF = 1 AND "
     "CG44_CLIFOR = MG17_CLIFOR_CG44 AND CG44_CODICE_CG16 = MG17_ANAGEN_CG16)))"},
    {"partners belong to an agent of their company",
     "SELECT COUNT(*) FROM MG18_AGENTISOCI WHERE NOT EXISTS (SELECT 1 FROM MG17_AGENTI WHERE "
     "MG17_IDAGENTE = MG18_IDAGENTE_MG17 AND MG17_DITTA_CG18 = MG18_DITTA_CG18)"},
    {"a partnership has as many partners as it says, sharing at most 100%",
     "SELECT COUNT(*) FROM MG17_AGENTI WHERE (SELECT COUNT(*) FROM MG18_AGENTISOCI WHERE "
     "MG18_IDAGENTE_MG17 = MG17_IDAGENTE) NOT IN (0, IFNULL(MG17_NUMSOCI, 0)) OR (SELECT "
     "IFNULL(SUM(MG18_PERQUOTA), 0) FROM MG18_AGENTISOCI WHERE MG18_IDAGENTE_MG17 = "
     "MG17_IDAGENTE) > 100"},
    {"maturation days belong to an agent of their company",
     "SELECT COUNT(*) FROM MG16_AGENTIMAT WHERE NOT EXISTS (SELECT 1 FROM MG17_AGENTI WHERE "
     "MG17_IDAGENTE = MG16_IDAGENTE_MG17 AND MG17_DITTA_CG18 = MG16_DITTA_CG18)"},
    {"an agent has at most one van-sales row, with a depot and a register of its company",
     "SELECT COUNT(*) FROM MG34_AGENTITV v WHERE NOT EXISTS (SELECT 1 FROM MG17_AGENTI WHERE "
     "MG17_IDAGENTE = v.MG34_IDAGENTE_MG17 AND MG17_DITTA_CG18 = v.MG34_DITTA_CG18) OR (SELECT "
     "COUNT(*) FROM MG34_AGENTITV o WHERE o.MG34_IDAGENTE_MG17 = v.MG34_IDAGENTE_MG17) > 1 OR NOT "
     "EXISTS (SELECT 1 FROM MG58_DEPOSITI WHERE MG58_DITTA_CG18 = v.MG34_DITTA_CG18 AND "
     "MG58_CODDEP = v.MG34_TVDEP_MG58) OR NOT EXISTS (SELECT 1 FROM CG68_NUMERDESC WHERE "
     "CG68_DITTA_CG18 = v.MG34_DITTA_CG18 AND CG68_SEZIONALE = v.MG34_TVSEZ_CG68)"},
    {"route detail rows name an agent, a route, a customer and a destination of their company",
     "SELECT COUNT(*) FROM MG1I_DETTAGLIOGIRI WHERE MG1I_TIPOCF_CG44 <> 0 OR NOT EXISTS (SELECT 1 "
     "FROM MG17_AGENTI WHERE MG17_IDAGENTE = MG1I_IDAGENTE_MG17 AND MG17_DITTA_CG18 = "
     "MG1I_DITTA_CG18) OR NOT EXISTS (SELECT 1 FROM MG1H_GIRI WHERE MG1H_DITTA_CG18 = "
     "MG1I_DITTA_CG18 AND MG1H_GIRO = MG1I_GIRO_MG1H) OR NOT EXISTS (SELECT 1 FROM CG44_CLIFOR "
     "WHERE CG44_DITTA_CG18 = MG1I_DITTA_CG18 AND CG44_TIPOCF = 0 AND CG44_CLIFOR = "
     "MG1I_CLIFOR_CG44) OR (MG1I_CODDEST_MG22 IS NOT NULL AND NOT EXISTS (SELECT 1 FROM "
     "MG22_DESTINATARI WHERE MG22_DITTA_CG18 = MG1I_DITTA_CG18 AND MG22_TIPOCF_CG44 = 0 AND "
     "MG22_CLIFOR_CG44 = MG1I_CLIFOR_CG44 AND MG22_CODDESTIN = MG1I_CODDEST_MG22))"},
    {"positions number an agent's route 1, 2, 3 ... without gaps or repeats",
     "SELECT COUNT(*) FROM (SELECT MIN(MG1I_PROGRESSIVO) AS FIRST, MAX(MG1I_PROGRESSIVO) AS LAST, "
     "COUNT(*) AS ROWS_, COUNT(DISTINCT MG1I_PROGRESSIVO) AS DISTINCT_ FROM MG1I_DETTAGLIOGIRI "
     "GROUP BY MG1I_DITTA_CG18, MG1I_IDAGENTE_MG17, MG1I_GIRO_MG1H) WHERE FIRST <> 1 OR LAST <> "
     "ROWS_ OR DISTINCT_ <> ROWS_"},
    {"a customer and destination appear once per route of an agent",
     "SELECT COUNT(*) FROM (SELECT COUNT(*) AS N FROM MG1I_DETTAGLIOGIRI GROUP BY "
     "MG1I_DITTA_CG18, MG1I_IDAGENTE_MG17, MG1I_GIRO_MG1H, MG1I_CLIFOR_CG44, "
     "IFNULL(MG1I_CODDEST_MG22, '')) WHERE N > 1"},
    {"a customer's several agents are agents of its company",
     "SELECT COUNT(*) FROM MG1C_CLIFORAGEMUL WHERE NOT EXISTS (SELECT 1 FROM MG17_AGENTI WHERE "
     "MG17_IDAGENTE = MG1C_IDAGENTE_MG17 AND MG17_DITTA_CG18 = MG1C_DITTA_CG18)"},
    {"divisional agent rows belong to agents of a company with divisional data",
     "SELECT COUNT(*) FROM CO1C_ENTITADIV WHERE CO1C_IDENTITA = 3 AND NOT EXISTS (SELECT 1 FROM "
     "MG17_AGENTI INNER JOIN CG18_DITTE ON CG18_DITTA = MG17_DITTA_CG18 WHERE MG17_IDAGENTE = "
     "CO1C_IDAGENTE_MG17 AND MG17_DITTA_CG18 = CO1C_DITTA_CG18 AND CG18_FLGDATIDIV = 1)"},
    {"divisional agent details hang off an entity",
     "SELECT COUNT(*) FROM CO1G_DETTAGENTE WHERE NOT EXISTS (SELECT 1 FROM CO1C_ENTITADIV WHERE "
     "CO1C_IDENTITADIV = CO1G_IDENTITADIV_CO1C)"},
    {"document rows name agents of their company",
     "SELECT COUNT(*) FROM DO21_DOCTESTAPROV WHERE NOT EXISTS (SELECT 1 FROM MG17_AGENTI WHERE "
     "MG17_IDAGENTE = DO21_IDAGENTE_MG17 AND MG17_DITTA_CG18 = DO21_DITTA_CG18)"},
    {"classification codes of an agent exist in their tables, within their parents",
     "SELECT COUNT(*) FROM MG17_AGENTI WHERE (MG17_MACROAREA_MGL1 IS NOT NULL AND NOT EXISTS "
     "(SELECT 1 FROM MGL1_MACROAREE WHERE MGL1_DITTA_CG18 = MG17_DITTA_CG18 AND MGL1_MACROAREA = "
     "MG17_MACROAREA_MGL1)) OR (MG17_AREA_MGL2 IS NOT NULL AND NOT EXISTS (SELECT 1 FROM "
     "MGL2_AREE WHERE MGL2_DITTA_CG18 = MG17_DITTA_CG18 AND MGL2_MACROAREA_MGL1 = "
     "MG17_MACROAREA_MGL1 AND MGL2_AREA = MG17_AREA_MGL2)) OR (MG17_ZONA_MGL3 IS NOT NULL AND NOT "
     "EXISTS (SELECT 1 FROM MGL3_ZONE WHERE MGL3_DITTA_CG18 = MG17_DITTA_CG18 AND "
     "MGL3_MACROAREA_MGL1 = MG17_MACROAREA_MGL1 AND MGL3_AREA_MGL2 = MG17_AREA_MGL2 AND MGL3_ZONA "
     "= MG17_ZONA_MGL3)) OR (MG17_SOTTOCAT_MGL6 IS NOT NULL AND NOT EXISTS (SELECT 1 FROM "
     "MGL6_SOTTOCATEGORIE WHERE MGL6_DITTA_CG18 = MG17_DITTA_CG18 AND MGL6_MACROCAT_MGL4 = "
     "MG17_MACROCAT_MGL4 AND MGL6_CATEG_MGL5 = MG17_CATEG_MGL5 AND MGL6_SOTTOCAT = "
     "MG17_SOTTOCAT_MGL6)) OR (MG17_RAGGR1_MGL7 IS NOT NULL AND NOT EXISTS (SELECT 1 FROM "
     "MGL7_RAGGRUPPAMENTI1 WHERE MGL7_DITTA_CG18 = MG17_DITTA_CG18 AND MGL7_RAGGR1 = "
     "MG17_RAGGR1_MGL7)) OR (MG17_TIPOAGENTE_MG1P IS NOT NULL AND NOT EXISTS (SELECT 1 FROM "
     "MG1P_TIPOLOGIEAGENTI WHERE MG1P_DITTA_CG18 = MG17_DITTA_CG18 AND MG1P_TIPOAGENTE = "
     "MG17_TIPOAGENTE_MG1P))"},
    {"commission settings name existing priority and discount tables of the sales side",
     "SELECT COUNT(*) FROM MG17_AGENTI WHERE (IFNULL(MG17_ID_LP09, 0) <> 0 AND NOT EXISTS "
     "(SELECT 1 FROM LP09_TESTATAPRIORITA WHERE LP09_ID = MG17_ID_LP09)) OR (MG17_CODPROVSC_PA10 "
     "IS NOT NULL AND NOT EXISTS (SELECT 1 FROM PA10_PROVSCANAG WHERE PA10_DITTA_CG18 = "
     "MG17_DITTA_CG18 AND PA10_CODPROVSC = MG17_CODPROVSC_PA10 AND PA10_FLGVENACQ = 0))"},
};

// Rows of a table in key order, as texts, to compare two loads.
QStringList dump(Connection& connection, const QString& sql)
{
    QStringList lines;
    for (const ValueList& row : connection.run(sql).rows) {
        QStringList fields;
        for (const Value& value : row)
            fields << value.debugText();
        lines << fields.join(u'|');
    }
    return lines;
}

} // namespace

class DemoData : public test::SchemaDatabaseTest {
protected:
    void expectInvariants()
    {
        for (const Invariant& invariant : invariants)
            EXPECT_EQ(count(QString::fromLatin1(invariant.violations)), 0) << invariant.what;
    }
};

TEST_P(DemoData, TheHandMadeSetKeepsItsInvariantsAndStaysOutOfTheStatementLog)
{
    db().log().clear();
    populateDemoData(db());
    EXPECT_EQ(db().log().size(), 0);
    EXPECT_TRUE(db().log().isEnabled());
    expectInvariants();
}

TEST_P(DemoData, TheScaledSetHasTheRequestedAgentsWithDetailsInProportion)
{
    const int agents = 250;
    populateDemoData(db(), DemoOptions{agents});
    expectInvariants();
    EXPECT_EQ(count(QStringLiteral("SELECT COUNT(*) FROM MG17_AGENTI WHERE MG17_DITTA_CG18 = ?"),
                    {DemoCompanies::divisional}),
              agents);
    EXPECT_EQ(count(QStringLiteral("SELECT COUNT(*) FROM MG17_AGENTI")), agents);
    EXPECT_EQ(count(QStringLiteral("SELECT COUNT(*) FROM MG1I_DETTAGLIOGIRI")), 3 * agents);
    EXPECT_EQ(count(QStringLiteral("SELECT COUNT(DISTINCT MG1I_IDAGENTE_MG17) FROM "
                                   "MG1I_DETTAGLIOGIRI")),
              agents);
    EXPECT_GE(count(QStringLiteral("SELECT COUNT(*) FROM MG16_AGENTIMAT")), agents);
    EXPECT_GE(count(QStringLiteral("SELECT COUNT(*) FROM MG18_AGENTISOCI")), agents / 20);
    EXPECT_GE(count(QStringLiteral("SELECT COUNT(*) FROM MG34_AGENTITV")), agents / 5);
    EXPECT_GE(count(QStringLiteral("SELECT COUNT(*) FROM MG17_AGENTI WHERE MG17_INDTIPOAGE = 2")),
              2);
    // Every generated agent is in the tree: it has a registry entry.
    EXPECT_EQ(count(QStringLiteral("SELECT COUNT(*) FROM MG17_AGENTI INNER JOIN CG16_ANAGGEN ON "
                                   "CG16_CODICE = MG17_ANAGEN_CG16")),
              agents);
}

TEST_P(DemoData, TheSameOptionsGiveTheSameRows)
{
    const DemoOptions options{40};
    populateDemoData(db(), options);
    test::TestDatabase other(GetParam());
    createSchema(other.connection());
    populateDemoData(other.connection(), options);
    for (const char* sql : {"SELECT * FROM MG17_AGENTI ORDER BY MG17_IDAGENTE",
                            "SELECT * FROM MG1I_DETTAGLIOGIRI ORDER BY MG1I_ID",
                            "SELECT * FROM CG16_ANAGGEN ORDER BY CG16_CODICE"}) {
        const QString statement = QString::fromLatin1(sql);
        const QStringList rows = dump(db(), statement);
        EXPECT_FALSE(rows.isEmpty()) << sql;
        EXPECT_EQ(rows, dump(other.connection(), statement)) << sql;
    }
}

TEST_P(DemoData, AFailedLoadLeavesNothingBehind)
{
    // A company row already there makes the load fail on its first insert.
    db().run(QStringLiteral("INSERT INTO CG18_DITTE (CG18_DITTA, CG18_RAGSOC) VALUES (?, ?)"),
             {DemoCompanies::plain, "GIÀ PRESENTE"});
    db().run(QStringLiteral("INSERT INTO MG17_AGENTI (MG17_DITTA_CG18, MG17_AGENTE) VALUES (?, ?)"),
             {DemoCompanies::plain, "ESISTENTE"});
    EXPECT_ANY_THROW(populateDemoData(db()));
    EXPECT_EQ(db().transactionLevel(), 0);
    EXPECT_EQ(count(QStringLiteral("SELECT COUNT(*) FROM CG18_DITTE")), 1);
    EXPECT_EQ(count(QStringLiteral("SELECT COUNT(*) FROM MG17_AGENTI")), 1);
}

INSTANTIATE_TEST_SUITE_P(Targets, DemoData, ::testing::ValuesIn(test::databaseTargets()),
                         [](const auto& info) { return test::targetName(info.param); });
