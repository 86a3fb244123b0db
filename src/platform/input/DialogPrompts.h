#pragma once

#include "platform/base/Prompts.h"

namespace input {

/// The prompts made of real dialogs, over the window in use. Every box can be answered by
/// keyboard; Enter gives the most harmless answer (Cancel, else No, else Ok), and so does Escape.
class DialogPrompts final : public base::Prompts
{
public:
    Answer show(const Message &message) override;
    std::optional<QString> input(const QString &text, const QString &title,
                                 const QString &initial) override;
    QString chooseFolder(const QString &title) override;
    QString chooseFile(const QString &title, const QStringList &filters) override;
    QString chooseSaveFile(const QString &title, const QStringList &filters,
                           const QString &suggestedName) override;
};

} // namespace input
