#include "platform/services/agentsreport.h"

#include "platform/db/runtimeerror.h"

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QGuiApplication>
#include <QLocale>
#include <QPainter>
#include <QPrinter>
#include <QTextDocument>

namespace tarvello::services {

namespace {

// The error numbers a file that cannot be written, and a printout without fonts, raise.
constexpr long PathFileAccessError = 75;
constexpr long CannotPrint = 482;

const QLocale Italian(QLocale::Italian, QLocale::Italy);

QString cell(const QString& text)
{
    return QStringLiteral("<td>") + text.toHtmlEscaped() + QStringLiteral("</td>");
}

QString commissionText(const db::Value& commission)
{
    if (commission.isNull() || commission.isEmpty())
        return {};
    return Italian.toString(commission.toDouble(), 'f', 2);
}

QString html(const AgentsReport::Heading& heading, const QList<AgentLine>& agents)
{
    static const char* const headings[] = {
        "Codice",    "Ragione sociale", "Tipo",      "Tipologia", "Agente rif.",
        "Capo area", "Capo zona",       "Fornitore", "% Provv.",
    };
    QString text =
        QStringLiteral("<html><body>"
                       "<h2>Stampa agenti</h2>"
                       "<p><b>Ditta %1</b> %2<br/>%3 &mdash; stampata il %4</p>"
                       "<table width=\"100%\" border=\"1\" cellspacing=\"0\" cellpadding=\"3\">"
                       "<thead><tr>")
            .arg(heading.company)
            .arg(heading.companyName.toHtmlEscaped(), heading.selection.toHtmlEscaped(),
                 Italian.toString(heading.printedAt, QStringLiteral("dd/MM/yyyy HH:mm")));
    for (const char* title : headings)
        text += QStringLiteral("<th bgcolor=\"#dde4ee\" align=\"left\">%1</th>")
                    .arg(QString::fromUtf8(title));
    text += QStringLiteral("</tr></thead>");
    for (const AgentLine& agent : agents) {
        text += QStringLiteral("<tr>") + cell(agent.code) + cell(agent.registryName) +
                cell(agent.kind) + cell(agent.typology) + cell(agent.referenceAgent) +
                cell(agent.areaManager) + cell(agent.zoneManager) + cell(agent.supplier) +
                QStringLiteral("<td align=\"right\">") + commissionText(agent.commission) +
                QStringLiteral("</td></tr>");
    }
    text += QStringLiteral("</table><p>Agenti stampati: %1</p></body></html>").arg(agents.size());
    return text;
}

} // namespace

AgentsReport::AgentsReport(Heading heading, QList<AgentLine> agents)
    : m_heading(std::move(heading))
    , m_agents(std::move(agents))
    , m_document(std::make_unique<QTextDocument>())
{
    m_document->setHtml(html(m_heading, m_agents));
}

AgentsReport::~AgentsReport() = default;

QPageLayout AgentsReport::pageLayout()
{
    return QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF(12, 12, 12, 12),
                       QPageLayout::Millimeter);
}

int AgentsReport::printPdf(const QString& path) const
{
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        throw db::RuntimeError(CannotPrint,
                               QStringLiteral("La stampa richiede un'applicazione grafica"));
    {
        // QPrinter says nothing when it cannot write its file: find out first.
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            throw db::RuntimeError(
                PathFileAccessError,
                QStringLiteral("Il file %1 non si può scrivere: %2").arg(path, file.errorString()));
    }

    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    printer.setPageLayout(pageLayout());
    printer.setDocName(QStringLiteral("Stampa agenti"));
    printer.setCreator(QStringLiteral("Tarvello"));
    return print(printer);
}

int AgentsReport::print(QPrinter& printer) const
{
    QPainter painter;
    if (!painter.begin(&printer))
        throw db::RuntimeError(PathFileAccessError,
                               QStringLiteral("La stampa su %1 non si può fare")
                                   .arg(printer.outputFileName().isEmpty()
                                            ? printer.printerName()
                                            : printer.outputFileName()));

    // Laid out on the printer, so that its points are the page's points.
    const std::unique_ptr<QTextDocument> pages(m_document->clone());
    pages->documentLayout()->setPaintDevice(&printer);
    QFont font = pages->defaultFont();
    font.setPointSizeF(9);
    pages->setDefaultFont(font);
    const QRectF area = printer.pageRect(QPrinter::DevicePixel);
    const qreal footer = QFontMetricsF(font, &printer).height() * 2;
    const QSizeF body(area.width(), area.height() - footer);
    pages->setPageSize(body);

    const int count = pages->pageCount();
    for (int page = 0; page < count; ++page) {
        if (page > 0)
            printer.newPage();
        painter.save();
        painter.translate(0, -page * body.height());
        pages->drawContents(&painter, QRectF(QPointF(0, page * body.height()), body));
        painter.restore();
        painter.setFont(font);
        painter.drawText(QRectF(0, body.height(), body.width(), footer),
                         Qt::AlignRight | Qt::AlignBottom,
                         QStringLiteral("Pagina %1 di %2").arg(page + 1).arg(count));
    }
    painter.end();
    return count;
}

} // namespace tarvello::services
