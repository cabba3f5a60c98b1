#pragma once

#include <QProcess>
#include <QString>
#include <gtest/gtest.h>

namespace tarvello::test {

// The text of a PDF file as a reader extracts it, laid out as on the page.
inline QString pdfText(const QString& path)
{
    QProcess reader;
    reader.start(QStringLiteral("pdftotext"),
                 {QStringLiteral("-layout"), path, QStringLiteral("-")});
    if (!reader.waitForFinished(30000) || reader.exitCode() != 0) {
        ADD_FAILURE() << "pdftotext could not read " << path.toStdString() << ": "
                      << reader.errorString().toStdString();
        return {};
    }
    return QString::fromUtf8(reader.readAllStandardOutput());
}

} // namespace tarvello::test
