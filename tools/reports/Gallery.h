#pragma once

#include "reporting/Catalogue.h"

#include <QDate>
#include <QDir>

/// Every report of the catalogue on a sample company, as a user would ask for it, for looking at.
/// Works on the session's connections; needs a QGuiApplication.
namespace gallery {

/// What each report is asked for on that day, in the catalogue's order.
[[nodiscard]] QList<catalogue::Request> requests(QDate today);

/// Lengthens names, raises amounts and empties columns, so that layouts show whether the widest
/// real content fits. Data.
void widen();

struct Rendered
{
    QString layout;
    int pages = 0;
    qint64 rows = 0;
    QStringList problems{}; ///< what the engine remarks
};

/// Writes a report as PDF, its first page as a picture, and its spreadsheet. Raises base::Error.
[[nodiscard]] Rendered render(const catalogue::Request &asked, const QDir &folder);
/// Writes a page that shows the pictures of all. Raises base::Error.
void writeIndex(const QList<Rendered> &all, const QDir &folder);

} // namespace gallery
