#pragma once

#include "core/CompanySession.h"
#include "core/ui/ScreenDriver.h"
#include "platform/base/Environment.h"
#include "platform/report/layout/LayoutFile.h"
#include "reporting/ReportFiles.h"
#include "support/ScriptedPrompts.h"

#include <QDir>

namespace test {

/// A session with the delivered layouts, three parts, and room for reports of the user's own.
class OwnReportSession : public CompanySession
{
protected:
    using Answer = base::Prompts::Answer;
    using Buttons = base::Prompts::Buttons;
    using Icon = base::Prompts::Icon;

    OwnReportSession()
    {
        reportfiles::installDelivered(base::environment().applicationFolder);
        for (int part = 1; part <= 3; ++part)
            insert(QStringLiteral("tblPart"), QStringLiteral("PartID,Description,Price"),
                   {QStringLiteral("P%1").arg(part), QStringLiteral("Part %1").arg(part), part});
    }

    static QString path(const QString &folder, const QString &file)
    {
        const QString full = base::applicationPath(u'\\' + folder);
        EXPECT_TRUE(QDir().mkpath(full));
        return full + u'/' + file;
    }
    static QString own(const QString &file)
    {
        return path(QStringLiteral("User Defined Reports"), file);
    }

    /// A layout with a title, written in its file's form.
    static report::Layout ours(const QByteArray &content)
    {
        return report::readLayout("<report version=\"3\" title=\"Our parts\">" + content +
                                  "</report>")
            .layout.value();
    }
    /// A report of the parts, those of the query.
    static report::Layout parts(const QString &query)
    {
        report::Layout layout = ours("<band kind=\"detail\"><field content=\"PartID\"/></band>");
        layout.query = query;
        return layout;
    }
    static QString titleIn(const QString &file)
    {
        return QFile::exists(file) ? reportfiles::readLayoutAt(file).title
                                   : QStringLiteral("(none)");
    }
    ScriptedPrompts prompts;
};

} // namespace test
