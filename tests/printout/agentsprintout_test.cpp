#include "pdftext.h"
#include "platform/db/demodata.h"
#include "platform/services/agentsprintout.h"
#include "platform/services/agentsreport.h"
#include "platform/services/hostcontext.h"
#include "platform/services/scriptedprompts.h"
#include "src/host/errorlog.h"
#include "support/testdatabase.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTextDocument>
#include <gtest/gtest.h>

using namespace tarvello;
using services::AgentsPrintoutModule;
using services::PromptAnswer;
using test::pdfText;

namespace {

QByteArray fileBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Pages are objects of type /Page (the tree holding them is /Pages).
qsizetype pdfPageCount(const QByteArray& pdf)
{
    static const QRegularExpression page(QStringLiteral("/Type\\s*/Page(?![a-zA-Z])"));
    return QString::fromLatin1(pdf).count(page);
}

// Company 1 has agents (one a reference and area manager of another, one with a quote in
// its code), company 2 none.
class AgentsPrintout : public ::testing::TestWithParam<test::DatabaseTarget> {
protected:
    void SetUp() override
    {
        db::createSchema(db());
        db().run(QStringLiteral("INSERT INTO CG18_DITTE (CG18_DITTA, CG18_RAGSOC) VALUES (1, ?)"),
                 {QStringLiteral("Rossi Forniture")});
        db().run(QStringLiteral("INSERT INTO CG18_DITTE (CG18_DITTA, CG18_RAGSOC) VALUES (2, ?)"),
                 {QStringLiteral("Ditta vuota")});
        const qint64 capo = addAgent(QStringLiteral("A001"), QStringLiteral("Mario Bianchi"), 2);
        addAgent(QStringLiteral("A002"), QStringLiteral("Luca Verdi"), 0, capo,
                 db::Value(db::Decimal::fromParts(55, 1)));
        addAgent(QStringLiteral("D'ANGELO"), QStringLiteral("Anna D'Angelo"), 1);
        context.setNavigator(nullptr);
        module.setClsGlobal(&context);
    }

    db::Connection& db() { return database.connection(); }

    qint64 addAgent(const QString& code, const QString& name, int kind, qint64 reference = 0,
                    const db::Value& commission = db::Value(0))
    {
        const qint64 registry = ++lastRegistry;
        db().run(
            QStringLiteral("INSERT INTO CG16_ANAGGEN (CG16_CODICE, CG16_RAGSOANAG) VALUES (?, ?)"),
            {registry, name});
        const db::Value referred = reference ? db::Value(reference) : db::Value::null();
        return db()
            .insertRow(QStringLiteral("MG17_AGENTI"),
                       {QStringLiteral("MG17_DITTA_CG18"), QStringLiteral("MG17_AGENTE"),
                        QStringLiteral("MG17_ANAGEN_CG16"), QStringLiteral("MG17_INDTIPOAGE"),
                        QStringLiteral("MG17_IDAGERIF_MG17"),
                        QStringLiteral("MG17_IDCAPOAREA_MG17"), QStringLiteral("MG17_PERPROV")},
                       {1, code, registry, kind, referred, referred, commission},
                       QStringLiteral("MG17_IDAGENTE"))
            .toInt64();
    }

    // Prints with the person choosing this file; returns the file's path.
    QString print(const QString& code, const QString& name = QStringLiteral("agenti.pdf"))
    {
        const QString path = output.filePath(name);
        prompts.queue(PromptAnswer::file(path));
        module.setCodiceAgente(code);
        module.ShowForm();
        return path;
    }

    test::TestDatabase database{GetParam()};
    services::ScriptedPrompts prompts;
    services::HostContext context{
        prompts, database.connectionString(), {1, QStringLiteral("Rossi Forniture")}};
    AgentsPrintoutModule module{prompts};
    QTemporaryDir output;
    qint64 lastRegistry = 100;
};

TEST_P(AgentsPrintout, OneAgentIsPrintedOnOnePageWithWhatItRefersTo)
{
    const QString path = print(QStringLiteral("A002"));
    EXPECT_EQ(module.printedFile(), path);
    const QByteArray pdf = fileBytes(path);
    ASSERT_TRUE(pdf.startsWith("%PDF-")) << pdf.left(16).toStdString();
    EXPECT_EQ(pdfPageCount(pdf), 1);

    const QString text = pdfText(path);
    EXPECT_TRUE(text.contains(QStringLiteral("Stampa agenti")));
    EXPECT_TRUE(text.contains(QStringLiteral("Ditta 1")));
    EXPECT_TRUE(text.contains(QStringLiteral("Agente A002")));
    EXPECT_TRUE(text.contains(QStringLiteral("Luca Verdi")));
    // Its reference agent and area manager, and its commission in the Italian form.
    EXPECT_EQ(text.count(QStringLiteral("A001")), 2) << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("5,50")));
    EXPECT_TRUE(text.contains(QStringLiteral("Pagina 1 di 1")));
    EXPECT_FALSE(text.contains(QStringLiteral("Mario Bianchi")));
    EXPECT_FALSE(text.contains(QStringLiteral("ANGELO")));

    // The file was asked for as a PDF, suggested in the temporary folder under the agent.
    ASSERT_EQ(prompts.history().size(), 1);
    EXPECT_EQ(prompts.history().first().kind, services::PromptKind::FileChoice);
    EXPECT_EQ(prompts.history().first().answer(), QStringLiteral("file \"%1\"").arg(path));
}

TEST_P(AgentsPrintout, AllAgentsOfTheCompanyTakeAsManyPagesAsTheyNeed)
{
    for (int n = 1; n <= 60; ++n)
        addAgent(QStringLiteral("Z%1").arg(n, 3, 10, QLatin1Char('0')),
                 QStringLiteral("Agente di prova %1").arg(n), 0);
    const QString path = print({});
    const QByteArray pdf = fileBytes(path);
    ASSERT_TRUE(pdf.startsWith("%PDF-"));
    const qsizetype pages = pdfPageCount(pdf);
    EXPECT_GE(pages, 2);

    const QString text = pdfText(path);
    EXPECT_TRUE(text.contains(QStringLiteral("Tutti gli agenti")));
    for (const char* code : {"A001", "A002", "D'ANGELO", "Z001", "Z060"})
        EXPECT_TRUE(text.contains(QString::fromLatin1(code))) << code;
    EXPECT_TRUE(text.contains(QStringLiteral("Agenti stampati: 63")));
    EXPECT_TRUE(text.contains(QStringLiteral("Pagina %1 di %1").arg(pages)));
    // Code order: A001 before D'ANGELO before Z001.
    EXPECT_LT(text.indexOf(QStringLiteral("Mario Bianchi")), text.indexOf(QStringLiteral("Anna")));
    EXPECT_LT(text.indexOf(QStringLiteral("Anna")), text.indexOf(QStringLiteral("Z001")));
}

TEST_P(AgentsPrintout, NothingToPrintOrNowhereToPrintItIsToldAndNoFileIsLeft)
{
    context.setCompany({2, QStringLiteral("Ditta vuota")});
    module.ShowForm();
    module.setCodiceAgente(QStringLiteral("A001"));
    module.ShowForm();
    context.setCompany({1, QStringLiteral("Rossi Forniture")});
    // A code with a quote is looked for as it is.
    module.setCodiceAgente(QStringLiteral("D'ANGEL"));
    module.ShowForm();

    ASSERT_EQ(prompts.history().size(), 3);
    const QStringList expected{QStringLiteral("La ditta 2 non ha agenti da stampare."),
                               QStringLiteral("L'agente A001 non esiste nella ditta 2."),
                               QStringLiteral("L'agente D'ANGEL non esiste nella ditta 1.")};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(prompts.history().at(i).kind, services::PromptKind::MessageBox);
        EXPECT_EQ(prompts.history().at(i).text, expected.at(i));
        EXPECT_EQ(prompts.history().at(i).style, host::Information);
        EXPECT_EQ(prompts.history().at(i).title, QStringLiteral("Stampa agenti"));
    }
    EXPECT_TRUE(module.printedFile().isEmpty());

    // A file that cannot be written is told.
    prompts.queue(PromptAnswer::file(output.filePath(QStringLiteral("manca/agenti.pdf"))));
    module.setCodiceAgente(QStringLiteral("A001"));
    module.ShowForm();
    ASSERT_EQ(prompts.history().size(), 5);
    const services::PromptRecord& message = prompts.history().at(4);
    EXPECT_EQ(message.kind, services::PromptKind::MessageBox);
    EXPECT_TRUE(message.text.contains(QStringLiteral("non si può scrivere")))
        << message.text.toStdString();
    EXPECT_EQ(message.style, host::Critical);
    EXPECT_TRUE(module.printedFile().isEmpty());

    // Left without choosing a file, nothing is printed.
    module.ShowForm();
    ASSERT_EQ(prompts.history().size(), 6);
    EXPECT_TRUE(prompts.history().last().defaulted);
    EXPECT_TRUE(module.printedFile().isEmpty());
    EXPECT_TRUE(QDir(output.path()).isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Targets, AgentsPrintout, ::testing::ValuesIn(test::databaseTargets()),
                         [](const auto& info) { return test::targetName(info.param); });

TEST(AgentsReportDocument, ShowsKindsAndLeavesMissingValuesBlank)
{
    services::AgentLine line;
    line.code = QStringLiteral("B&1");
    line.registryName = QStringLiteral("<Nome>");
    line.kind = services::agentKindName(1);
    line.commission = db::Value::null();
    services::AgentsReport report({3, QStringLiteral("Tre"), QStringLiteral("Tutti gli agenti"),
                                   QDateTime(QDate(2026, 1, 2), QTime(9, 30))},
                                  {line});
    const QString text = report.document().toPlainText();
    EXPECT_TRUE(text.contains(QStringLiteral("B&1")));
    EXPECT_TRUE(text.contains(QStringLiteral("<Nome>")));
    EXPECT_TRUE(text.contains(QStringLiteral("Capo zona")));
    EXPECT_TRUE(text.contains(QStringLiteral("02/01/2026 09:30")));
    EXPECT_EQ(services::agentKindName(db::Value::null()), QString());
    EXPECT_EQ(services::agentKindName(0), QStringLiteral("Agente"));
    EXPECT_EQ(services::agentKindName(2), QStringLiteral("Capo area"));
}

} // namespace
