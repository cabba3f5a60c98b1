#include "platform/gui/printpreviewdialog.h"

#include "platform/db/runtimeerror.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPageLayout>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace tarvello::gui {

PrintPreviewDialog::PrintPreviewDialog(const QString& title, const QPageLayout& page, Painter paint,
                                       QWidget* parent)
    : QDialog(parent)
    , m_printer(QPrinter::ScreenResolution)
    , m_paint(std::move(paint))
    , m_pages(nullptr)
{
    setWindowTitle(tr("%1 - Anteprima di stampa").arg(title));
    m_printer.setPageLayout(page);
    m_pages = new QPrintPreviewWidget(&m_printer, this);
    m_pages->setViewMode(QPrintPreviewWidget::SinglePageView);
    m_pages->fitToWidth();
    connect(m_pages, &QPrintPreviewWidget::paintRequested, this, &PrintPreviewDialog::paintPages);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Close, this);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("&Stampa..."));
    buttons->button(QDialogButtonBox::Close)->setText(tr("&Chiudi"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* pages = new QLabel(this);
    connect(m_pages, &QPrintPreviewWidget::previewChanged, pages,
            [this, pages] { pages->setText(tr("Pagine: %1").arg(pageCount())); });
    new QShortcut(QKeySequence::ZoomIn, this, [this] { m_pages->zoomIn(); });
    new QShortcut(QKeySequence::ZoomOut, this, [this] { m_pages->zoomOut(); });

    auto* footer = new QHBoxLayout;
    footer->addWidget(pages);
    footer->addStretch();
    footer->addWidget(buttons);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_pages, 1);
    layout->addLayout(footer);
    resize(900, 680);
    m_pages->updatePreview();
}

int PrintPreviewDialog::pageCount() const
{
    return m_pages->pageCount();
}

void PrintPreviewDialog::paintPages(QPrinter* printer)
{
    // A printout that cannot be laid out shows no pages; printing it then says why.
    try {
        m_paint(*printer);
    } catch (const db::RuntimeError&) {
    }
}

} // namespace tarvello::gui
