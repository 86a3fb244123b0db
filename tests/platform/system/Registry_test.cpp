#include "platform/settings/Registry.h"
#include "support/Raised.h"
#include "support/TestEnvironment.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using settings::MakerKey;
using settings::ProductKey;

namespace {

class Registry : public testing::Test
{
protected:
    static QString path() { return base::environment().registryFile; }
    static void write(const QByteArray &bytes) { test::writeFile(path(), bytes); }
    static QByteArray bytes() { return test::readFile(path()); }
    template<class Action>
    static int errorOf(Action &&action)
    {
        const base::Error error = test::raisedBy(action);
        EXPECT_TRUE(error.description().contains(QDir::toNativeSeparators(path())) ||
                    error.number() == base::ErrorNumber::InvalidCall)
            << error.what();
        return error.number();
    }

    test::TestEnvironment environment;
    settings::Registry registry = settings::registry();
};

} // namespace

TEST_F(Registry, FindsKeysAndNamesInAnyCase)
{
    write("; made by the installer\r\n[SOFTWARE\\Quorvantis]\r\nVersion = 2.3.1 \r\n"
          "PATH=\\\\server\\share\\a=b\r\n[Software\\Brelmontsoft\\Quorvantis]\r\nVersion=9\r\n");
    EXPECT_EQ(registry.value(ProductKey, u"VERSION"_s), u"2.3.1"_s);
    EXPECT_EQ(registry.value(ProductKey, u"path"_s), u"\\\\server\\share\\a=b"_s);
    EXPECT_EQ(registry.value(MakerKey, u"VERSION"_s), u"9"_s);
    EXPECT_EQ(registry.value(ProductKey, u"GUID"_s), QString());
}

TEST_F(Registry, MissingFileIsEmptyAndMadeByTheFirstWrite)
{
    EXPECT_EQ(registry.value(ProductKey, u"GUID"_s), QString());
    EXPECT_FALSE(QFile::exists(path()));
    registry.setValue(ProductKey, u"GUID"_s, u"  0123  "_s);
    EXPECT_EQ(bytes(), "[Software\\Quorvantis]\nGUID=0123\n");
}

TEST_F(Registry, APasswordIsForTheOwnersEyesOnly)
{
    constexpr auto mode = [](const QString &file) {
        return QFile::permissions(file) & QFile::Permissions(0x0077);
    };
    registry.setValue(ProductKey, u"GUID"_s, u"0123"_s);
    EXPECT_EQ(mode(path()), QFile::Permissions()) << "made so";
    QFile::setPermissions(path(), QFile::Permissions(0x6644));
    registry.setValue(ProductKey, u"GUID"_s, u"4567"_s);
    EXPECT_EQ(mode(path()), QFile::Permissions(0x0044)) << "an administrator's choice stays";
    registry.keepPrivate();
    EXPECT_EQ(mode(path()), QFile::Permissions());
    EXPECT_EQ(registry.value(ProductKey, u"GUID"_s), u"4567"_s);
}

TEST_F(Registry, AWriteChangesItsOwnLineOnly)
{
    write("# kept\n[Software\\Quorvantis]\nversion=1\n\n; also kept\n"
          "[Software\\Brelmontsoft\\Quorvantis]\nVersion=9\n");
    registry.setValue(ProductKey, u"VERSION"_s, u"2"_s);
    registry.setValue(ProductKey, u"PATH"_s, u"/srv/\u00e9t\u00e9"_s);
    EXPECT_EQ(bytes(), "# kept\n[Software\\Quorvantis]\nVERSION=2\nPATH=/srv/\u00e9t\u00e9\n\n"
                       "; also kept\n[Software\\Brelmontsoft\\Quorvantis]\nVersion=9\n");
    EXPECT_EQ(registry.value(MakerKey, u"VERSION"_s), u"9"_s);
}

TEST_F(Registry, ADamagedFileIsReportedAndLeftAsItIs)
{
    for (const QByteArray &damaged :
         {QByteArray("[Software\\Quorvantis]\nnonsense\n"), QByteArray("GUID=1\n"),
          QByteArray("[Software\\Quorvantis]\nGUID=\xff\xfe\n"),
          QByteArray("[Software\\Quorvantis]\nGUID=1\0\0\0\n", 31), QByteArray("[]\n")}) {
        write(damaged);
        EXPECT_EQ(errorOf([&] { (void)registry.value(ProductKey, u"GUID"_s); }),
                  settings::RegistryDamaged)
            << damaged.constData();
        EXPECT_EQ(errorOf([&] { registry.setValue(ProductKey, u"GUID"_s, u"2"_s); }),
                  settings::RegistryDamaged);
        EXPECT_EQ(bytes(), damaged);
    }
    // A folder in the file's place.
    QFile::remove(path());
    QDir().mkpath(path());
    EXPECT_EQ(errorOf([&] { (void)registry.value(ProductKey, u"GUID"_s); }),
              base::ErrorNumber::PathAccess);
    EXPECT_EQ(errorOf([&] { registry.setValue(ProductKey, u"GUID"_s, u"2"_s); }),
              base::ErrorNumber::PathAccess);
}

TEST_F(Registry, RefusesWhatOneLineCannotHold)
{
    for (const auto &[name, value] : {std::pair(u"A"_s, u"two\nlines"_s),
                                      {u"A=B"_s, u"1"_s},
                                      {u" "_s, u"1"_s},
                                      {u"[A"_s, u"1"_s},
                                      {u";A"_s, u"1"_s}})
        EXPECT_EQ(errorOf([&, &name = name, &value = value] {
                      registry.setValue(ProductKey, name, value);
                  }),
                  base::ErrorNumber::InvalidCall)
            << qUtf8Printable(name);
    EXPECT_FALSE(QFile::exists(path()));
}
