#include "equipment/DocumentStore.h"

#include "equipment/Workshop.h"

using namespace Qt::StringLiterals;

namespace {

struct Documents : test::Workshop
{
    /// Stands where nothing is to be asked.
    static bool never(const QString &name)
    {
        ADD_FAILURE() << "asked about " << qPrintable(name);
        return false;
    }
    /// A file that the user could choose.
    QString file(const QString &name, const QByteArray &content) const
    {
        QDir().mkpath(environment.folder() + u"/chosen"_s);
        const QString path = environment.folder() + u"/chosen/"_s + name;
        test::writeFile(path, content);
        return path;
    }
    static QByteArray stored(qint64 machine, const QString &name)
    {
        return test::readFile(documents::path(machine, name));
    }

    test::ScriptedPrompts prompts;
};

} // namespace

TEST_F(Documents, AreCopiedIntoTheMachinesFolder)
{
    EXPECT_TRUE(documents::addDocument(1, file(u"Bob's manual.pdf"_s, "one"), never));
    EXPECT_TRUE(documents::addDocument(2, file(u"Bob's manual.pdf"_s, "two"), never));
    EXPECT_EQ(documents::path(1, u"x"_s), base::applicationPath(u"\\Doc\\1\\x"_s));
    EXPECT_EQ(stored(1, u"Bob's manual.pdf"_s), "one");
    EXPECT_EQ(stored(2, u"Bob's manual.pdf"_s), "two");
    EXPECT_EQ(documents::names(1).row(0).text(u"Document Name"), u"Bob's manual.pdf");
}

TEST_F(Documents, ADocumentOfThatNameIsReplacedOnlyOnYes)
{
    ASSERT_TRUE(documents::addDocument(1, file(u"Manual.pdf"_s, "one"), never));
    // In other letters it is the same document.
    const QString other = file(u"MANUAL.pdf"_s, "two");
    QStringList asked;
    bool answer = false;
    const auto mayReplace = [&](const QString &name) {
        asked.append(name);
        return answer;
    };
    EXPECT_FALSE(documents::addDocument(1, other, mayReplace));
    EXPECT_EQ(stored(1, u"Manual.pdf"_s), "one");
    answer = true;
    EXPECT_TRUE(documents::addDocument(1, other, mayReplace));
    EXPECT_EQ(asked, QStringList({u"Manual.pdf"_s, u"Manual.pdf"_s}));
    EXPECT_EQ(stored(1, u"Manual.pdf"_s), "two");
    EXPECT_EQ(documents::names(1).RecordCount(), 1);
    EXPECT_EQ(QDir(documents::folder(1)).entryList(QDir::Files).size(), 1);
    // A row whose file has gone gets it back without a question.
    documents::remove(1, u"Manual.pdf"_s);
    EXPECT_TRUE(documents::addDocument(1, other, never));
    EXPECT_EQ(stored(1, u"Manual.pdf"_s), "two");
    EXPECT_EQ(documents::names(1).RecordCount(), 1);
}

TEST_F(Documents, WhatTheDatabaseRefusesLeavesNoFile)
{
    const QString longest = QString(196, u'n') + u".pdf"_s;
    EXPECT_TRUE(documents::addDocument(1, file(longest, "one"), never));
    prompts.say(u"The name of the file is too long: a document's name may have 200 characters "
                "at most. Please rename the file."_s);
    EXPECT_FALSE(documents::addDocument(1, file(u'n' + longest, "two"), never));
    // Another workstation is adding the same name.
    const auto other = database.open();
    other->BeginTrans();
    other->Execute(
        u"insert into tblEquipmentDocument(EquipmentID,DocumentName) values(1,'a.pdf')"_s);
    EXPECT_FALSE(documents::addDocument(1, file(u"a.pdf"_s, "one"), never));
    EXPECT_NE(errors.takeOne().ErrNumber, 0);
    other->RollbackTrans();
    EXPECT_EQ(QDir(documents::folder(1)).entryList(QDir::Files), QStringList{longest});
}

TEST_F(Documents, WhatCantBeAddedLeavesNoRow)
{
    prompts.say(u"Invalid File or Incorrect Path."_s);
    EXPECT_FALSE(documents::addDocument(1, environment.folder() + u"/gone.pdf"_s, never));
    // The store can't be had: a file stands where its folder should.
    test::writeFile(base::applicationPath(u"\\Doc"_s), "no folder");
    prompts.say(u"Folder(Doc) has been deleted by user. Please create a folder named'Doc' at "
                "following path "_s +
                QDir::toNativeSeparators(base::environment().applicationFolder));
    EXPECT_FALSE(documents::addDocument(1, file(u"a.pdf"_s, "one"), never));
    // The file can't be copied: a folder stands under its name.
    QFile::remove(base::applicationPath(u"\\Doc"_s));
    QDir().mkpath(documents::path(1, u"a.pdf"_s));
    EXPECT_FALSE(documents::addDocument(1, file(u"a.pdf"_s, "one"), never));
    EXPECT_EQ(errors.takeOne().ErrNumber, base::ErrorNumber::PathAccess);
    EXPECT_TRUE(documents::names(1).isEmpty());
}

TEST_F(Documents, RemovingTakesTheRowThenTheFile)
{
    ASSERT_TRUE(documents::addDocument(1, file(u"a.pdf"_s, "one"), never));
    BeginTrans();
    EXPECT_TRUE(documents::DeleteDocumentRecord(1, u"a.pdf"_s));
    EXPECT_FALSE(documents::exists(1, u"a.pdf"_s));
    // The row comes back with the transaction, the file doesn't.
    RollbackTrans();
    EXPECT_EQ(documents::names(1).RecordCount(), 1);
    EXPECT_FALSE(documents::DeleteDocumentRecord(1, u"a.pdf"_s));
    EXPECT_EQ(errors.takeOne().ErrNumber, base::ErrorNumber::FileNotFound);
    EXPECT_TRUE(documents::names(1).isEmpty());
}
