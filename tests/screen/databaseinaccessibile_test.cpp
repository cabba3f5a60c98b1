#include "platform/controls/field.h"
#include "schermatafixture.h"
#include "src/host/errorlog.h"

#include <QFile>

namespace tarvello::test {

namespace {

using agenti::FRMMG_AGENTI;

// The database the screen works on can be locked by another user, read-only, damaged or gone.
// Each is told in plain words at the action that meets it, the screen keeps what was typed,
// and it works again once the cause is gone.
class DatabaseInaccessibile : public SchermataTest {
protected:
    void SetUp() override
    {
        SchermataTest::SetUp();
        agente = inserisciAgente(QStringLiteral("A001"));
        db().run(QStringLiteral("INSERT INTO MG18_AGENTISOCI (MG18_DITTA_CG18, "
                                "MG18_IDAGENTE_MG17, MG18_CODSOCIO, MG18_NOMECOGN, MG18_PERQUOTA) "
                                "VALUES (?, ?, 1, 'SOCIO', 100)"),
                 {dittaDivisionale, agente});
    }

    controls::Field& percentuale() const { return controllo<controls::Field>(u"TXT_PERPROV"); }
    QString ultimoMessaggio() const
    {
        return prompts.history().isEmpty() ? QString() : prompts.history().last().text;
    }
    qint64 righe(const QString& sql) { return db().query(sql).rows.size(); }
    qint64 agenteESoci()
    {
        return righe(QStringLiteral("SELECT * FROM MG17_AGENTI WHERE MG17_AGENTE = 'A001'")) +
               righe(QStringLiteral("SELECT * FROM MG18_AGENTISOCI"));
    }

    // The commission percent changed to 12 and saved: refused with a message saying why, and
    // the 12 typed stays.
    void salvataggioRifiutato(const QString& perche)
    {
        ASSERT_TRUE(percentuale().typeText(QStringLiteral("12")));
        rispondi(host::Ok);
        EXPECT_FALSE(gestione(FRMMG_AGENTI::Agenti).save());
        EXPECT_TRUE(ultimoMessaggio().contains(perche)) << ultimoMessaggio().toStdString();
        EXPECT_EQ(percentuale().text(), QStringLiteral("12"));
    }

    qint64 agente = 0;
};

TEST_F(DatabaseInaccessibile, ALockRefusesTheDeleteAndTheSaveUntilItIsReleased)
{
    host->setConnectionString(m_database->connectionStringWaiting(100));
    apri();
    db::Connection altroUtente;
    altroUtente.open(m_database->connectionString());
    altroUtente.beginTrans();
    altroUtente.executeNonQuery(QStringLiteral("UPDATE CG18_DITTE SET CG18_RAGSOC = 'X'"));

    rispondi(host::Yes);
    rispondi(host::Ok);
    EXPECT_FALSE(gestione(FRMMG_AGENTI::Agenti).deleteRecord());
    EXPECT_TRUE(ultimoMessaggio().contains(QStringLiteral("bloccato da un altro utente")))
        << ultimoMessaggio().toStdString();
    EXPECT_EQ(agenteESoci(), 2);

    salvataggioRifiutato(QStringLiteral("bloccato da un altro utente"));

    altroUtente.rollbackTrans();
    EXPECT_TRUE(gestione(FRMMG_AGENTI::Agenti).save());
    EXPECT_EQ(db().query(QStringLiteral("SELECT MG17_PERPROV FROM MG17_AGENTI"))
                  .rows.value(0)
                  .value(0)
                  .toString(),
              QStringLiteral("12"));
}

TEST_F(DatabaseInaccessibile, AReadOnlyDatabaseIsBrowsedButRefusesASave)
{
    host->setConnectionString(QStringLiteral("file:%1?mode=ro").arg(m_database->path()));
    apri();
    ASSERT_TRUE(schermata().isLoaded());
    salvataggioRifiutato(QStringLiteral("sola lettura"));
    EXPECT_EQ(righe(QStringLiteral("SELECT * FROM MG17_AGENTI WHERE MG17_PERPROV = 12")), 0);
}

// The file deleted while the screen is open: SQLite keeps reading it, but a write would be
// lost with it.
TEST_F(DatabaseInaccessibile, AVanishedDatabaseRefusesASaveAndTheTypedValueStays)
{
    apri();
    for (const char* suffix : {"", "-wal", "-shm"})
        QFile::remove(m_database->path() + QLatin1String(suffix));
    salvataggioRifiutato(QStringLiteral("spostato o eliminato"));
    EXPECT_TRUE(schermata().isLoaded());
}

TEST_F(DatabaseInaccessibile, ATruncatedFileStopsTheOpeningWithAMessageAndACopyOpensAgain)
{
    db().run(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
    const QString copia = m_database->path() + QStringLiteral(".copia");
    ASSERT_TRUE(QFile::copy(m_database->path(), copia));
    {
        QFile file(m_database->path());
        ASSERT_TRUE(file.resize(file.size() / 2));
    }
    rispondi(host::Ok);
    apri();
    EXPECT_FALSE(schermata().isLoaded());
    EXPECT_TRUE(ultimoMessaggio().contains(QStringLiteral("danneggiato")))
        << ultimoMessaggio().toStdString();

    ASSERT_TRUE(QFile::remove(m_database->path()));
    ASSERT_TRUE(QFile::copy(copia, m_database->path()));
    db().open(m_database->connectionString());
    apri();
    EXPECT_TRUE(schermata().isLoaded());
    EXPECT_EQ(controllo<controls::Field>(u"TXT_AGENTE").text(), QStringLiteral("A001"));
}

} // namespace

} // namespace tarvello::test
