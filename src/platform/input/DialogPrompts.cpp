#include "platform/input/DialogPrompts.h"

#include "platform/base/Trapped.h"
#include "platform/input/Theme.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

namespace input {
namespace {

QString titleOr(const QString &title)
{
    return title.isEmpty() ? QStringLiteral("Quorvantis") : title;
}

/// The box belongs to the dialog that is open, or else the window in front: only then does it stand
/// before it and lock it.
QWidget *owner()
{
    QWidget *modal = QApplication::activeModalWidget();
    return modal ? modal : QApplication::activeWindow();
}

QMessageBox::Icon boxIcon(base::Prompts::Icon icon)
{
    switch (icon) {
    case base::Prompts::Icon::Information:
        return QMessageBox::Information;
    case base::Prompts::Icon::Question:
        return QMessageBox::Question;
    case base::Prompts::Icon::Warning:
        return QMessageBox::Warning;
    case base::Prompts::Icon::Critical:
        return QMessageBox::Critical;
    case base::Prompts::Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

struct Offer
{
    QMessageBox::StandardButtons buttons;
    /// What Enter and Escape choose.
    QMessageBox::StandardButton harmless;
};

Offer offer(base::Prompts::Buttons buttons)
{
    switch (buttons) {
    case base::Prompts::Buttons::OkCancel:
        return {QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel};
    case base::Prompts::Buttons::YesNo:
        return {QMessageBox::Yes | QMessageBox::No, QMessageBox::No};
    case base::Prompts::Buttons::YesNoCancel:
        return {QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Cancel};
    case base::Prompts::Buttons::Ok:
        break;
    }
    return {QMessageBox::Ok, QMessageBox::Ok};
}

base::Prompts::Answer answerOf(int button)
{
    switch (button) {
    case QMessageBox::Yes:
        return base::Prompts::Answer::Yes;
    case QMessageBox::No:
        return base::Prompts::Answer::No;
    case QMessageBox::Ok:
        return base::Prompts::Answer::Ok;
    default:
        return base::Prompts::Answer::Cancel;
    }
}

/// A box in the midst of a long step is to be answered, so the pointer doesn't say to wait.
class AskingPointer
{
public:
    AskingPointer()
        : m_waiting(QGuiApplication::overrideCursor() != nullptr)
    {
        if (m_waiting)
            QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    ~AskingPointer()
    {
        if (m_waiting)
            QGuiApplication::restoreOverrideCursor();
    }
    AskingPointer(const AskingPointer &) = delete;
    AskingPointer &operator=(const AskingPointer &) = delete;

private:
    bool m_waiting;
};

} // namespace

base::Prompts::Answer DialogPrompts::show(const Message &message)
{
    const Offer offered = offer(message.buttons);
    QMessageBox box(boxIcon(message.icon), titleOr(message.title), message.text, offered.buttons,
                    owner());
    box.setObjectName(QStringLiteral("messageBox"));
    // Texts hold names that users typed; nothing in them is markup.
    box.setTextFormat(Qt::PlainText);
    // A user who types on while the box comes up must not delete anything.
    box.setDefaultButton(offered.harmless);
    box.setEscapeButton(offered.harmless);
    box.setFont(theme::listFont());
    // The toolkit's captions go by the desktop's language and keys, the program's texts don't.
    if (auto *yes = box.button(QMessageBox::Yes))
        yes->setText(QStringLiteral("&Yes"));
    if (auto *no = box.button(QMessageBox::No))
        no->setText(QStringLiteral("&No"));
    // Other windows go on living behind the box.
    const base::Interlude interlude;
    const AskingPointer pointer;
    return answerOf(box.exec());
}

std::optional<QString> DialogPrompts::input(const QString &text, const QString &title,
                                            const QString &initial)
{
    QInputDialog dialog(owner());
    dialog.setObjectName(QStringLiteral("inputBox"));
    dialog.setWindowTitle(titleOr(title));
    dialog.setInputMode(QInputDialog::TextInput);
    dialog.setLabelText(text);
    dialog.setTextValue(initial);
    dialog.setFont(theme::listFont());
    // Wide enough for a sentence.
    dialog.resize(dialog.sizeHint().expandedTo({380, 0}));
    const base::Interlude interlude;
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.textValue();
}

QString DialogPrompts::chooseFolder(const QString &title)
{
    return QFileDialog::getExistingDirectory(owner(), titleOr(title));
}

QString DialogPrompts::chooseFile(const QString &title, const QStringList &filters)
{
    return QFileDialog::getOpenFileName(owner(), titleOr(title), {},
                                        filters.join(QStringLiteral(";;")), nullptr,
                                        QFileDialog::HideNameFilterDetails);
}

QString DialogPrompts::chooseSaveFile(const QString &title, const QStringList &filters,
                                      const QString &suggestedName)
{
    return QFileDialog::getSaveFileName(owner(), titleOr(title), suggestedName,
                                        filters.join(QStringLiteral(";;")));
}

} // namespace input
