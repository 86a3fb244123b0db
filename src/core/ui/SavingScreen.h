#pragma once

#include "core/InTheWay.h"
#include "core/RecordStore.h"
#include "core/ui/Screen.h"

#include <QVariant>
#include <optional>

class Bindings;

/// A screen that stores one record, which others may change, hold or delete while it is on show.
/// What happened meanwhile is told in plain words; what was typed stays, and the user chooses.
class SavingScreen : public Screen
{
    Q_OBJECT

protected:
    using Screen::Screen;

    /// Writes what the controls show. The key of the row to show then, nothing when it failed. What
    /// its steps raise is dealt with here: a row that was changed or deleted elsewhere, one that
    /// another workstation holds, a key that was taken meanwhile.
    [[nodiscard]] virtual std::optional<QVariant> saveRecord() = 0;
    /// Gives a new record another key, when its key is given in advance and was taken meanwhile.
    virtual bool takeFreshKey() { return false; }
    /// What the record is called in a sentence, "the crew \"7\"".
    [[nodiscard]] virtual QString recordName() const { return QStringLiteral("this record"); }
    /// The row is gone. True when the record is to be stored as a new one, for which the mode has
    /// been turned to Add then.
    [[nodiscard]] virtual bool becomesNew();

    /// The fields that hold the record.
    void setSavedFields(const QList<Bindings *> &fields) { m_fields = fields; }
    /// Runs saveRecord, again where the user or a fresh key wants it so. Reports failures.
    [[nodiscard]] std::optional<QVariant> store();
    /// Runs a step on the record. That another workstation holds it becomes InTheWay with a
    /// sentence that names the record, unless something nearer has been named.
    template<class Body>
    auto naming(Body &&body) const
    {
        return orInTheWay(std::forward<Body>(body), [this] { return heldSentence(); });
    }

    /// True when the row on show is known to be another one by now.
    [[nodiscard]] bool isStale() const { return m_isStale; }
    void setStale(bool stale) { m_isStale = stale; }

private:
    [[nodiscard]] QString heldSentence() const;
    [[nodiscard]] bool resolve(const record::Conflict &conflict);
    /// The two values of a column as the screen shows them.
    [[nodiscard]] QString told(const record::Difference &difference) const;

    QList<Bindings *> m_fields;
    bool m_isStale = false;
};
