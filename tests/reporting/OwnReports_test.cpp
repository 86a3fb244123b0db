#include "reporting/OwnReports.h"

#include "platform/base/Environment.h"
#include "platform/report/layout/LayoutFile.h"
#include "reporting/ReportDrafts.h"
#include "reporting/ReportFiles.h"
#include "support/Raised.h"
#include "support/TestEnvironment.h"
#include "support/TestFiles.h"

#include <QDir>

using namespace Qt::StringLiterals;
using namespace ownreports;

namespace {

class OwnReports : public testing::Test
{
protected:
    static QString at(const QString &folder, const QString &file)
    {
        const QString path = base::applicationPath(u'\\' + folder);
        EXPECT_TRUE(QDir().mkpath(path));
        return path + u'/' + file;
    }
    static report::Layout titled(const QString &title)
    {
        report::Layout layout;
        layout.title = title;
        return layout;
    }
    static QString titleIn(const QString &path) { return reportfiles::readLayoutAt(path).title; }
    static QString listed(Folder folder)
    {
        QStringList lines;
        const QString program = base::environment().applicationFolder;
        for (const Entry &entry : list(folder))
            lines.append(entry.name + u'=' + entry.path.mid(program.size()));
        return lines.join(u'|');
    }

    test::TestEnvironment environment;
    const MayReplace neverAsked = [](InPlace) {
        ADD_FAILURE() << "nothing is in the way";
        return false;
    };
};

TEST_F(OwnReports, TheListShowsEachLayoutThatCanBeChanged)
{
    EXPECT_EQ(listed(Folder::Delivered), QString());
    for (const QString &file :
         {u"rptb.rpt"_s, u"rptA.rpt"_s, u"rptErrorReport.rpt"_s, u"notes.txt"_s,
          u"rptServiceHistoryTimesCDate.rpt"_s, u"rptInventoryPartHistoryCDate.rpt"_s})
        test::writeFile(at(u"Reports"_s, file), "x");
    test::writeFile(at(u"Custom Reports"_s, u"rptb.rpt"_s), "x");
    test::writeFile(at(u"Custom Reports"_s, u"rptOther.rpt"_s), "x");
    EXPECT_EQ(listed(Folder::Delivered), u"A=/Reports/rptA.rpt|b=/Custom Reports/rptb.rpt"_s);

    test::writeFile(at(u"User Defined Reports"_s, u"rptErrorReport.rpt"_s), "x");
    EXPECT_EQ(listed(Folder::UserDefined),
              u"rptErrorReport=/User Defined Reports/rptErrorReport.rpt"_s);
}

TEST_F(OwnReports, TheFolderSaysWhereALayoutIsSaved)
{
    for (const auto &[folder, savedTo] : {std::pair(u"Reports"_s, u"Custom Reports"_s),
                                          {u"Custom Reports"_s, u"Custom Reports"_s},
                                          {u"User Defined Reports"_s, u"User Defined Reports"_s}})
        EXPECT_EQ(savePath(kindOf(at(folder, u"x.rpt"_s)), u"x.rpt"_s), at(savedTo, u"x.rpt"_s))
            << qPrintable(folder);
}

TEST_F(OwnReports, ADeliveredFileIsNeverWritten)
{
    const QString delivered = at(u"Reports"_s, u"rptPart.rpt"_s);
    test::writeFile(delivered, "as it came");
    Version known = versionOf(delivered);
    for (const QString &path :
         {delivered, at(u"User Defined Reports"_s, u"../Reports/rptPart.rpt"_s)})
        test::raisedBy([&] { static_cast<void>(save(titled(u"x"_s), path, known, neverAsked)); });
    EXPECT_EQ(test::readFile(delivered), "as it came");
}

TEST_F(OwnReports, ASaveMakesTheFoldersAndAsksNothingAboutItsOwnFile)
{
    const QString path = savePath(Kind::NewReport, u"Parts.rpt"_s);
    Version known;
    ASSERT_TRUE(save(titled(u"one"_s), path, known, neverAsked));
    ASSERT_TRUE(save(titled(u"two"_s), path, known, neverAsked));
    EXPECT_EQ(titleIn(path), u"two"_s);
    EXPECT_TRUE(QDir(base::applicationPath(u"\\Custom Reports"_s)).exists());
    EXPECT_EQ(QDir(QFileInfo(path).path()).entryList(QDir::Files), QStringList{u"Parts.rpt"_s});
}

TEST_F(OwnReports, WhatIsThereIsReplacedOnlyWhenTheUserWantsIt)
{
    const QString path = at(u"User Defined Reports"_s, u"Parts.rpt"_s);
    int questions = 0;
    for (const bool isOpened : {false, true}) // before the other workstation saved
        for (const bool answer : {false, true}) {
            report::writeLayoutFile(titled(u"former"_s), path);
            Version known = isOpened ? versionOf(path) : Version();
            report::writeLayoutFile(titled(u"theirs"_s), path);
            questions = 0;
            EXPECT_EQ(save(titled(u"ours"_s), path, known,
                           [&](InPlace what) {
                               ++questions;
                               EXPECT_EQ(what, isOpened ? InPlace::ChangedMeanwhile
                                                        : InPlace::AnotherReport);
                               return answer;
                           }),
                      answer);
            EXPECT_EQ(questions, 1);
            EXPECT_EQ(titleIn(path), answer ? u"ours"_s : u"theirs"_s);
        }
    // What is saved during the question is asked about too.
    Version known;
    questions = 0;
    EXPECT_FALSE(save(titled(u"ours"_s), path, known, [&](InPlace) {
        report::writeLayoutFile(titled(u"meanwhile"_s), path);
        return ++questions == 1;
    }));
    EXPECT_EQ(questions, 2);
    EXPECT_EQ(titleIn(path), u"meanwhile"_s);
}

TEST_F(OwnReports, ANameInOtherLettersIsTheSameReport)
{
    report::writeLayoutFile(titled(u"one"_s), at(u"User Defined Reports"_s, u"Parts.rpt"_s));
    Version other;
    for (const bool answer : {false, true})
        EXPECT_EQ(save(titled(u"two"_s), savePath(Kind::NewReport, u"PARTS.rpt"_s), other,
                       [&](InPlace) { return answer; }),
                  answer);
    EXPECT_EQ(listed(Folder::UserDefined), u"Parts=/User Defined Reports/Parts.rpt"_s);
}

TEST_F(OwnReports, ANameIsAFilesNameAndNothingElse)
{
    for (const auto &[typed, file] : {std::pair(u" Parts by site "_s, u"Parts by site.rpt"_s),
                                      {u"Parts.RPT"_s, u"Parts.rpt"_s},
                                      {u"Größe 2.5"_s, u"Größe 2.5.rpt"_s},
                                      {u"Console"_s, u"Console.rpt"_s},
                                      {QString(80, u'x'), QString(80, u'x') + u".rpt"_s}}) {
        EXPECT_EQ(fileNameOf(typed), file);
        EXPECT_EQ(problemOf(typed), QString()) << qPrintable(typed);
    }
    for (const QString &typed :
         {u"../Reports/rptPart"_s, u"a\\b"_s, u"C:x"_s, u"what?"_s, u"a\tb"_s, u"a\u202eb"_s,
          u".x"_s, u"x."_s, u"con"_s, u"NUL.old"_s, u"com1"_s, u"LPT\u00b9"_s, QString(81, u'x')})
        EXPECT_NE(problemOf(typed), QString()) << qPrintable(typed);
    for (const QString &typed : {QString(), u"  "_s, u" .rpt"_s})
        EXPECT_EQ(fileNameOf(typed), QString()) << qPrintable(typed);
}

TEST_F(OwnReports, ADraftComesBackUntilItIsDropped)
{
    EXPECT_FALSE(drafts::find(u"a"_s));
    drafts::keep(u"a"_s, titled(u"one"_s), "1234");
    drafts::keep(u"a"_s, titled(u"two"_s), "1234");
    drafts::keep(u"b"_s, titled(u"other"_s), {});
    const auto draft = drafts::find(u"a"_s);
    ASSERT_TRUE(draft);
    EXPECT_EQ(draft->layout.title, u"two"_s);
    EXPECT_EQ(draft->base, "1234");
    drafts::drop(u"a"_s);
    EXPECT_FALSE(drafts::find(u"a"_s));
    EXPECT_EQ(drafts::find(u"b"_s)->layout.title, u"other"_s);
}

} // namespace
