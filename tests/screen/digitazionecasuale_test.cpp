#include "platform/controls/field.h"
#include "platform/controls/gridnavigator.h"
#include "platform/controls/handlererrors.h"
#include "platform/controls/tabstrip.h"
#include "platform/db/runtimeerror.h"
#include "schermatafixture.h"

#include <QRandomGenerator>
#include <cstdio>

namespace tarvello::test {
namespace {

using controls::Field;

// What the host caught of the screen's handlers: each one is a run-time error that would
// have ended the program.
struct ErroriSfuggiti final : controls::HandlerErrors {
    QStringList procedure;
    bool handlerFailed(const QString& procedura, const db::RuntimeError& errore) override
    {
        procedure << QStringLiteral("%1: %2").arg(procedura, errore.description());
        return true;
    }
};

// A text a careless person might type: mostly a number, with or without sign and decimals
// and of any length, otherwise anything: signs, separators, blanks, letters, quotes.
QString testoCasuale(QRandomGenerator& caso)
{
    static const QString segni = QStringLiteral("0123456789-+,.  AzQ'%*");
    QString testo;
    if (caso.bounded(10) < 6) {
        if (caso.bounded(4) == 0)
            testo += u'-';
        for (int i = int(caso.bounded(1, 14)); i > 0; --i)
            testo += QChar(u'0' + int(caso.bounded(10)));
        if (caso.bounded(2) == 0) {
            testo += u',';
            for (int i = int(caso.bounded(0, 6)); i > 0; --i)
                testo += QChar(u'0' + int(caso.bounded(10)));
        }
        return testo;
    }
    for (int i = int(caso.bounded(0, 9)); i > 0; --i)
        testo += segni.at(int(caso.bounded(segni.size())));
    return testo;
}

// Why a stored value goes beyond what its column holds; empty when it fits.
QString oltreLaColonna(const db::Value& valore, const db::TableInfo::ColumnInfo& colonna)
{
    if (valore.isNull())
        return {};
    const db::ColumnSize& misura = colonna.size;
    if (colonna.kind == db::ColumnKind::Text && misura.length > 0 &&
        valore.toString().size() > misura.length)
        return QStringLiteral("more than %1 characters").arg(misura.length);
    if (colonna.kind == db::ColumnKind::Integer && misura.integerBytes > 0 &&
        misura.integerBytes < 8) {
        const qint64 numero = valore.toInt64();
        const qint64 limite =
            misura.integerBytes == 1 ? 255 : (qint64(1) << (8 * misura.integerBytes - 1)) - 1;
        if (numero > limite || numero < (misura.integerBytes == 1 ? 0 : -limite - 1))
            return QStringLiteral("beyond %1 bytes").arg(misura.integerBytes);
    }
    if (colonna.kind == db::ColumnKind::Decimal && misura.precision > 0) {
        const db::Decimal numero = valore.toDecimal().normalized();
        const qint64 intera = numero.toInt64();
        const int cifre = intera == 0 ? 0 : int(QString::number(qAbs(intera)).size());
        if (numero.scale() > misura.scale || cifre > misura.precision - misura.scale)
            return QStringLiteral("beyond DECIMAL(%1,%2)").arg(misura.precision).arg(misura.scale);
    }
    return {};
}

// Every numeric and code field of every page takes random texts, each followed by leaving
// the field and saving. Today's faults were a lone sign or separator and a letter in a number
// (a run-time error that closed the program) and values saved beyond their column's size.
TEST_F(SchermataTest, TestiCasualiNeiCampiNumericiEDiCodiceNonFannoDanni)
{
    inserisciAgente(QStringLiteral("A001"));
    inserisciAgente(QStringLiteral("A002"));
    db().run(QStringLiteral("INSERT INTO CG44_CLIFOR (CG44_DITTA_CG18, CG44_TIPOCF, CG44_CLIFOR, "
                            "CG44_CODICE_CG16) VALUES (1, 0, 10, 101)"));
    db().run(QStringLiteral("INSERT INTO MG1H_GIRI (MG1H_DITTA_CG18, MG1H_GIRO, "
                            "MG1H_DESCRIZIONE) VALUES (1, 'G01', 'Giro del lunedì')"));
    apri();
    ErroriSfuggiti sfuggiti;
    schermata().setHandlerErrors(&sfuggiti);

    QList<Field*> campi;
    for (controls::Control* controllo : schermata().controls()) {
        auto* campo = qobject_cast<Field*>(controllo);
        if (campo && (campo->kind() == Field::Kind::Numeric || campo->kind() == Field::Kind::Code))
            campi << campo;
    }
    auto& pagine = controllo<controls::TabStrip>(u"TAB_AGENTI");
    const QList<controls::GridNavigator*> navigatori = {
        &controllo<controls::GridNavigator>(u"GRIDNAV_AGENTISOCI"),
        &controllo<controls::GridNavigator>(u"GRIDNAV_AGENTIMAT"),
        &controllo<controls::GridNavigator>(u"GRIDNAV_GIRI")};

    // Before saving, the person fills what may not stay empty: a partner's name, say.
    const auto completaObbligatori = [&] {
        for (controls::Control* controllo : schermata().controls()) {
            auto* campo = qobject_cast<Field*>(controllo);
            if (campo && campo->isRequired() && campo->isBlank() && campo->setFocus()) {
                campo->typeText(campo->kind() == Field::Kind::Text ? QStringLiteral("ROSSI")
                                                                   : QStringLiteral("1"));
                schermata().focus().leave();
            }
        }
    };
    QRandomGenerator caso(20240611);
    int digitati = 0;
    for (int giro = 0; giro < 100; ++giro) {
        pagine.selectPage(giro % pagine.pageCount());
        navigatori.at(giro % navigatori.size())->press(QStringLiteral("Nuovo"));
        for (Field* campo : std::as_const(campi)) {
            if (!campo->canReceiveFocus())
                continue;
            // A field that would not let go of its text is emptied, as the person would.
            if (!campo->setFocus()) {
                if (auto* fermo = qobject_cast<Field*>(schermata().activeControl()))
                    fermo->typeText(QString());
                if (!campo->setFocus())
                    continue;
            }
            campo->typeText(testoCasuale(caso));
            ++digitati;
            // Refused or found not valid, the text is put right as the person would: a
            // customer that exists, 1 where the field may not be empty, else nothing.
            const bool lasciato = schermata().focus().leave() || !campo->hasFocus();
            if (!lasciato || !campo->isValid()) {
                campo->setFocus();
                campo->typeText(campo->name() == u"TXT_CLIENTE" ? QStringLiteral("10")
                                : campo->isRequired()           ? QStringLiteral("1")
                                                                : QString());
                schermata().focus().leave();
            }
            completaObbligatori();
            toolbar->press(services::HostNavigator::Save);
        }
    }
    qsizetype scritture = 0;
    for (const db::StatementLog::Entry& voce : schermata().Gcon_Connect()->log().entries()) {
        if (voce.text.startsWith(u"UPDATE") || voce.text.startsWith(u"INSERT"))
            ++scritture;
    }
    std::printf("[ fuzz     ] %d texts typed into %lld fields, %lld rows written\n", digitati,
                static_cast<long long>(campi.size()), static_cast<long long>(scritture));
    RecordProperty("texts_typed", digitati);

    EXPECT_GE(digitati, 2000);
    EXPECT_GE(scritture, 200) << "the values typed reached the database";
    EXPECT_TRUE(sfuggiti.procedure.isEmpty()) << sfuggiti.procedure.join(u'\n').toStdString();
    for (const services::PromptRecord& mostrato : prompts.history())
        EXPECT_NE(mostrato.kind, services::PromptKind::Report) << mostrato.text.toStdString();
    for (const char* tabella : {"MG17_AGENTI", "MG18_AGENTISOCI", "MG16_AGENTIMAT", "MG34_AGENTITV",
                                "MG1I_DETTAGLIOGIRI"}) {
        const QString nome = QString::fromLatin1(tabella);
        const db::TableInfo& descrizione = db().tableInfo(nome);
        const db::ResultSet righe = db().query(QStringLiteral("SELECT * FROM ") + nome);
        for (const db::ValueList& riga : righe.rows) {
            for (int i = 0; i < righe.columns.size(); ++i) {
                const auto* colonna = descrizione.column(righe.columns.at(i).name);
                ASSERT_NE(colonna, nullptr);
                EXPECT_EQ(oltreLaColonna(riga.at(i), *colonna).toStdString(), "")
                    << colonna->name.toStdString() << " = " << riga.at(i).toString().toStdString();
            }
        }
    }
}

} // namespace
} // namespace tarvello::test
