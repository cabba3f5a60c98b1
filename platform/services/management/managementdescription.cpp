#include "platform/services/management/managementdescription.h"

#include "platform/db/schema.h"

namespace tarvello::services {

namespace {

const db::ColumnDef* declared(const QString& name)
{
    return db::Schema::host().column(name);
}

} // namespace

db::ColumnKind ManagedColumn::kind() const
{
    const db::ColumnDef* def = declared(name);
    return def ? def->kind() : db::ColumnKind::Text;
}

bool ManagedColumn::isNumber() const
{
    const db::ColumnKind k = kind();
    return k == db::ColumnKind::Integer || k == db::ColumnKind::Decimal;
}

int ManagedColumn::length() const
{
    if (size > 0)
        return size;
    const db::ColumnDef* def = declared(name);
    if (!def)
        return 0;
    switch (def->type) {
    case db::SqlType::SmallInt:
        return 4;
    case db::SqlType::Integer:
        return 9;
    case db::SqlType::Decimal:
        // The digits, the separator, a sign.
        return def->length + 2;
    default:
        return def->length;
    }
}

QString ManagedColumn::displayFormat() const
{
    const db::ColumnDef* def = declared(name);
    if (!def || def->type != db::SqlType::Decimal || def->scale == 0)
        return {};
    return QStringLiteral("#,0.") + QString(def->scale, u'0');
}

const ManagedColumn* ManagementDescription::column(QStringView name) const
{
    for (const ManagedColumn& c : columns) {
        if (c.name == name)
            return &c;
    }
    return nullptr;
}

} // namespace tarvello::services
