#include "platform/base/Prompts.h"

#include <QDebug>
#include <utility>

namespace base {
namespace {

/// Stands in until real prompts exist: a program without a screen must not wait for an answer.
class LogPrompts final : public Prompts
{
public:
    Answer show(const Message &message) override
    {
        qWarning("%s", qUtf8Printable(message.text));
        switch (message.buttons) {
        case Buttons::Ok:
            return Answer::Ok;
        case Buttons::YesNo:
            return Answer::No;
        case Buttons::OkCancel:
        case Buttons::YesNoCancel:
            break;
        }
        return Answer::Cancel;
    }
    std::optional<QString> input(const QString &text, const QString &, const QString &) override
    {
        qWarning("%s", qUtf8Printable(text));
        return std::nullopt;
    }
    QString chooseFolder(const QString &) override { return {}; }
    QString chooseFile(const QString &, const QStringList &) override { return {}; }
    QString chooseSaveFile(const QString &, const QStringList &, const QString &) override
    {
        return {};
    }
};

Prompts *&installed()
{
    static Prompts *prompts = nullptr;
    return prompts;
}

} // namespace

Prompts &prompts()
{
    static LogPrompts log;
    return installed() ? *installed() : log;
}

ScopedPrompts::ScopedPrompts(Prompts &prompts)
    : m_former(std::exchange(installed(), &prompts))
{}

ScopedPrompts::~ScopedPrompts()
{
    installed() = m_former;
}

void showMessage(const QString &text)
{
    prompts().show({text, Prompts::Icon::None, Prompts::Buttons::Ok, {}});
}

void showInformation(const QString &text)
{
    prompts().show({text, Prompts::Icon::Information, Prompts::Buttons::Ok, {}});
}

void showCritical(const QString &text)
{
    prompts().show({text, Prompts::Icon::Critical, Prompts::Buttons::Ok, {}});
}

bool askYesNo(const QString &text, Prompts::Icon icon)
{
    return prompts().show({text, icon, Prompts::Buttons::YesNo, {}}) == Prompts::Answer::Yes;
}

} // namespace base
