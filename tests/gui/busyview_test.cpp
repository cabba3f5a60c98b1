#include "platform/controls/form.h"
#include "platform/gui/formbinder.h"

#include <QApplication>
#include <QWidget>
#include <gtest/gtest.h>
#include <stdexcept>

namespace tarvello::gui {
namespace {

// While a form works the person sees the busy pointer and a window that does not redraw
// half-done states; both come back however the work ends.
TEST(BusyViewTest, TheWindowHoldsItsDrawingAndShowsTheBusyPointerWhileTheFormWorks)
{
    controls::Form form{QStringLiteral("FRM_PROVA")};
    QWidget window;
    form.load();
    FormBinder::bind(form, window);
    ASSERT_EQ(QApplication::overrideCursor(), nullptr);

    try {
        const controls::Form::BusyScope busy(form);
        EXPECT_FALSE(window.updatesEnabled());
        ASSERT_NE(QApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::BusyCursor);
        throw std::runtime_error("a step failed");
    } catch (const std::runtime_error&) {
    }
    EXPECT_TRUE(window.updatesEnabled());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

} // namespace
} // namespace tarvello::gui
