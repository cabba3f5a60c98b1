#pragma once

#include <QList>
#include <QStringList>

namespace tarvello::host {

// The host's document-print-mode helper: the ways a document of a customer or an agent may
// be printed or sent. Its table has one row per mode, column 0 the caption and column 1 the
// code (a text); the row at the table's upper bound closes it and holds no mode.
class DocumentPrintModes {
public:
    virtual ~DocumentPrintModes() = default;
    virtual QList<QStringList> table() const = 0;
};

} // namespace tarvello::host
