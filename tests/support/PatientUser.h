#pragma once

#include "platform/base/Prompts.h"

#include <functional>

namespace test {

/// Agrees with every box and keeps the texts; chooses no files.
class PatientUser final : public base::Prompts
{
public:
    Answer show(const Message &message) override
    {
        told += message.text + u'\n';
        if (thinks)
            thinks();
        return message.buttons == Buttons::YesNo || message.buttons == Buttons::YesNoCancel
                   ? Answer::Yes
                   : Answer::Ok;
    }
    std::optional<QString> input(const QString &, const QString &, const QString &) override
    {
        return {};
    }
    QString chooseFolder(const QString &) override { return {}; }
    QString chooseFile(const QString &, const QStringList &) override { return {}; }
    QString chooseSaveFile(const QString &, const QStringList &, const QString &) override
    {
        return {};
    }

    QString told;
    std::function<void()> thinks; ///< before each answer

private:
    base::ScopedPrompts m_scope{*this};
};

} // namespace test
