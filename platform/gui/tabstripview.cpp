#include "platform/gui/tabstripview.h"

#include "platform/controls/tabstrip.h"

#include <QSignalBlocker>
#include <QTabBar>
#include <QTabWidget>

namespace tarvello::gui {

TabStripView::TabStripView(controls::TabStrip& strip, QTabWidget& tabs)
    : ControlView(strip, tabs)
    , m_tabs(tabs)
{
    using controls::TabStrip;
    watchKeys(*tabs.tabBar());
    showPages();
    connect(&strip, &TabStrip::pagesChanged, this, &TabStripView::showPages);
    connect(&strip, &TabStrip::currentPageChanged, this, &TabStripView::showCurrent);
    connect(&tabs, &QTabWidget::currentChanged, this, &TabStripView::takeChoice);
}

QWidget* TabStripView::focusTarget() const
{
    return m_tabs.tabBar();
}

void TabStripView::showPages()
{
    const auto* strip = model<controls::TabStrip>();
    if (!strip)
        return;
    const QSignalBlocker blocker(m_tabs);
    // Pages laid out in the designer keep their contents; pages the model has beyond them
    // come empty.
    for (int page = m_tabs.count(); page < strip->pageCount(); ++page)
        m_tabs.addTab(new QWidget(&m_tabs), QString());
    for (int page = 0; page < m_tabs.count(); ++page) {
        const bool shown = page < strip->pageCount();
        m_tabs.setTabVisible(page, shown);
        if (shown)
            m_tabs.setTabText(page, strip->pageCaption(page));
    }
    showCurrent();
}

void TabStripView::showCurrent()
{
    const auto* strip = model<controls::TabStrip>();
    if (!strip || strip->currentPage() < 0)
        return;
    const QSignalBlocker blocker(m_tabs);
    m_tabs.setCurrentIndex(strip->currentPage());
}

void TabStripView::takeChoice(int page)
{
    if (auto* strip = model<controls::TabStrip>())
        strip->selectPage(page);
    showCurrent();
}

} // namespace tarvello::gui
