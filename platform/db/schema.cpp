#include "platform/db/schema.h"

namespace tarvello::db {

namespace {

// Declaration helpers: a column is written as its type with its name, then what sets it
// apart (`.notNull()`, `.byDefault(0)`).
struct Col {
    ColumnDef def;

    Col notNull() const
    {
        Col c = *this;
        c.def.notNull = true;
        return c;
    }
    Col byDefault(int value) const
    {
        Col c = *this;
        c.def.defaultValue = QString::number(value);
        return c;
    }
    Col byDefault(const char* literal) const
    {
        Col c = *this;
        c.def.defaultValue = QString::fromUtf8(literal);
        return c;
    }
    operator ColumnDef() const { return def; } // NOLINT: lets a Col stand in a column list
};

Col column(const QString& name, SqlType type, int length = 0, int scale = 0)
{
    return Col{ColumnDef{name, type, length, scale, false, {}, false}};
}

Col integer(const QString& name)
{
    return column(name, SqlType::Integer);
}

Col smallint(const QString& name)
{
    return column(name, SqlType::SmallInt);
}

// Check boxes store 0 and 1.
Col flag(const QString& name)
{
    return smallint(name).byDefault(0);
}

Col decimal(const QString& name, int precision, int scale)
{
    return column(name, SqlType::Decimal, precision, scale);
}

Col varchar(const QString& name, int length)
{
    return column(name, SqlType::VarChar, length);
}

Col nvarchar(const QString& name, int length)
{
    return column(name, SqlType::NVarChar, length);
}

Col datetime(const QString& name)
{
    return column(name, SqlType::DateTime);
}

Col identity(const QString& name)
{
    Col c = integer(name).notNull();
    c.def.identity = true;
    return c;
}

// The company column every company-owned table has.
Col company(const QString& prefix)
{
    return integer(prefix + QStringLiteral("_DITTA_CG18")).notNull();
}

QString prefixOf(const QString& table)
{
    return table.section(u'_', 0, 0);
}

// The columns of an index as a table declares it: a plain list, or `unique(...)`.
struct IndexColumns {
    IndexColumns(std::initializer_list<QString> names) // NOLINT: a plain list stands in
        : columns(names)
    {}
    IndexColumns(QStringList names, bool isUnique)
        : columns(std::move(names))
        , unique(isUnique)
    {}
    QStringList columns;
    bool unique = false;
};

IndexColumns unique(std::initializer_list<QString> columns)
{
    return {QStringList(columns), true};
}

// Index names are unique per database on both engines: the table prefix and the indexed
// columns, each without its prefix, make them so; UX_ marks a unique index.
IndexDef index(const QString& table, const IndexColumns& columns)
{
    const QString prefix = prefixOf(table);
    QStringList parts{columns.unique ? QStringLiteral("UX") : QStringLiteral("IX"), prefix};
    for (const QString& name : columns.columns)
        parts << name.mid(prefix.size() + 1);
    return {parts.join(u'_'), columns.columns, columns.unique};
}

TableDef table(const QString& name, QList<ColumnDef> columns, QStringList primaryKey,
               const QList<IndexColumns>& indexes = {})
{
    TableDef def{name, std::move(columns), std::move(primaryKey), {}};
    for (const IndexColumns& indexColumns : indexes)
        def.indexes << index(name, indexColumns);
    return def;
}

// A table keyed by a database-assigned id: the key is the identity column.
TableDef identityTable(const QString& name, QList<ColumnDef> columns,
                       const QList<IndexColumns>& indexes = {})
{
    QString key;
    for (const ColumnDef& c : columns) {
        if (c.identity)
            key = c.name;
    }
    return table(name, std::move(columns), {key}, indexes);
}

TableDef companies()
{
    return table(QStringLiteral("CG18_DITTE"),
                 {
                     integer(QStringLiteral("CG18_DITTA")).notNull(),
                     nvarchar(QStringLiteral("CG18_RAGSOC"), 60).notNull(),
                     flag(QStringLiteral("CG18_FLGDATIDIV")),
                 },
                 {QStringLiteral("CG18_DITTA")});
}

TableDef registry()
{
    return table(QStringLiteral("CG16_ANAGGEN"),
                 {
                     integer(QStringLiteral("CG16_CODICE")).notNull(),
                     nvarchar(QStringLiteral("CG16_RAGSOANAG"), 60).notNull(),
                     nvarchar(QStringLiteral("CG16_INDIRIZZO"), 60),
                     varchar(QStringLiteral("CG16_CAP"), 10),
                     nvarchar(QStringLiteral("CG16_CITTA"), 40),
                     varchar(QStringLiteral("CG16_PROVINCIA"), 2),
                     varchar(QStringLiteral("CG16_PARTIVA"), 16),
                     varchar(QStringLiteral("CG16_CODFISC"), 16),
                 },
                 {QStringLiteral("CG16_CODICE")}, {{QStringLiteral("CG16_RAGSOANAG")}});
}

TableDef accounts()
{
    return table(QStringLiteral("CG44_CLIFOR"),
                 {
                     company(QStringLiteral("CG44")),
                     smallint(QStringLiteral("CG44_TIPOCF")).notNull(),
                     integer(QStringLiteral("CG44_CLIFOR")).notNull(),
                     integer(QStringLiteral("CG44_CODICE_CG16")),
                 },
                 {QStringLiteral("CG44_DITTA_CG18"), QStringLiteral("CG44_TIPOCF"),
                  QStringLiteral("CG44_CLIFOR")},
                 {{QStringLiteral("CG44_DITTA_CG18"), QStringLiteral("CG44_TIPOCF"),
                   QStringLiteral("CG44_CODICE_CG16")}});
}

TableDef destinations()
{
    return table(QStringLiteral("MG22_DESTINATARI"),
                 {
                     company(QStringLiteral("MG22")),
                     smallint(QStringLiteral("MG22_TIPOCF_CG44")).notNull().byDefault(0),
                     integer(QStringLiteral("MG22_CLIFOR_CG44")).notNull(),
                     varchar(QStringLiteral("MG22_CODDESTIN"), 4).notNull(),
                     nvarchar(QStringLiteral("MG22_DESCRDEST"), 60),
                     nvarchar(QStringLiteral("MG22_INDIRIZZO"), 60),
                     varchar(QStringLiteral("MG22_CAP"), 10),
                     nvarchar(QStringLiteral("MG22_CITTA"), 40),
                     varchar(QStringLiteral("MG22_PROVINCIA"), 2),
                 },
                 {QStringLiteral("MG22_DITTA_CG18"), QStringLiteral("MG22_TIPOCF_CG44"),
                  QStringLiteral("MG22_CLIFOR_CG44"), QStringLiteral("MG22_CODDESTIN")});
}

TableDef multimedia()
{
    return identityTable(QStringLiteral("CG99_MULTIMEDIA"),
                         {
                             identity(QStringLiteral("CG99_IDMEDIA")),
                             nvarchar(QStringLiteral("CG99_NOMEFILE"), 260),
                             nvarchar(QStringLiteral("CG99_PERCORSO"), 400),
                             nvarchar(QStringLiteral("CG99_DESCRIZIONE"), 100),
                         });
}

TableDef agents()
{
    const QString t = QStringLiteral("MG17_AGENTI");
    const auto code3 = [](const char* name) { return varchar(QString::fromLatin1(name), 3); };
    const auto code = [](const char* name) { return smallint(QString::fromLatin1(name)); };
    return identityTable(
        t,
        {
            identity(QStringLiteral("MG17_IDAGENTE")),
            company(QStringLiteral("MG17")),
            varchar(QStringLiteral("MG17_AGENTE"), 20).notNull(),
            integer(QStringLiteral("MG17_ANAGEN_CG16")),
            integer(QStringLiteral("MG17_CLIFOR_CG44")),
            smallint(QStringLiteral("MG17_TIPOCF_CG44")),
            code("MG17_INDTIPOAGE").notNull().byDefault(0),
            smallint(QStringLiteral("MG17_TIPOAGENTE_MG1P")),
            integer(QStringLiteral("MG17_IDAGERIF_MG17")),
            integer(QStringLiteral("MG17_IDCAPOAREA_MG17")),
            integer(QStringLiteral("MG17_IDCAPOZONA_MG17")),
            code3("MG17_MACROAREA_MGL1"),
            code3("MG17_AREA_MGL2"),
            code3("MG17_ZONA_MGL3"),
            code3("MG17_MACROCAT_MGL4"),
            code3("MG17_CATEG_MGL5"),
            code3("MG17_SOTTOCAT_MGL6"),
            code3("MG17_RAGGR1_MGL7"),
            code3("MG17_RAGGR2_MGL8"),
            code3("MG17_RAGGR3_MGL9"),
            code("MG17_REGIMEPROV").notNull().byDefault(0),
            decimal(QStringLiteral("MG17_PERPROV"), 6, 3).notNull().byDefault(0),
            flag(QStringLiteral("MG17_FLGREGIMECL")),
            flag(QStringLiteral("MG17_FLGREGIMEART")),
            code("MG17_INDPRIORCLIART").notNull().byDefault(0),
            varchar(QStringLiteral("MG17_CODTABPROV"), 2),
            varchar(QStringLiteral("MG17_RIGACOLPROV"), 2),
            code("MG17_IDENTIFTAB").byDefault(-1),
            code("MG17_IDENTIFRIGA").byDefault(-1),
            code("MG17_IDENTIFCOL").byDefault(-1),
            code("MG17_INDTIPOLISFIX").byDefault(0),
            smallint(QStringLiteral("MG17_NUMLISFIX")),
            integer(QStringLiteral("MG17_ID_LP09")),
            flag(QStringLiteral("MG17_FLGADEGUAMSCMAG")),
            varchar(QStringLiteral("MG17_CODPROVSC_PA10"), 20),
            code("MG17_INDCALCSCMAG").byDefault(0),
            code("MG17_INDBASEIMPSC").byDefault(0),
            code("MG17_INDBASEIMPMAG").byDefault(0),
            flag(QStringLiteral("MG17_FLGADEGDELTA")),
            decimal(QStringLiteral("MG17_IMPMINFATT"), 11, 2),
            code("MG17_INDTIPOLIQ").byDefault(0),
            // The one list whose codes are texts: the host's print modes.
            varchar(QStringLiteral("MG17_INDPREFSTDOC"), 2).byDefault("'0'"),
            code("MG17_TIPOMAND").byDefault(0),
            code("MG17_TIPORAPPOR").byDefault(1),
            code("MG17_TIPOSOC").byDefault(0),
            smallint(QStringLiteral("MG17_NUMSOCI")),
            datetime(QStringLiteral("MG17_DATAINRAPP")),
            datetime(QStringLiteral("MG17_DATAINMAN")),
            datetime(QStringLiteral("MG17_DATAFINEMAN")),
            varchar(QStringLiteral("MG17_MATRENASARCO"), 16),
            datetime(QStringLiteral("MG17_DATAISCR")),
            datetime(QStringLiteral("MG17_DATACANC")),
            code("MG17_INDSTDISTENAS").byDefault(0),
            varchar(QStringLiteral("MG17_GUID"), 50),
            integer(QStringLiteral("MG17_IDMEDIA_CG99")),
        },
        // The code index comes last: for a plain company filter SQLite walks the index
        // created last, so the company's agents come in code order, as the tree lists them.
        // It is unique: of two users saving the same new code, the second is refused.
        {
            {QStringLiteral("MG17_DITTA_CG18"), QStringLiteral("MG17_IDAGERIF_MG17")},
            {QStringLiteral("MG17_DITTA_CG18"), QStringLiteral("MG17_ANAGEN_CG16")},
            unique({QStringLiteral("MG17_DITTA_CG18"), QStringLiteral("MG17_AGENTE")}),
        });
}

// The detail tables of an agent: a surrogate key per row, so that a batch update finds its
// row by a key the person cannot change, then company and owning agent.
TableDef agentDetail(const QString& name, QList<ColumnDef> own,
                     const QStringList& extraIndexColumns = {})
{
    const QString prefix = prefixOf(name);
    const QString companyColumn = prefix + QStringLiteral("_DITTA_CG18");
    const QString agentColumn = prefix + QStringLiteral("_IDAGENTE_MG17");
    QList<ColumnDef> columns{identity(prefix + QStringLiteral("_ID")), company(prefix),
                             integer(agentColumn).notNull()};
    columns << own;
    return identityTable(name, std::move(columns),
                         {{QStringList{companyColumn, agentColumn} + extraIndexColumns, false}});
}

TableDef partners()
{
    return agentDetail(QStringLiteral("MG18_AGENTISOCI"),
                       {
                           smallint(QStringLiteral("MG18_CODSOCIO")).notNull(),
                           nvarchar(QStringLiteral("MG18_NOMECOGN"), 30).notNull(),
                           varchar(QStringLiteral("MG18_MATRSOCIO"), 16),
                           varchar(QStringLiteral("MG18_CODFISOCIO"), 16),
                           decimal(QStringLiteral("MG18_PERQUOTA"), 6, 3).notNull(),
                           datetime(QStringLiteral("MG18_DATAINRAPP")),
                           datetime(QStringLiteral("MG18_DATACESS")),
                       });
}

TableDef maturationDays()
{
    return agentDetail(QStringLiteral("MG16_AGENTIMAT"),
                       {
                           smallint(QStringLiteral("MG16_TIPOEFF")).notNull().byDefault(0),
                           smallint(QStringLiteral("MG16_GGMATUR")),
                       });
}

TableDef vanSales()
{
    return agentDetail(QStringLiteral("MG34_AGENTITV"),
                       {
                           varchar(QStringLiteral("MG34_TVDEP_MG58"), 2),
                           varchar(QStringLiteral("MG34_TVSEZ_CG68"), 2),
                           decimal(QStringLiteral("MG34_TVTARA"), 9, 2),
                           varchar(QStringLiteral("MG34_TVTARGA"), 10),
                           flag(QStringLiteral("MG34_TVINDXH")),
                       });
}

TableDef routeDetail()
{
    TableDef def = agentDetail(QStringLiteral("MG1I_DETTAGLIOGIRI"),
                               {
                                   varchar(QStringLiteral("MG1I_GIRO_MG1H"), 3),
                                   smallint(QStringLiteral("MG1I_PROGRESSIVO")),
                                   smallint(QStringLiteral("MG1I_TIPOCF_CG44")).byDefault(0),
                                   integer(QStringLiteral("MG1I_CLIFOR_CG44")),
                                   varchar(QStringLiteral("MG1I_CODDEST_MG22"), 4),
                                   nvarchar(QStringLiteral("MG1I_NOTE"), 400),
                               },
                               {QStringLiteral("MG1I_GIRO_MG1H")});
    // The checks of a stored customer look it up in every agent's routes.
    def.indexes << index(def.name,
                         {QStringLiteral("MG1I_DITTA_CG18"), QStringLiteral("MG1I_TIPOCF_CG44"),
                          QStringLiteral("MG1I_CLIFOR_CG44")});
    return def;
}

TableDef routes()
{
    return table(QStringLiteral("MG1H_GIRI"),
                 {
                     company(QStringLiteral("MG1H")),
                     varchar(QStringLiteral("MG1H_GIRO"), 3).notNull(),
                     nvarchar(QStringLiteral("MG1H_DESCRIZIONE"), 100),
                 },
                 {QStringLiteral("MG1H_DITTA_CG18"), QStringLiteral("MG1H_GIRO")});
}

TableDef customersWithSeveralAgents()
{
    return table(QStringLiteral("MG1C_CLIFORAGEMUL"),
                 {
                     company(QStringLiteral("MG1C")),
                     smallint(QStringLiteral("MG1C_TIPOCF_CG44")).notNull().byDefault(0),
                     integer(QStringLiteral("MG1C_CLIFOR_CG44")).notNull(),
                     integer(QStringLiteral("MG1C_IDAGENTE_MG17")).notNull(),
                 },
                 {QStringLiteral("MG1C_DITTA_CG18"), QStringLiteral("MG1C_TIPOCF_CG44"),
                  QStringLiteral("MG1C_CLIFOR_CG44"), QStringLiteral("MG1C_IDAGENTE_MG17")});
}

TableDef discountCommissionTables()
{
    return table(QStringLiteral("PA10_PROVSCANAG"),
                 {
                     company(QStringLiteral("PA10")),
                     varchar(QStringLiteral("PA10_CODPROVSC"), 20).notNull(),
                     nvarchar(QStringLiteral("PA10_DESCPROVSC"), 40),
                     smallint(QStringLiteral("PA10_FLGVENACQ")).notNull().byDefault(0),
                 },
                 {QStringLiteral("PA10_DITTA_CG18"), QStringLiteral("PA10_CODPROVSC"),
                  QStringLiteral("PA10_FLGVENACQ")});
}

TableDef priceLists()
{
    return table(QStringLiteral("LS01_LISTINI"),
                 {
                     company(QStringLiteral("LS01")),
                     smallint(QStringLiteral("LS01_NUMLIS")).notNull(),
                     nvarchar(QStringLiteral("LS01_DESCRLIS"), 40),
                 },
                 {QStringLiteral("LS01_DITTA_CG18"), QStringLiteral("LS01_NUMLIS")});
}

TableDef priorityTables()
{
    return identityTable(QStringLiteral("LP09_TESTATAPRIORITA"),
                         {
                             identity(QStringLiteral("LP09_ID")),
                             varchar(QStringLiteral("LP09_CODICE"), 10).notNull(),
                             nvarchar(QStringLiteral("LP09_DESCRIZIONE"), 40),
                         },
                         {{QStringLiteral("LP09_CODICE")}});
}

TableDef depots()
{
    return table(QStringLiteral("MG58_DEPOSITI"),
                 {
                     company(QStringLiteral("MG58")),
                     varchar(QStringLiteral("MG58_CODDEP"), 2).notNull(),
                     nvarchar(QStringLiteral("MG58_DESCRDEP"), 40),
                     nvarchar(QStringLiteral("MG58_INDIDEP"), 60),
                     varchar(QStringLiteral("MG58_CAPDEP"), 10),
                     nvarchar(QStringLiteral("MG58_LOCDEP"), 40),
                     varchar(QStringLiteral("MG58_PROVDEP"), 2),
                     varchar(QStringLiteral("MG58_TELNUMDEP"), 20),
                     varchar(QStringLiteral("MG58_FAXNUMDEP"), 20),
                 },
                 {QStringLiteral("MG58_DITTA_CG18"), QStringLiteral("MG58_CODDEP")});
}

TableDef registers()
{
    return table(QStringLiteral("CG68_NUMERDESC"),
                 {
                     company(QStringLiteral("CG68")),
                     varchar(QStringLiteral("CG68_SEZIONALE"), 2).notNull(),
                     nvarchar(QStringLiteral("CG68_DESCSEZ"), 40),
                 },
                 {QStringLiteral("CG68_DITTA_CG18"), QStringLiteral("CG68_SEZIONALE")});
}

// A classification table: company, the codes of its parents, its own code, a description.
TableDef classification(const QString& name, const QStringList& parentColumns,
                        const QString& codeColumn)
{
    const QString prefix = prefixOf(name);
    QList<ColumnDef> columns{company(prefix)};
    QStringList key{columns.first().name};
    for (const QString& parent : parentColumns + QStringList{codeColumn}) {
        columns << varchar(parent, 3).notNull();
        key << parent;
    }
    columns << nvarchar(prefix + QStringLiteral("_DESCRIZIONE"), 30);
    return table(name, std::move(columns), std::move(key));
}

QList<TableDef> classifications()
{
    const QString macroarea = QStringLiteral("_MACROAREA_MGL1");
    const QString macrocat = QStringLiteral("_MACROCAT_MGL4");
    return {
        classification(QStringLiteral("MGL1_MACROAREE"), {}, QStringLiteral("MGL1_MACROAREA")),
        classification(QStringLiteral("MGL2_AREE"), {QStringLiteral("MGL2") + macroarea},
                       QStringLiteral("MGL2_AREA")),
        classification(QStringLiteral("MGL3_ZONE"),
                       {QStringLiteral("MGL3") + macroarea, QStringLiteral("MGL3_AREA_MGL2")},
                       QStringLiteral("MGL3_ZONA")),
        classification(QStringLiteral("MGL4_MACROCATEGORIE"), {}, QStringLiteral("MGL4_MACROCAT")),
        classification(QStringLiteral("MGL5_CATEGORIE"), {QStringLiteral("MGL5") + macrocat},
                       QStringLiteral("MGL5_CATEG")),
        classification(QStringLiteral("MGL6_SOTTOCATEGORIE"),
                       {QStringLiteral("MGL6") + macrocat, QStringLiteral("MGL6_CATEG_MGL5")},
                       QStringLiteral("MGL6_SOTTOCAT")),
        classification(QStringLiteral("MGL7_RAGGRUPPAMENTI1"), {}, QStringLiteral("MGL7_RAGGR1")),
        classification(QStringLiteral("MGL8_RAGGRUPPAMENTI2"), {}, QStringLiteral("MGL8_RAGGR2")),
        classification(QStringLiteral("MGL9_RAGGRUPPAMENTI3"), {}, QStringLiteral("MGL9_RAGGR3")),
    };
}

TableDef typologies()
{
    return table(QStringLiteral("MG1P_TIPOLOGIEAGENTI"),
                 {
                     company(QStringLiteral("MG1P")),
                     smallint(QStringLiteral("MG1P_TIPOAGENTE")).notNull(),
                     nvarchar(QStringLiteral("MG1P_DESCRIZIONE"), 40),
                 },
                 {QStringLiteral("MG1P_DITTA_CG18"), QStringLiteral("MG1P_TIPOAGENTE")});
}

TableDef divisionalEntities()
{
    return identityTable(QStringLiteral("CO1C_ENTITADIV"),
                         {
                             identity(QStringLiteral("CO1C_IDENTITADIV")),
                             company(QStringLiteral("CO1C")),
                             smallint(QStringLiteral("CO1C_IDENTITA")).notNull(),
                             integer(QStringLiteral("CO1C_IDAGENTE_MG17")),
                             nvarchar(QStringLiteral("CO1C_DESCRIZIONE"), 60),
                         },
                         {{QStringLiteral("CO1C_DITTA_CG18"), QStringLiteral("CO1C_IDENTITA"),
                           QStringLiteral("CO1C_IDAGENTE_MG17")}});
}

TableDef divisionalAgentDetail()
{
    return identityTable(QStringLiteral("CO1G_DETTAGENTE"),
                         {
                             identity(QStringLiteral("CO1G_ID")),
                             integer(QStringLiteral("CO1G_IDENTITADIV_CO1C")).notNull(),
                             varchar(QStringLiteral("CO1G_DIVISIONE"), 3),
                             decimal(QStringLiteral("CO1G_PERPROV"), 6, 3),
                         },
                         {{QStringLiteral("CO1G_IDENTITADIV_CO1C")}});
}

// Rows of other modules that name an agent; only their company and agent are read here.
TableDef agentDocument(const QString& name)
{
    const QString prefix = prefixOf(name);
    const QString companyColumn = prefix + QStringLiteral("_DITTA_CG18");
    const QString agentColumn = prefix + QStringLiteral("_IDAGENTE_MG17");
    return identityTable(name,
                         {
                             identity(prefix + QStringLiteral("_ID")),
                             company(prefix),
                             integer(agentColumn),
                             integer(prefix + QStringLiteral("_NUMDOC")),
                             datetime(prefix + QStringLiteral("_DATADOC")),
                             decimal(prefix + QStringLiteral("_IMPORTO"), 15, 2),
                         },
                         {{companyColumn, agentColumn}});
}

QString sqlServerType(const ColumnDef& c)
{
    switch (c.type) {
    case SqlType::Integer:
        return QStringLiteral("INT");
    case SqlType::SmallInt:
        return QStringLiteral("SMALLINT");
    case SqlType::Decimal:
        return QStringLiteral("DECIMAL(%1,%2)").arg(c.length).arg(c.scale);
    case SqlType::VarChar:
        return QStringLiteral("VARCHAR(%1)").arg(c.length);
    case SqlType::NVarChar:
        return QStringLiteral("NVARCHAR(%1)").arg(c.length);
    case SqlType::DateTime:
        return QStringLiteral("DATETIME");
    }
    return {};
}

// SQLite: only an identity is an INTEGER (the row id); other integer keys stay INT so that
// the database does not number them itself. Texts compare without regard to case, as on
// the host's SQL Server.
QString sqliteColumn(const ColumnDef& c)
{
    if (c.identity)
        return c.name + QStringLiteral(" INTEGER PRIMARY KEY AUTOINCREMENT");
    QString text = c.name + u' ' + c.declaredType(Dialect::Sqlite);
    if (c.notNull)
        text += QStringLiteral(" NOT NULL");
    if (!c.defaultValue.isEmpty())
        text += QStringLiteral(" DEFAULT ") + c.defaultValue;
    if (c.kind() == ColumnKind::Text)
        text += QStringLiteral(" COLLATE NOCASE");
    return text;
}

QString sqlServerColumn(const ColumnDef& c)
{
    QString text = c.name + u' ' + sqlServerType(c);
    if (c.identity)
        text += QStringLiteral(" IDENTITY(1,1)");
    text += c.notNull ? QStringLiteral(" NOT NULL") : QStringLiteral(" NULL");
    if (!c.defaultValue.isEmpty())
        text += QStringLiteral(" DEFAULT ") + c.defaultValue;
    return text;
}

QString createTable(const TableDef& t, Dialect dialect)
{
    QStringList lines;
    for (const ColumnDef& c : t.columns) {
        lines << (dialect == Dialect::Sqlite ? sqliteColumn(c) : sqlServerColumn(c));
    }
    const QString key = t.primaryKey.join(QStringLiteral(", "));
    if (dialect == Dialect::SqlServer)
        lines << QStringLiteral("CONSTRAINT PK_%1 PRIMARY KEY (%2)").arg(t.name, key);
    else if (t.identityColumn().isEmpty())
        lines << QStringLiteral("PRIMARY KEY (%1)").arg(key);
    return QStringLiteral("CREATE TABLE %1 (\n    %2\n)")
        .arg(t.name, lines.join(QStringLiteral(",\n    ")));
}

} // namespace

ColumnKind ColumnDef::kind() const
{
    switch (type) {
    case SqlType::Integer:
    case SqlType::SmallInt:
        return ColumnKind::Integer;
    case SqlType::Decimal:
        return ColumnKind::Decimal;
    case SqlType::VarChar:
    case SqlType::NVarChar:
        return ColumnKind::Text;
    case SqlType::DateTime:
        return ColumnKind::Date;
    }
    return ColumnKind::Unknown;
}

QString ColumnDef::declaredType(Dialect dialect) const
{
    if (dialect == Dialect::Sqlite && identity)
        return QStringLiteral("INTEGER");
    return sqlServerType(*this);
}

QString IndexDef::createStatement(const QString& table) const
{
    return QStringLiteral("CREATE %1INDEX %2 ON %3 (%4)")
        .arg(unique ? QStringLiteral("UNIQUE ") : QString(), name, table,
             columns.join(QStringLiteral(", ")));
}

const ColumnDef* TableDef::column(QStringView name) const
{
    for (const ColumnDef& c : columns) {
        if (name.compare(c.name, Qt::CaseInsensitive) == 0)
            return &c;
    }
    return nullptr;
}

QString TableDef::identityColumn() const
{
    for (const ColumnDef& c : columns) {
        if (c.identity)
            return c.name;
    }
    return {};
}

Schema::Schema()
{
    m_tables = {
        companies(),
        registry(),
        accounts(),
        destinations(),
        multimedia(),
        agents(),
        partners(),
        maturationDays(),
        vanSales(),
        routeDetail(),
        routes(),
        customersWithSeveralAgents(),
        discountCommissionTables(),
        priorityTables(),
        priceLists(),
        depots(),
        registers(),
    };
    m_tables << classifications();
    m_tables << typologies() << divisionalEntities() << divisionalAgentDetail();
    for (const char* name : {"DO21_DOCTESTAPROV", "DO29_DOCTESAGENTI", "DO32_DOCCORPOPROV",
                             "CT05_CATESTA", "CT06_CACORPO"})
        m_tables << agentDocument(QString::fromLatin1(name));

    for (const TableDef& t : std::as_const(m_tables)) {
        for (const ColumnDef& c : t.columns)
            m_columns.insert(c.name.toUpper(), &c);
    }
}

const Schema& Schema::host()
{
    static const Schema schema;
    return schema;
}

const TableDef* Schema::table(QStringView name) const
{
    for (const TableDef& t : m_tables) {
        if (name.compare(t.name, Qt::CaseInsensitive) == 0)
            return &t;
    }
    return nullptr;
}

const ColumnDef* Schema::column(QStringView name) const
{
    return m_columns.value(name.toString().toUpper(), nullptr);
}

QStringList Schema::statements(Dialect dialect) const
{
    QStringList result;
    for (const TableDef& t : m_tables) {
        result << createTable(t, dialect);
        for (const IndexDef& i : t.indexes)
            result << i.createStatement(t.name);
    }
    return result;
}

QString Schema::script(Dialect dialect) const
{
    const QString engine =
        dialect == Dialect::Sqlite ? QStringLiteral("SQLite") : QStringLiteral("SQL Server");
    QString text =
        QStringLiteral("-- The host tables of Tarvello for %1.\n"
                       "-- Generated from platform/db/schema.cpp: do not edit. To regenerate, run\n"
                       "-- TARVELLO_WRITE_SCHEMA=1 build/tests/test_schema "
                       "--gtest_filter='SchemaScripts.*'\n\n")
            .arg(engine);
    for (const QString& statement : statements(dialect))
        text += statement + QStringLiteral(";\n\n");
    text.chop(1);
    return text;
}

QStringList schemaStatements(Dialect dialect)
{
    return Schema::host().statements(dialect);
}

QString schemaScriptFileName(Dialect dialect)
{
    return dialect == Dialect::Sqlite ? QStringLiteral("sqlite.sql")
                                      : QStringLiteral("sqlserver.sql");
}

} // namespace tarvello::db
