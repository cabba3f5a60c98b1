#include "platform/db/runtimeerror.h"
#include "platform/services/hostcontext.h"
#include "platform/services/scriptedprompts.h"
#include "platform/services/warehouselink.h"
#include "src/host/hostobjects.h"

#include <gtest/gtest.h>

using namespace tarvello;
using namespace tarvello::services;

TEST(WarehouseLink, OpenedForNoModuleNothingOpens)
{
    ScriptedPrompts prompts;
    HostContext context{prompts, QString(), host::Company{1, QStringLiteral("DITTA"), false}};
    const std::unique_ptr<host::WarehouseConnection> link =
        context.objects().newWarehouseConnection();
    ASSERT_NE(link, nullptr);
    EXPECT_THROW(link->openCustomerList(QStringLiteral("A001")), db::RuntimeError);
    EXPECT_THROW(link->openRoutes(QString()), db::RuntimeError);
    EXPECT_TRUE(prompts.history().isEmpty());
}
