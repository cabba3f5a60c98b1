#pragma once

#include "platform/db/recordset.h"

#include <QStringList>

namespace tarvello::test {

// An in-memory recordset with the given fields and rows, on its first row.
inline db::RecordsetPtr memoryRows(const QStringList& fields, const QList<db::ValueList>& rows)
{
    db::RecordsetPtr recordset = db::Recordset::create();
    for (const QString& field : fields)
        recordset->appendField(field);
    recordset->openInMemory();
    for (const db::ValueList& row : rows) {
        recordset->addNew();
        for (qsizetype i = 0; i < fields.size(); ++i)
            recordset->setValue(fields.at(i), row.value(i));
        recordset->update();
    }
    if (!rows.isEmpty())
        recordset->moveFirst();
    return recordset;
}

} // namespace tarvello::test
