#pragma once

#include "administration/ZipFile.h"
#include "support/TestFiles.h"

#include <QHash>
#include <QTemporaryDir>

namespace test {

/// Spreadsheet files whose parts a test writes by itself.
class Workbooks
{
public:
    /// A file with these parts; those that every spreadsheet has are added where they are missing.
    [[nodiscard]] QString file(QHash<QString, QByteArray> parts) const
    {
        static const QHash<QString, QByteArray> usual{
            {QStringLiteral("_rels/.rels"),
             "<Relationships><Relationship Id='r' Type='x/officeDocument' "
             "Target='xl/workbook.xml'/></Relationships>"},
            {QStringLiteral("xl/workbook.xml"),
             "<workbook xmlns:r='r'><sheets><sheet name='Old' state='hidden' r:id='r9'/>"
             "<sheet name='Mine' r:id='r1'/><sheet name='Other' r:id='r9'/></sheets></workbook>"},
            {QStringLiteral("xl/_rels/workbook.xml.rels"),
             "<Relationships><Relationship Id='r9' Type='x/worksheet' Target='other.xml'/>"
             "<Relationship Id='r1' Type='x/worksheet' Target='/xl/sheets/mine.xml'/>"
             "<Relationship Id='r2' Type='x/styles' Target='styles.xml'/>"
             "<Relationship Id='r3' Type='x/sharedStrings' Target='../xl/texts.xml'/>"
             "</Relationships>"}};
        for (auto part = usual.begin(); part != usual.end(); ++part) {
            if (!parts.contains(part.key()))
                parts.insert(part.key(), part.value());
        }
        return zip(parts);
    }
    /// A file whose table holds these rows.
    [[nodiscard]] QString withRows(const QByteArray &rows,
                                   QHash<QString, QByteArray> parts = {}) const
    {
        parts.insert(sheet(), table(rows));
        return file(parts);
    }
    [[nodiscard]] static QString sheet() { return QStringLiteral("xl/sheets/mine.xml"); }
    [[nodiscard]] static QByteArray table(const QByteArray &rows)
    {
        return "<worksheet><sheetData>" + rows + "</sheetData></worksheet>";
    }

    [[nodiscard]] QString zip(const QHash<QString, QByteArray> &parts) const
    {
        const QString path = m_folder.filePath(QStringLiteral("rows.xlsx"));
        administration::ZipWriter archive(path);
        int number = 0;
        for (auto part = parts.begin(); part != parts.end(); ++part) {
            const QString source = m_folder.filePath(QString::number(++number));
            writeFile(source, part.value());
            archive.add(part.key(), source);
        }
        archive.commit();
        return path;
    }

private:
    QTemporaryDir m_folder;
};

} // namespace test
