#include "administration/SealedFile.h"

#include "support/Raised.h"
#include "support/TestEnvironment.h"
#include "support/TestFiles.h"

using namespace Qt::StringLiterals;
using namespace administration;
using test::raisedBy;

namespace {

class SealedFiles : public testing::Test
{
protected:
    [[nodiscard]] QString path(const QString &name) const
    {
        return environment.folder() + u'/' + name;
    }
    [[nodiscard]] QByteArray unsealed(const QString &name, const QString &key) const
    {
        QByteArray content;
        unseal(path(name), key, [&](const QByteArray &piece) { content += piece; });
        return content;
    }
    [[nodiscard]] int refusalOf(const QByteArray &content, const QString &key) const
    {
        test::writeFile(path(u"changed"_s), content);
        return raisedBy([&] { (void)unsealed(u"changed"_s, key); }).number();
    }

    test::TestEnvironment environment;
};

const QString passphrase = u"müde Möwen 12"_s;

} // namespace

TEST_F(SealedFiles, GiveBackWhatWasSealed)
{
    constexpr int piece = 1 << 16;
    for (const int length : {0, piece, 2 * piece + 1}) {
        QByteArray content(length, 'a');
        if (length > 5)
            content.replace(length - 5, 5, "the end");
        test::writeFile(path(u"plain"_s), content);
        seal(path(u"plain"_s), path(u"sealed"_s), passphrase);
        EXPECT_TRUE(isSealed(path(u"sealed"_s)));
        EXPECT_FALSE(test::readFile(path(u"sealed"_s)).contains("the end"));
        EXPECT_EQ(unsealed(u"sealed"_s, passphrase), content) << length;
    }
    EXPECT_FALSE(isSealed(path(u"plain"_s)));
    EXPECT_FALSE(isSealed(path(u"none"_s)));
}

TEST_F(SealedFiles, TellAWrongPassphraseFromDamage)
{
    constexpr int pieces = 3;
    test::writeFile(path(u"plain"_s), QByteArray(pieces << 16, 'x'));
    seal(path(u"plain"_s), path(u"sealed"_s), passphrase);
    const QByteArray whole = test::readFile(path(u"sealed"_s));
    EXPECT_EQ(refusalOf(whole, u"müde Möwen 13"_s), WrongPassphrase);
    // The letters are what counts, however they are composed.
    EXPECT_EQ(unsealed(u"changed"_s, passphrase.normalized(QString::NormalizationForm_D)).size(),
              pieces << 16);
    QByteArray changed = whole;
    changed[whole.size() - 100] = static_cast<char>(changed[whole.size() - 100] ^ 1);
    EXPECT_EQ(refusalOf(changed, passphrase), SealedDamaged);
    EXPECT_EQ(refusalOf(whole + "more", passphrase), SealedDamaged);
    const qsizetype sealedPiece = (1 << 16) + 17;
    for (const qsizetype length :
         {whole.size() - 1, whole.size() - sealedPiece, whole.size() - pieces * sealedPiece,
          qsizetype(60), qsizetype(20)})
        EXPECT_EQ(refusalOf(whole.left(length), passphrase), SealedDamaged) << length;
    // A made-up head that would take all memory of the computer.
    changed = whole;
    changed.replace(17, 8, "\xff\xff\xff\xff\xff\x00\x00\x00", 8);
    EXPECT_EQ(refusalOf(changed, passphrase), SealedDamaged);
    // Pieces in another order.
    const qsizetype head = whole.size() - pieces * sealedPiece;
    changed = whole.left(head + sealedPiece) + whole.mid(head + 2 * sealedPiece);
    EXPECT_EQ(refusalOf(changed, passphrase), SealedDamaged);
}
