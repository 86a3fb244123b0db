#include "equipment/Pictures.h"

#include "equipment/Workshop.h"

using namespace Qt::StringLiterals;

namespace {

struct Pictures : test::Workshop
{
    QString file(const QString &name, const QByteArray &content) const
    {
        const QString path = environment.folder() + u'/' + name;
        test::writeFile(path, content);
        return path;
    }
    static bool startsWithP(const QByteArray &bytes) { return bytes.startsWith('P'); }

    test::ScriptedPrompts prompts;
};

} // namespace

TEST_F(Pictures, AreStoredAsTheFilesBytes)
{
    QByteArray content(200'000, 'P');
    content[7] = '\0';
    EXPECT_TRUE(
        pictures::SaveImageInEquipment(1, file(u"a.bmp"_s, content), u"Joe's"_s, startsWithP));
    // Each machine has its own names.
    EXPECT_TRUE(pictures::SaveImageInEquipment(2, file(u"b.bmp"_s, "P"), u"Joe's"_s, startsWithP));
    EXPECT_EQ(pictures::bytes(1, u"Joe's"_s), content);
    EXPECT_EQ(pictures::bytes(2, u"joe's"_s), "P");
    EXPECT_EQ(pictures::names(1).row(0).text(u"Picture Name"), u"Joe's");
    EXPECT_TRUE(pictures::DeleteImageRecord(1, u"Joe's"_s));
    EXPECT_TRUE(pictures::names(1).isEmpty());
    EXPECT_EQ(pictures::names(2).RecordCount(), 1);
    EXPECT_TRUE(pictures::bytes(1, u"Joe's"_s).isEmpty());
    run(u"drop table tblEquipmentImage"_s);
    EXPECT_FALSE(pictures::DeleteImageRecord(2, u"Joe's"_s));
    EXPECT_EQ(errors.takeOne().ProcedureName, u"DeleteImageRecord");
}

TEST_F(Pictures, RefusalsStoreNothing)
{
    const QString good = file(u"a.bmp"_s, "P");
    ASSERT_TRUE(pictures::SaveImageInEquipment(1, good, u"Front"_s, startsWithP));
    using Case = std::array<QString, 4>; // file, name, refusal, its title
    for (const auto &[chosen, name, refusal, title] :
         {Case{environment.folder() + u"/gone.bmp"_s, u"Side"_s, u"Invalid path of picture."_s, {}},
          Case{environment.folder(), u"Side"_s, u"Invalid path of picture."_s, {}},
          Case{file(u"x.bmp"_s, "text"), u"Side"_s, u"Invalid Picture File!"_s, u"Oops!"_s},
          Case{file(u"empty.bmp"_s, ""), u"Side"_s, u"Invalid Picture File!"_s, u"Oops!"_s},
          Case{good, u"FRONT"_s, u"File Name already exists. Please Enter Different Name"_s, {}}}) {
        prompts.say(refusal);
        EXPECT_FALSE(pictures::SaveImageInEquipment(1, chosen, name, startsWithP));
        EXPECT_EQ(prompts.shown().back().title, title);
    }
    EXPECT_EQ(count(u"tblEquipmentImage"_s), 1);
}

TEST_F(Pictures, TheScratchFileGoesWithItsObject)
{
    QString path;
    {
        const pictures::ScratchFile scratch("old");
        const pictures::ScratchFile again("new bytes");
        path = again.path();
        EXPECT_EQ(path, base::appDataPath(u"\\Temp.bmp"_s));
        EXPECT_EQ(test::readFile(path), "new bytes");
    }
    EXPECT_FALSE(QFile::exists(path));
}
