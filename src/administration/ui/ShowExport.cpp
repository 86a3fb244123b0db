#include "administration/ExportTables.h"
#include "administration/ui/Entries.h"
#include "administration/ui/Plainly.h"
#include "administration/ui/Watch.h"
#include "core/Session.h"
#include "platform/base/Environment.h"
#include "platform/base/Prompts.h"

#include <QApplication>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

QString usualExportName()
{
    return u"Quorvantis %1.zip"_s.arg(base::today().toString(Qt::ISODate));
}

QString number(qint64 value)
{
    return QLocale(QLocale::English).toString(value);
}

} // namespace

void ShowExport()
{
    QString file = base::prompts().chooseSaveFile(u"Export all records"_s, {u"Archives (*.zip)"_s},
                                                  usualExportName());
    if (file.isEmpty())
        return;
    // A typed name may lack the ending by which other programs know what it is.
    if (!file.endsWith(u".zip", Qt::CaseInsensitive))
        file += u".zip"_s;
    using administration::Exported;
    const auto exported =
        administration::plainly("frmExport", "ShowExport", std::optional<Exported>(), [&] {
            return administration::watched(
                u"Exporting all records..."_s, QApplication::activeWindow(),
                [&](const base::Progress &progress) {
                    return administration::exportTables(databaseTarget(), file, progress);
                });
        });
    // Cancelled, or told.
    if (!exported)
        return;
    base::showInformation(
        u"%1 rows of %2 tables were exported to %3.\n\nThe file holds all that the company has entered, addresses of employees included. Keep it as you keep a backup."_s
            .arg(number(exported->rows), number(exported->tables), file));
}
