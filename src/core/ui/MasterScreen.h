#pragma once

#include "core/ui/Binding.h"
#include "core/ui/RecordScreen.h"

/// What the screens of the master tables do alike: one record of a manager in a set of bound
/// fields.
///
/// Manager deletes by key, and its UsedBy answers the word for what uses a record, empty when it
/// may go; the type of the key is the one that UsedBy takes. Such a screen says only which rows it
/// moves through, how its form looks, what it checks and how it stores.
template<class Record, class Manager, auto UsedBy>
class MasterScreen : public RecordScreen
{
protected:
    using RecordScreen::RecordScreen;

    void DisplayData(const db::Row &row) override { m_fields.show(Record::fromRow(row)); }
    void ClearData() override { m_fields.clear(); }
    bool deleteRecord(const QVariant &key) override
    {
        return Manager().DeleteRecord(key.value<Key>());
    }
    QString usedBy(const QVariant &key) const override
    {
        return (Manager().*UsedBy)(key.value<Key>());
    }

    Binding<Record> m_fields{Record::fields()};

private:
    template<class Taken>
    static std::remove_cvref_t<Taken> keyOf(QString (Manager::*)(Taken) const);
    using Key = decltype(keyOf(UsedBy));
};
