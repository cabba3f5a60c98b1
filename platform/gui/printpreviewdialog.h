#pragma once

#include <QDialog>
#include <QPrinter>
#include <functional>

class QPageLayout;
class QPrintPreviewWidget;

namespace tarvello::gui {

// A printout's pages as they will be printed, before printing: the whole width of a page in
// view, the pages one under the other, zoom with Ctrl++ and Ctrl+-. "Stampa" goes on to the
// printing, "Chiudi" (or Esc) gives it up.
class PrintPreviewDialog final : public QDialog {
    Q_OBJECT
public:
    using Painter = std::function<void(QPrinter&)>;

    PrintPreviewDialog(const QString& title, const QPageLayout& page, Painter paint,
                       QWidget* parent = nullptr);

    int pageCount() const;

private:
    void paintPages(QPrinter* printer);

    QPrinter m_printer;
    Painter m_paint;
    QPrintPreviewWidget* m_pages; // Owned (child widget).
};

} // namespace tarvello::gui
