#include "platform/controls/form.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace tarvello::controls {
namespace {

class BusyTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        QObject::connect(&form, &Form::busyChanged, &form,
                         [this](bool busy) { announced << busy; });
    }

    Form form{QStringLiteral("FRM")};
    QList<bool> announced;
};

// Nested work (a click that moves a frame whose handlers are busy too) must not end the busy
// state when the inner part finishes.
TEST_F(BusyTest, NestedScopesAnnounceOnlyTheOutermost)
{
    {
        const Form::BusyScope outer(form);
        EXPECT_TRUE(form.isBusy());
        {
            const Form::BusyScope inner(form);
            EXPECT_TRUE(form.isBusy());
        }
        EXPECT_TRUE(form.isBusy());
    }
    EXPECT_FALSE(form.isBusy());
    EXPECT_EQ(announced, (QList<bool>{true, false}));
}

TEST_F(BusyTest, AnErrorThatLeavesTheWorkEndsTheBusyState)
{
    try {
        const Form::BusyScope scope(form);
        throw std::runtime_error("a step failed");
    } catch (const std::runtime_error&) {
    }
    EXPECT_FALSE(form.isBusy());
    EXPECT_EQ(announced, (QList<bool>{true, false}));
}

} // namespace
} // namespace tarvello::controls
