#include "core/Secrets.h"

#include "core/CompanySession.h"

using namespace Qt::StringLiterals;

namespace {

const QString Option = u"MAIL PASSWORD"_s;
const QString Secret = u"gr\u00fcn & geheim"_s;

struct Secrets : test::CompanySession
{
    static QString keyFile() { return base::appDataPath(u"\\secrets.key"_s); }
    static QFileDevice::Permissions forOthers()
    {
        return QFileInfo(keyFile()).permissions() &
               (QFileDevice::ReadGroup | QFileDevice::WriteGroup | QFileDevice::ReadOther |
                QFileDevice::WriteOther | QFileDevice::ExeOwner);
    }
};

} // namespace

TEST_F(Secrets, ComeBackToTheirUserOnly)
{
    EXPECT_EQ(secrets::read(Option), QString());
    EXPECT_FALSE(secrets::isKept(Option));
    secrets::store(Option, Secret);
    EXPECT_TRUE(secrets::isKept(Option));
    EXPECT_EQ(secrets::read(Option), Secret);
    EXPECT_EQ(GetOption(Option, false), QString()) << "other workstations have their own";
    EXPECT_EQ(QFileInfo(keyFile()).size(), 32);
    EXPECT_EQ(forOthers(), QFileDevice::Permissions());

    // Another user's key, then none at all: what is kept stays shut.
    const QByteArray key = test::readFile(keyFile());
    test::writeFile(keyFile(), QByteArray(32, 'k'));
    EXPECT_EQ(secrets::read(Option), std::nullopt);
    EXPECT_TRUE(QFile::remove(keyFile()));
    EXPECT_EQ(secrets::read(Option), std::nullopt);
    test::writeFile(keyFile(), key);
    QFile::setPermissions(keyFile(),
                          QFileDevice::ReadOwner | QFileDevice::ReadGroup | QFileDevice::ReadOther);
    EXPECT_EQ(secrets::read(Option), Secret);
    EXPECT_EQ(forOthers(), QFileDevice::Permissions()) << "an open key is closed";

    secrets::store(Option, {});
    EXPECT_FALSE(secrets::isKept(Option));
    EXPECT_EQ(secrets::read(Option), QString());
}

TEST_F(Secrets, AreSealedAnewEachTimeAndForTheirOptionAlone)
{
    secrets::store(Option, Secret);
    const QString sealed = GetOption(Option, true);
    secrets::store(Option, Secret);
    EXPECT_NE(GetOption(Option, true), sealed);
    SetOption(u"OTHER"_s, sealed, true);
    EXPECT_EQ(secrets::read(u"OTHER"_s), std::nullopt);
    SetOption(Option, sealed, true);
    EXPECT_EQ(secrets::read(Option), Secret);
    for (const QString &damaged : {sealed.chopped(4), u"AAAA"_s, u"no base 64"_s}) {
        SetOption(Option, damaged, true);
        EXPECT_EQ(secrets::read(Option), std::nullopt) << damaged.toStdString();
    }
}

TEST_F(Secrets, StayAsTheyAreWhenANewOneCantBeKept)
{
    secrets::store(Option, Secret);
    const auto tooLong = test::raisedBy([] { secrets::store(Option, QString(800, u'x')); });
    EXPECT_EQ(tooLong.number(), base::ErrorNumber::InvalidCall) << tooLong.what();
    EXPECT_EQ(secrets::read(Option), Secret);
    test::writeFile(keyFile(), "damaged");
    const auto damaged = test::raisedBy([] { secrets::store(Option, u"other"_s); });
    EXPECT_TRUE(damaged.description().contains(u"is damaged"_s)) << damaged.what();
    EXPECT_EQ(test::readFile(keyFile()), "damaged");
}

TEST_F(Secrets, LeaveTheProgramInNoReport)
{
    secrets::store(Option, Secret);
    secrets::withhold(u"abc"_s);
    EXPECT_EQ(secrets::withheld(u"abc "_s + Secret + u'!'), u"abc ***!"_s);
    ErrorReport report =
        trimmedReport(u"M"_s, u"P"_s, 5, u"login with "_s + Secret + u" failed"_s, 0);
    EXPECT_EQ(report.ErrDescription, u"login with *** failed"_s);
    report.ErrDescription = Secret;
    report.UserMsg = u"my password is "_s + Secret;
    const ErrorReportDetails details = ErrorReportDetails::of(report);
    for (const QString &body : {htmlBody(details), plainBody(details)}) {
        EXPECT_FALSE(body.contains(Secret) || body.contains(Secret.toHtmlEscaped()));
        EXPECT_TRUE(body.contains(u"my password is ***"_s));
    }
    storeError(report);
    EXPECT_EQ(found(u"select ErrDescription, UserMsg from tblErrorList"_s),
              u"***|my password is ***"_s);
    // The database and the settings hold it nowhere in the clear.
    closeConnections();
    for (const QString &file : {gsDatabasePath, base::environment().registryFile, keyFile()})
        EXPECT_FALSE(test::readFile(file).contains(Secret.toUtf8())) << file.toStdString();
}
