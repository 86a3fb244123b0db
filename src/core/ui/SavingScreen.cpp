#include "core/ui/SavingScreen.h"

#include "core/ui/Binding.h"
#include "core/ui/Telling.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"

using namespace Qt::StringLiterals;

std::optional<QVariant> SavingScreen::store()
{
    constexpr int Tries = 10;
    for (int tries = 1;; ++tries) {
        try {
            const base::Whole whole;
            return naming([this] { return saveRecord(); });
        } catch (const record::Conflict &conflict) {
            const base::Interlude asking;
            if (!resolve(conflict))
                return std::nullopt;
        } catch (const base::Error &error) {
            const bool isKeyTaken =
                error.number() == db::ErrorNumber::DuplicateKey && mode() == Mode::Add;
            if (!isKeyTaken || tries >= Tries || !takeFreshKey()) {
                tellError(error, qPrintable(formName()), "cmdUpdate_Click");
                return std::nullopt;
            }
        }
    }
}

QString SavingScreen::heldSentence() const
{
    return u"Another workstation is changing %1. Please try again in a moment."_s.arg(recordName());
}

bool SavingScreen::becomesNew()
{
    if (!base::askYesNo(
            u"Another workstation has deleted %1 or given it another number. What you "
            "typed is still here. Do you want to add it as a new record?"_s.arg(recordName())))
        return false;
    setMode(Mode::Add);
    return true;
}

/// Asks what is to be stored. True when the save is to be tried again.
bool SavingScreen::resolve(const record::Conflict &conflict)
{
    m_isStale = true;
    if (conflict.isGone())
        return becomesNew();
    QStringList lines;
    for (const record::Difference &one : conflict.differences())
        lines.append(told(one));
    const auto answer = base::prompts().show(
        {u"Another workstation has changed %1 meanwhile.\n\n%2\n\nDo you want to store your "
         "values? No shows theirs, and nothing is stored yet."_s.arg(recordName(),
                                                                     lines.join(u'\n')),
         base::Prompts::Icon::Question,
         base::Prompts::Buttons::YesNoCancel,
         {}});
    if (answer == base::Prompts::Answer::Cancel)
        return false;
    const bool keepMine = answer == base::Prompts::Answer::Yes;
    const Displaying displaying(*this);
    for (const record::Difference &one : conflict.differences())
        for (Bindings *binding : std::as_const(m_fields))
            binding->rebase(one.column, one.theirs, keepMine);
    return keepMine;
}

QString SavingScreen::told(const record::Difference &difference) const
{
    for (const Bindings *binding : m_fields)
        if (const QString caption = binding->caption(difference.column); !caption.isEmpty())
            return u"%1: yours \"%2\", theirs \"%3\""_s.arg(
                caption, binding->text(difference.column, difference.mine),
                binding->text(difference.column, difference.theirs));
    return difference.column;
}
