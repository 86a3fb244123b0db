#pragma once

#include "platform/base/Prompts.h"

#include <deque>
#include <functional>
#include <vector>

namespace test {

/// What is told to those who may not do something, and who may not see a report.
inline const QString NoRights = QStringLiteral(
    "You do not have sufficient rights to this action. Please see your system administrator");
inline const QString NoReport = QStringLiteral(
    "You do not have sufficient rights to see this report. Please see your system administrator");

/// Prompts that answer from a script and keep what was shown. A box that nobody expected fails the
/// test and gets its most harmless answer, so that nothing hangs; so does, at the end, an
/// expectation that was never asked. Boxes are expected in their order.
///
///     test::ScriptedPrompts prompts;
///     prompts.yes("Are you sure you want to Delete this record?");
class ScriptedPrompts final : public base::Prompts
{
public:
    ScriptedPrompts();
    ~ScriptedPrompts() override;

    /// Expects a message with exactly this text, icon and buttons, and gives the answer.
    void expect(const QString &text, Icon icon, Buttons buttons = Buttons::Ok,
                Answer answer = Answer::Ok);
    /// The same with Ok, for a message without an icon, a piece of information and an error.
    void say(const QString &text) { expect(text, Icon::None); }
    void inform(const QString &text) { expect(text, Icon::Information); }
    void warn(const QString &text) { expect(text, Icon::Critical); }
    /// Expects a question with Yes and No, and answers it.
    void yes(const QString &text) { expect(text, Icon::Question, Buttons::YesNo, Answer::Yes); }
    void no(const QString &text) { expect(text, Icon::Question, Buttons::YesNo, Answer::No); }
    /// Expects an input box and answers it; nothing stands for Cancel.
    void expectInput(const QString &text, std::optional<QString> answer);
    /// Expects a file or folder chooser with this title.
    void expectChooser(const QString &title, const QString &answer);
    /// Runs an action while the next expected box is open, before its answer.
    void meanwhile(std::function<void()> action);

    /// Everything that was shown, in order.
    [[nodiscard]] const std::vector<Message> &shown() const { return m_shown; }

    Answer show(const Message &message) override;
    std::optional<QString> input(const QString &text, const QString &title,
                                 const QString &initial) override;
    QString chooseFolder(const QString &title) override;
    QString chooseFile(const QString &title, const QStringList &filters) override;
    QString chooseSaveFile(const QString &title, const QStringList &filters,
                           const QString &suggestedName) override;

private:
    struct Expected
    {
        enum class Kind { Message, Input, Chooser } kind;
        QString text;
        Icon icon = Icon::None;
        Buttons buttons = Buttons::Ok;
        Answer answer = Answer::Ok;
        std::optional<QString> typed;
        std::function<void()> meanwhile;
    };
    std::optional<Expected> next(Expected::Kind kind, const QString &text);

    std::deque<Expected> m_expected;
    std::vector<Message> m_shown;
    std::function<void()> m_meanwhile;
    base::ScopedPrompts m_scope;
};

} // namespace test
