#pragma once

#include "platform/db/runtimeerror.h"

#include <QString>
#include <functional>

namespace tarvello::db {
class Connection;
}

namespace tarvello::host {
class ErrorLog;
}

namespace tarvello::agenti {

// How a screen shows its run-time errors: through its error log (Gcls_Log), with the
// database errors of its connection (Gcon_Connect) behind them and the texts that tell the
// user where the error happened. The log and the connection come and go with the screen.
class ErrorReporter {
public:
    // The answer of a module error that abandons the procedure.
    static constexpr short Abandon = 1;
    // The module name module errors are reported under.
    static QString moduleName() { return QStringLiteral("MDLMG_AGENTI"); }

    void setLog(host::ErrorLog* log) { m_log = log; }
    void setConnection(db::Connection* connection) { m_connection = connection; }
    // The text of the application object shown first in a report.
    void setApplicationText(const QString& text) { m_applicationText = text; }
    // The screen's title at the moment of a report.
    void setScreenTitle(std::function<QString()> title) { m_screenTitle = std::move(title); }

    // Reports the error of the procedure `name` with Abort / Retry / Ignore and returns the
    // answer (3, 4 or 5). Without a log the report itself fails with a run-time error.
    int VisualizzaErrore(const QString& name, const db::RuntimeError& error) const;
    // Reports the error as the module's, at `location`; returns the log's answer (1 abandons).
    short moduleError(const QString& location, const db::RuntimeError& error) const;
    // The log the reports go to; a run-time error (91) while the screen has none.
    host::ErrorLog& log() const;
    bool hasLog() const { return m_log != nullptr; }

private:
    void handOver(const db::RuntimeError& error) const;

    host::ErrorLog* m_log = nullptr;        // Not owned.
    db::Connection* m_connection = nullptr; // Not owned.
    QString m_applicationText;
    std::function<QString()> m_screenTitle;
};

} // namespace tarvello::agenti
