#include "support/ScriptedPrompts.h"

#include <gtest/gtest.h>

namespace test {
namespace {

base::Prompts::Answer mostHarmless(base::Prompts::Buttons buttons)
{
    switch (buttons) {
    case base::Prompts::Buttons::Ok:
        return base::Prompts::Answer::Ok;
    case base::Prompts::Buttons::YesNo:
        return base::Prompts::Answer::No;
    case base::Prompts::Buttons::OkCancel:
    case base::Prompts::Buttons::YesNoCancel:
        break;
    }
    return base::Prompts::Answer::Cancel;
}

} // namespace

ScriptedPrompts::ScriptedPrompts()
    : m_scope(*this)
{}

ScriptedPrompts::~ScriptedPrompts()
{
    for (const Expected &expected : m_expected)
        ADD_FAILURE() << "never asked: " << qUtf8Printable(expected.text);
}

void ScriptedPrompts::expect(const QString &text, Icon icon, Buttons buttons, Answer answer)
{
    m_expected.push_back({Expected::Kind::Message, text, icon, buttons, answer, std::nullopt,
                          std::exchange(m_meanwhile, {})});
}

void ScriptedPrompts::expectInput(const QString &text, std::optional<QString> answer)
{
    m_expected.push_back({Expected::Kind::Input, text, Icon::None, Buttons::OkCancel, Answer::Ok,
                          std::move(answer), std::exchange(m_meanwhile, {})});
}

void ScriptedPrompts::expectChooser(const QString &title, const QString &answer)
{
    m_expected.push_back({Expected::Kind::Chooser, title, Icon::None, Buttons::OkCancel, Answer::Ok,
                          answer, std::exchange(m_meanwhile, {})});
}

void ScriptedPrompts::meanwhile(std::function<void()> action)
{
    m_meanwhile = std::move(action);
}

std::optional<ScriptedPrompts::Expected> ScriptedPrompts::next(Expected::Kind kind,
                                                               const QString &text)
{
    if (m_expected.empty() || m_expected.front().kind != kind || m_expected.front().text != text) {
        ADD_FAILURE() << "nobody expected: " << qUtf8Printable(text)
                      << (m_expected.empty()
                              ? std::string()
                              : "\nexpected next: " + m_expected.front().text.toStdString());
        return std::nullopt;
    }
    Expected expected = std::move(m_expected.front());
    m_expected.pop_front();
    if (expected.meanwhile)
        expected.meanwhile();
    return expected;
}

base::Prompts::Answer ScriptedPrompts::show(const Message &message)
{
    m_shown.push_back(message);
    const auto expected = next(Expected::Kind::Message, message.text);
    if (!expected)
        return mostHarmless(message.buttons);
    EXPECT_EQ(static_cast<int>(message.icon), static_cast<int>(expected->icon))
        << "icon of: " << qUtf8Printable(message.text);
    EXPECT_EQ(static_cast<int>(message.buttons), static_cast<int>(expected->buttons))
        << "buttons of: " << qUtf8Printable(message.text);
    return expected->answer;
}

std::optional<QString> ScriptedPrompts::input(const QString &text, const QString &title,
                                              const QString &)
{
    m_shown.push_back({text, Icon::None, Buttons::OkCancel, title});
    const auto expected = next(Expected::Kind::Input, text);
    return expected ? expected->typed : std::nullopt;
}

QString ScriptedPrompts::chooseFolder(const QString &title)
{
    const auto expected = next(Expected::Kind::Chooser, title);
    return expected ? *expected->typed : QString();
}

QString ScriptedPrompts::chooseFile(const QString &title, const QStringList &)
{
    return chooseFolder(title);
}

QString ScriptedPrompts::chooseSaveFile(const QString &title, const QStringList &, const QString &)
{
    return chooseFolder(title);
}

} // namespace test
