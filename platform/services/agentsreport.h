#pragma once

#include "platform/services/agentlisting.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <memory>

class QPageLayout;
class QPrinter;
class QTextDocument;

namespace tarvello::services {

// The agents' printout: a landscape A4 table of agents under a heading naming the company
// and what was printed, with the page number at the foot of every page.
class AgentsReport {
public:
    struct Heading {
        qint32 company = 0;
        QString companyName;
        // "Tutti gli agenti" or the agent printed.
        QString selection;
        QDateTime printedAt;
    };

    AgentsReport(Heading heading, QList<AgentLine> agents);
    ~AgentsReport();
    AgentsReport(const AgentsReport&) = delete;
    AgentsReport& operator=(const AgentsReport&) = delete;

    // The printout as a document (its text is what the pages show).
    const QTextDocument& document() const { return *m_document; }

    // Landscape A4 with 12 mm margins.
    static QPageLayout pageLayout();
    // Prints the pages on a printer already set up with pageLayout() (a PDF file, a preview);
    // returns the number of pages. Raises db::RuntimeError when the printer cannot print.
    int print(QPrinter& printer) const;
    // Writes the printout as a PDF file; returns the number of pages written. Raises
    // db::RuntimeError when the file cannot be written, or when there is no graphical
    // application to lay text out with.
    int printPdf(const QString& path) const;

private:
    Heading m_heading;
    QList<AgentLine> m_agents;
    std::unique_ptr<QTextDocument> m_document;
};

} // namespace tarvello::services
