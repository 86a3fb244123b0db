#pragma once

#include <QString>
#include <QStringList>
#include <memory>
#include <optional>

namespace base {

/// The one door for every message, question, input box and file chooser. Screens and logic ask
/// through prompts(); the program installs the one made of real dialogs, a test one with a script.
class Prompts
{
public:
    enum class Icon { None, Information, Question, Warning, Critical };
    enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };
    enum class Answer { Ok, Cancel, Yes, No };

    struct Message
    {
        QString text;
        Icon icon = Icon::None;
        Buttons buttons = Buttons::Ok;
        /// Empty means the product's name.
        QString title;
    };

    virtual ~Prompts() = default;

    /// Shows a message and waits for its button. Closing the box answers as its most harmless
    /// button does: Cancel, else No, else Ok.
    virtual Answer show(const Message &message) = 0;
    /// Asks for a line of text; nothing when cancelled.
    virtual std::optional<QString> input(const QString &text, const QString &title,
                                         const QString &initial) = 0;
    /// Chooses an existing folder; empty when cancelled.
    virtual QString chooseFolder(const QString &title) = 0;
    /// Chooses an existing file; empty when cancelled. A filter ends in its patterns, "Pictures
    /// (*.bmp *.gif)", which are not shown.
    virtual QString chooseFile(const QString &title, const QStringList &filters) = 0;
    /// Chooses where to write a file; empty when cancelled.
    virtual QString chooseSaveFile(const QString &title, const QStringList &filters,
                                   const QString &suggestedName) = 0;
};

/// The prompts in use. Before any are installed every question gets its most harmless answer and
/// is written to the log.
Prompts &prompts();

/// Installs prompts for as long as it lives, then puts the former ones back.
class ScopedPrompts
{
public:
    explicit ScopedPrompts(Prompts &prompts);
    ~ScopedPrompts();
    ScopedPrompts(const ScopedPrompts &) = delete;
    ScopedPrompts &operator=(const ScopedPrompts &) = delete;

private:
    Prompts *m_former;
};

/// A message without an icon.
void showMessage(const QString &text);
/// A message with the information icon.
void showInformation(const QString &text);
/// A message with the critical icon.
void showCritical(const QString &text);
/// Yes or No; True on Yes.
[[nodiscard]] bool askYesNo(const QString &text, Prompts::Icon icon = Prompts::Icon::Question);

} // namespace base
