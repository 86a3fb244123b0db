#pragma once

#include "core/CompanySession.h"
#include "core/ui/Openings.h"
#include "core/ui/ScreenCalls.h"
#include "core/ui/ScreenDriver.h"

namespace test {

/// A session for screens of master data, with boxes that answer from a script.
struct MasterSession : CompanySession
{
    using Icon = base::Prompts::Icon;
    using Buttons = base::Prompts::Buttons;
    using Answer = base::Prompts::Answer;

    /// Expects a question with Yes and No.
    void expectQuestion(const QString &text, Answer answer)
    {
        prompts.expect(text, Icon::Question, Buttons::YesNo, answer);
    }
    void expectDeletion(Answer answer)
    {
        expectQuestion(QStringLiteral("Are you sure you want to Delete this record?"), answer);
    }
    /// Deletes the record that is shown; user: what it is used by, so that it stays.
    void deleteRecord(ScreenDriver screen, const QString &user = {})
    {
        expectDeletion(Answer::Yes);
        if (!user.isEmpty())
            prompts.inform(
                QStringLiteral("Deletion not allowed. Record is being used in %1.").arg(user));
        screen.press("cmdDelete");
    }
    /// The same as below of a save.
    void expectRefusal(ScreenDriver screen, const QString &message, const char *focus)
    {
        expectRefusal(screen, "cmdUpdate", message, focus);
    }
    /// Presses a button that ends in a refusal: its message, and the control that has the focus
    /// then.
    void expectRefusal(const ScreenDriver &screen, const char *button, const QString &message,
                       const char *focus, Icon icon = Icon::Information)
    {
        prompts.expect(message, icon);
        screen.press(button);
        EXPECT_EQ(screen.focused(), focus);
    }
    /// What a save asks for: the sentence, the control that has the focus then, and what is typed
    /// there before the next one; nothing for a list.
    struct Refusal
    {
        QString message;
        const char *focus;
        QString typed;
    };
    void expectRefusals(const ScreenDriver &screen, std::initializer_list<Refusal> refusals)
    {
        for (const auto &[message, focus, typed] : refusals) {
            expectRefusal(screen, message, focus);
            if (!typed.isNull())
                screen.type(focus, typed);
        }
    }
    static qint64 insert(const QString &statement, const QString &key)
    {
        return gcnData->Insert(statement, {}, key);
    }
    static QString value(const QString &statement)
    {
        const db::Recordset rows = gcnData->Open(statement);
        return rows.isEmpty() ? QStringLiteral("no row") : rows.current().text(rows.columnName(0));
    }

    ScriptedPrompts prompts;
};

} // namespace test
