#pragma once

#include "platform/db/value.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace tarvello::controls {

class DataControl;

// The arguments of the control events that a handler answers through a reference. Such
// signals must be connected with a direct connection (the default for objects on the same
// thread): the control reads the answer as soon as emit returns.

// Validate, close requests, tab and button changes: set cancel to refuse.
struct CancelArgs {
    bool cancel = false;
};

// Key down: the handler may change keyCode; 0 swallows the key. shift holds KeyModifier bits.
struct KeyArgs {
    int keyCode = 0;
    int shift = 0;
};

// Where one column of a decoding statement goes: by column name, or by the target's
// position among the targets when the name is empty.
struct DecodeTarget {
    DataControl* control = nullptr; // Not owned.
    QString column;
};

// A code field asks how to decode its text: the handler answers the statement, the
// controls receiving the columns of its first row, and the connection string to run it on;
// or sets cancel, and nothing is decoded.
struct DecodeArgs {
    bool cancel = false;
    QString sql;
    QList<DecodeTarget> targets;
    QString connectionString;
};

// A field asks what list to open: statement, column headings, title, connection string.
// narrowedTo is the host's: when not empty, only the rows holding that text are offered.
struct LookupArgs {
    bool cancel = false;
    QString sql;
    QStringList columns;
    QString title;
    QString connectionString;
    QString narrowedTo;
};

enum class CloseMode { User = 0, Code = 1, Host = 2 };

struct CloseArgs {
    bool cancel = false;
    CloseMode mode = CloseMode::User;
};

struct TabChangeArgs {
    int from = -1;
    int to = -1;
    bool cancel = false;
};

struct NavigatorButtonArgs {
    QString key;
    bool cancel = false;
};

// The text a grid cell is about to show; the handler may replace it.
struct CellTextArgs {
    int row = -1;
    QString field;
    db::Value value;
    QString text;
};

} // namespace tarvello::controls
