#pragma once

#include "support/PatientUser.h"
#include "workorders/Workshop.h"

namespace test {

/// An element of the handheld's files. The children's names mean nothing.
inline QByteArray command(const char *kind, const QStringList &values)
{
    QString text = QStringLiteral("<%1>").arg(QLatin1StringView(kind));
    for (const QString &value : values)
        text += QStringLiteral("<v>%1</v>").arg(value.toHtmlEscaped());
    return (text + QStringLiteral("</%1>").arg(QLatin1StringView(kind))).toUtf8();
}

/// The same in one text: the element's name and its values, parted by bars.
inline QByteArray command(const QString &line)
{
    QStringList parts = line.split(u'|');
    const QByteArray kind = parts.takeFirst().toLatin1();
    return command(kind.constData(), parts);
}

/// A workshop with the folder in which the handheld's files wait.
struct Handheld : Workshop
{
    Handheld()
    {
        settings::registry().setValue(settings::ProductKey, QStringLiteral("Path"),
                                      environment.folder() + QStringLiteral("/sync\\"));
        EXPECT_TRUE(QDir().mkpath(folder()));
        mark();
    }

    [[nodiscard]] QString folder() const
    {
        return environment.folder() + QStringLiteral("/sync/Xml_IN");
    }
    [[nodiscard]] QString path(const QString &name) const { return folder() + u'/' + name; }
    void mark() const { writeFile(path(QStringLiteral("done.txt")), {}); }
    void send(const QString &name, const QByteArray &commands) const
    {
        writeFile(path(name), "<anything>" + commands + "</anything>");
    }
    [[nodiscard]] QString files() const
    {
        return QDir(folder()).entryList(QDir::Files | QDir::Hidden, QDir::Name).join(u' ');
    }
    /// All that a handheld may change, as text.
    static QString everythingSent()
    {
        QString text = everything();
        for (const QString &table :
             {QStringLiteral("tblEquipment"), QStringLiteral("tblEquipmentScan"),
              QStringLiteral("tblEquipmentCrewHistory"), QStringLiteral("tblUser"),
              QStringLiteral("tblSysOption"), QStringLiteral("tblCrew")})
            text += found(QStringLiteral("Select * from ") + table) + u'\n';
        return text;
    }

    static QByteArray newOrder(const QString &id, const QString &machine = QStringLiteral("1"))
    {
        return command(
            QStringLiteral("NewWorkOrder|%1|unread|3/14/2024|%2|03-13-2024").arg(id, machine));
    }
    static QStringList serviceValues(const QString &id, const QString &order)
    {
        return QStringLiteral(
                   "%1|1|44|%2|Joe's blades|1|0|08:05|09:35|it's \"done\" & dusted; drop "
                   "table tblPart|1.5|H|510|1:30|12|20.25|3|2|3/20/2024")
            .arg(id, order)
            .split(u'|');
    }
    static QByteArray newService(const QString &id, const QString &order)
    {
        return command("NewService", serviceValues(id, order));
    }
    static QByteArray newPart(const QString &line, const QString &part = QStringLiteral("P-1"))
    {
        return command(QStringLiteral("NewServicePart|%1|%2|2|3.75|True|1.5").arg(line, part));
    }

    ScriptedPrompts prompts;
};

} // namespace test
