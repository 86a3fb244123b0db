#include "core/RecordStore.h"

#include "core/CompanySession.h"

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
    static QString stored() { return found(u"Select SiteName, Address, StateID from tblSite"_s); }
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
    const struct
    {
        std::optional<Place> shown; ///< without one all is written
        Place mine, theirs;
        QString told, stored; ///< the columns in dispute, and what stands there then
    } rows[] = {
        {{}, {u"mine"_s, u""_s, 2}, {u"theirs"_s, u"theirs"_s, 1}, {}, u"mine||2"_s},
        {{{u"a"_s, u"b"_s, 1}}, {u"a"_s, u"b"_s, 1}, {u"a"_s, u"b"_s, 1}, {}, u"a|b|1"_s},
        // Each changes something else, both the same, or one of them back again.
        {{{u"a"_s, u"b"_s, 1}}, {u"x"_s, u"b"_s, 1}, {u"a"_s, u"y"_s, 2}, {}, u"x|y|2"_s},
        {{{u"a"_s, u"b"_s, 1}}, {u"x"_s, u"b"_s, 2}, {u"x"_s, u"b"_s, 2}, {}, u"x|b|2"_s},
        // One column in dispute keeps all others too.
        {{{u"a"_s, u"b"_s, 1}}, {u"x"_s, u"x"_s, 3}, {u"a"_s, u"y"_s, 1}, u"Address"_s, u"a|y|1"_s},
        {{{u"a"_s, u"b"_s, 1}},
         {u"x"_s, u"b"_s, 3},
         {u"y"_s, u"b"_s, 2},
         u"SiteName StateID"_s,
         u"y|b|2"_s}};
    for (const auto &row : rows) {
        storeElsewhere(row.theirs);
        QStringList told;
        try {
            change(row.mine, row.shown);
        } catch (const record::Conflict &conflict) {
            EXPECT_FALSE(conflict.isGone());
            for (const record::Difference &one : conflict.differences())
                told.append(one.column);
        }
        EXPECT_EQ(told.join(u' '), row.told);
        EXPECT_EQ(stored(), row.stored);
        EXPECT_FALSE(gcnData->InTransaction());
    }
}

TEST_F(RecordStores, ARowThatIsGoneOrHeldIsLeftAlone)
{
    m_other->BeginTrans();
    storeElsewhere({u"held"_s, u""_s, 0});
    const auto store = [&] { change({u"mine"_s, u""_s, 0}, Place{u"Yard"_s, u""_s, 0}); };
    EXPECT_EQ(test::raisedBy(store).number(), db::ErrorNumber::LockConflict);
    m_other->RollbackTrans();
    EXPECT_TRUE(stored().startsWith(u"Yard|"_s));

    m_other->Execute(u"Delete from tblSite"_s);
    try {
        store();
        ADD_FAILURE() << "stored into nothing";
    } catch (const record::Conflict &conflict) {
        EXPECT_TRUE(conflict.isGone());
    }
    EXPECT_FALSE(gcnData->InTransaction());
}
