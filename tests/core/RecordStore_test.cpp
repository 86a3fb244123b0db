#include "core/RecordStore.h"

#include "core/CompanySession.h"

#include <random>

using namespace Qt::StringLiterals;

namespace {

/// A part of the sites' table.
struct Place
{
    QString SiteName;
    QString Address;
    qint64 StateID = 0;
};

constexpr record::Field<Place> Fields[] = {
    {u"SiteName", &Place::SiteName},
    {u"Address", &Place::Address},
    {u"StateID", &Place::StateID},
};

/// Two workstations at one site.
struct RecordStores : test::CompanySession
{
    RecordStores()
        : m_key(insert(u"tblSite"_s, {{u"SiteName"_s, u"Yard"_s}}, u"SiteID"_s))
        , m_other(database.open())
    {}

    static Place load(const db::Row &row) { return record::load<Place>(row, std::span(Fields)); }
    [[nodiscard]] Place stored() const
    {
        return load(gcnData->Open(u"Select * from tblSite where SiteID = ?"_s, {m_key}).row(0));
    }
    void change(const Place &mine, const std::optional<Place> &shown) const
    {
        record::change<Place>(record::Store::Data, u"tblSite", Fields, mine, shown, u"SiteID",
                              m_key, load);
    }
    void storeElsewhere(const Place &theirs)
    {
        m_other->Execute(
            u"Update tblSite set SiteName = ?, Address = ?, StateID = ? where SiteID = ?"_s,
            {theirs.SiteName, theirs.Address, theirs.StateID, m_key});
    }

    qint64 m_key;
    std::unique_ptr<db::Connection> m_other;
};

} // namespace

TEST_F(RecordStores, WriteWhatWasChangedAndOnlyOverWhatWasShown)
{
    std::mt19937 random(7);
    const auto any = [&random] {
        const auto one = [&random] { return static_cast<int>(random() % 3); };
        return Place{u"site %1"_s.arg(one()), u"way %1"_s.arg(one()), one()};
    };
    int conflicts = 0;
    for (int round = 0; round < 300; ++round) {
        const Place shown = any();
        const Place mine = any();
        const Place theirs = any();
        storeElsewhere(theirs);
        // What is expected of each column, told a second time.
        QVariantList expected;
        QStringList disputed;
        for (const record::Field<Place> &field : Fields) {
            const QVariant before = record::value(shown, field);
            const QVariant typed = record::value(mine, field);
            const QVariant found = record::value(theirs, field);
            if (typed != before && found != before && typed != found)
                disputed.append(field.column.toString());
            expected.append(typed == before ? found : typed);
        }
        QStringList told;
        try {
            change(mine, shown);
        } catch (const record::Conflict &conflict) {
            EXPECT_FALSE(conflict.isGone());
            for (const record::Difference &one : conflict.differences())
                told.append(one.column);
            expected = record::values<Place>(theirs, Fields);
            ++conflicts;
        }
        EXPECT_EQ(told, disputed);
        EXPECT_EQ(record::values<Place>(stored(), Fields), expected) << "round " << round;
        EXPECT_FALSE(gcnData->InTransaction());
    }
    EXPECT_GT(conflicts, 20);
}

TEST_F(RecordStores, WithoutAShownRecordAllIsWritten)
{
    storeElsewhere({u"theirs"_s, u"theirs"_s, 1});
    change({u"mine"_s, u""_s, 2}, std::nullopt);
    EXPECT_EQ(found(u"Select SiteName, Address, StateID from tblSite"_s), u"mine||2"_s);
}

TEST_F(RecordStores, ARowThatIsGoneOrHeldIsLeftAlone)
{
    m_other->BeginTrans();
    storeElsewhere({u"held"_s, u""_s, 0});
    const auto store = [&] { change({u"mine"_s, u""_s, 0}, Place{u"Yard"_s, u""_s, 0}); };
    EXPECT_EQ(test::raisedBy(store).number(), db::ErrorNumber::LockConflict);
    m_other->RollbackTrans();
    EXPECT_EQ(stored().SiteName, u"Yard"_s);

    m_other->Execute(u"Delete from tblSite"_s);
    try {
        store();
        ADD_FAILURE() << "stored into nothing";
    } catch (const record::Conflict &conflict) {
        EXPECT_TRUE(conflict.isGone());
    }
    EXPECT_FALSE(gcnData->InTransaction());
}
