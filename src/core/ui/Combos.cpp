#include "core/ui/Combos.h"

#include "platform/base/Error.h"
#include "platform/base/Trapped.h"
#include "platform/input/IdCombo.h"

#include <QSet>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr char Module[] = "General Function";
const QString BlankItem = u"  "_s;

/// What an item's data can hold; a larger id is left out there without a word.
qint64 itemData(const db::Row &row, const QString &field)
{
    const qint64 id = row.integer(field);
    return id >= std::numeric_limits<qint32>::min() && id <= std::numeric_limits<qint32>::max() ? id
                                                                                                : 0;
}

/// A list is filled again and again, and what is wrong in it needs to be told only once.
bool isFirstReport(const QString &list, const QString &text)
{
    static QSet<QPair<QString, QString>> reported;
    const QPair<QString, QString> key{list.toLower(), text.toLower()};
    if (reported.contains(key))
        return false;
    reported.insert(key);
    return true;
}

} // namespace

QHash<QString, QString> LoadItemWithIdToCombo(input::IdCombo &Combo, db::Recordset &Rows,
                                              const QString &IdField, const QString &TextField,
                                              bool AddBlank)
{
    QHash<QString, QString> ids;
    base::trapped(Module, "LoadItemWithIdToCombo", [&] {
        const QSignalBlocker silence(Combo);
        QSet<QString> seen;
        QString repeated;
        const auto collect = [&](const QString &text, const QString &id) {
            if (seen.contains(text.toLower())) {
                if (repeated.isEmpty())
                    repeated = text;
                return;
            }
            seen.insert(text.toLower());
            ids.insert(text, id);
        };
        Combo.clear();
        if (AddBlank) {
            Combo.add(BlankItem, 0);
            collect(BlankItem, u"0"_s);
        }
        for (Rows.MoveFirst(); !Rows.IsEOF(); Rows.MoveNext()) {
            const db::Row row = Rows.current();
            const QString text = row.text(TextField);
            Combo.add(text, itemData(row, IdField));
            collect(text, row.text(IdField));
        }
        if (Combo.count() > 0)
            Combo.setCurrentIndex(0);
        if (!repeated.isEmpty() && isFirstReport(TextField, repeated))
            throw base::Error(
                base::ErrorNumber::DuplicateKeyInCollection,
                u"The list holds \"%1\" twice. Please give one of them another name."_s.arg(
                    repeated));
    });
    return ids;
}

QHash<QString, QString> LoadItemWithIdToCombo(input::IdCombo &Combo, db::Recordset &&Rows,
                                              const QString &IdField, const QString &TextField,
                                              bool AddBlank)
{
    return LoadItemWithIdToCombo(Combo, Rows, IdField, TextField, AddBlank);
}

void LoadItemOnlyIdToCombo(input::IdCombo &Combo, db::Recordset &Rows, const QString &Field,
                           bool AddBlank)
{
    base::trapped(Module, "LoadItemOnlyIdToCombo", [&] {
        const QSignalBlocker silence(Combo);
        Combo.clear();
        QStringList texts;
        if (AddBlank)
            texts << BlankItem;
        for (Rows.MoveFirst(); !Rows.IsEOF(); Rows.MoveNext())
            texts << Rows.current().text(Field);
        Combo.add(texts);
        if (Combo.count() > 0)
            Combo.setCurrentIndex(0);
    });
}

void LoadItemOnlyIdToCombo(input::IdCombo &Combo, db::Recordset &&Rows, const QString &Field,
                           bool AddBlank)
{
    LoadItemOnlyIdToCombo(Combo, Rows, Field, AddBlank);
}
