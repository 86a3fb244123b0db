#include "platform/input/KeyFilter.h"

#include "platform/base/Format.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QList>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace input {
namespace {

struct Range
{
    int first;
    int last;
};

bool within(int code, std::initializer_list<Range> ranges)
{
    return std::ranges::any_of(
        ranges, [code](Range range) { return code >= range.first && code <= range.last; });
}

/// Codes of characters: letters, digits, the point (46), backspace (8) and Enter (13).
bool passesPress(int code, TypeCheck type)
{
    switch (type) {
    case TypeCheck::String:
        return within(code, {{65, 90}, {97, 122}, {32, 32}, {8, 8}, {13, 13}});
    case TypeCheck::Int:
        return within(code, {{48, 57}, {8, 8}, {13, 13}});
    case TypeCheck::Double:
        return within(code, {{48, 57}, {8, 8}, {13, 13}, {46, 46}});
    }
    return false;
}

/// Codes of keys: caret keys, function keys and locks pass besides the type's own.
bool passesKey(int code, TypeCheck type)
{
    switch (type) {
    case TypeCheck::String:
        return within(code, {{65, 90},
                             {8, 9},
                             {12, 13},
                             {16, 20},
                             {32, 40},
                             {27, 27},
                             {44, 46},
                             {92, 93},
                             {112, 123},
                             {144, 145}});
    case TypeCheck::Int:
        return within(code, {{48, 57},
                             {96, 105},
                             {8, 8},
                             {12, 13},
                             {16, 20},
                             {33, 40},
                             {27, 27},
                             {44, 46},
                             {92, 93},
                             {112, 123},
                             {144, 145}});
    case TypeCheck::Double:
        return within(code, {{48, 57}, {8, 8}, {13, 13}, {46, 46}});
    }
    return false;
}

/// The value that a text names: by its word in any case, or by its place among them, from "0".
template<class Value>
std::optional<Value> meant(QStringView text,
                           std::initializer_list<std::pair<QStringView, Value>> words)
{
    int place = 0;
    for (const auto &[word, value] : words) {
        if (text.compare(word, Qt::CaseInsensitive) == 0 || text == QString::number(place++))
            return value;
    }
    return std::nullopt;
}

/// What one rule makes of an inserted part; rest is the text around it.
using Rule = std::function<QString(const QString &inserted, const QString &rest)>;

/// Follows what the user puts into a box and applies the box's rules to just that part, so that
/// stored text with other characters, which the program has set, is not touched. One for each box,
/// since every rule must see what the others have left.
class InsertionFilter : public QObject
{
public:
    static void addRule(QLineEdit *edit, Rule rule)
    {
        const QString name = QStringLiteral("insertionFilter");
        auto *filter = static_cast<InsertionFilter *>(
            edit->findChild<QObject *>(name, Qt::FindDirectChildrenOnly));
        if (!filter) {
            filter = new InsertionFilter(edit);
            filter->setObjectName(name);
        }
        filter->m_rules.push_back(std::move(rule));
    }

private:
    explicit InsertionFilter(QLineEdit *edit)
        : QObject(edit)
        , m_edit(edit)
        , m_former(edit->text())
    {
        edit->installEventFilter(this);
        // An edit is announced before the change of text, which is when m_former is still needed.
        connect(edit, &QLineEdit::textEdited, this, &InsertionFilter::mend);
        connect(edit, &QLineEdit::textChanged, this, [this] { m_former = m_edit->text(); });
    }

    [[nodiscard]] QString ruled(QString inserted, const QString &rest) const
    {
        for (const Rule &rule : m_rules)
            inserted = rule(inserted, rest);
        return inserted;
    }

    /// Deals with a typed character before the box sees it, which keeps the box's undo whole.
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched != m_edit || event->type() != QEvent::KeyPress || m_edit->isReadOnly())
            return QObject::eventFilter(watched, event);
        const auto *key = static_cast<QKeyEvent *>(event);
        // Shortcuts and keys that put nothing in are none of the rules' business.
        const auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
        if (key->modifiers() & commands || key->text().size() != 1 ||
            !key->text().front().isPrint())
            return QObject::eventFilter(watched, event);
        QString rest = m_edit->text();
        if (m_edit->hasSelectedText())
            rest.remove(m_edit->selectionStart(), int(m_edit->selectedText().size()));
        const QString better = ruled(key->text(), rest);
        // The box types it itself, which also knows of overwriting and of the longest length.
        if (better == key->text())
            return QObject::eventFilter(watched, event);
        // A key that is refused is swallowed without a sound, as a locked box does it.
        if (!better.isEmpty())
            m_edit->insert(better);
        return true;
    }

    void mend(const QString &text)
    {
        // The inserted part lies between what the text before and after have in common.
        const auto common = std::min(text.size(), m_former.size());
        qsizetype head = 0;
        while (head < common && text[head] == m_former[head])
            ++head;
        qsizetype tail = 0;
        while (tail < common - head &&
               text[text.size() - 1 - tail] == m_former[m_former.size() - 1 - tail])
            ++tail;
        const QString inserted = text.mid(head, text.size() - head - tail);
        const QString better = ruled(inserted, text.left(head) + text.right(tail));
        if (better == inserted)
            return;
        // What a rule has changed can't be undone: the box would bring the refused text back.
        m_edit->setText(text.left(head) + better + text.right(tail));
        m_edit->setCursorPosition(int(head + better.size()));
    }

    QLineEdit *m_edit;
    QString m_former;
    std::vector<Rule> m_rules;
};

Rule restriction(const QList<TypeCheck> &types, const QString &alsoAllowed)
{
    return [types, alsoAllowed](const QString &inserted, const QString &rest) {
        QString result;
        for (const QChar character : inserted) {
            // A number with two points is none, though each of its keys passes.
            const bool secondPoint =
                character == u'.' && (rest.contains(u'.') || result.contains(u'.'));
            const bool passes = !secondPoint && std::ranges::any_of(types, [&](TypeCheck type) {
                return Type_Check(character.unicode(), type, KeyEvent::KeyPress);
            });
            if (passes || alsoAllowed.contains(character))
                result += character;
        }
        return result;
    };
}

QString capitals(QString inserted, const QString &)
{
    for (QChar &character : inserted)
        character = QChar(ChangeCase(character.unicode()));
    return inserted;
}

/// Menus take their letters from the key itself; all others get them through shortcuts.
class AltFilter final : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::KeyPress || !watched->isWidgetType() ||
            qobject_cast<QMenu *>(watched) || qobject_cast<QMenuBar *>(watched))
            return QObject::eventFilter(watched, event);
        const auto &key = *static_cast<QKeyEvent *>(event);
        // AltGr, which comes as Ctrl and Alt, types characters on many keyboards.
        const bool alone = (key.modifiers() & ~Qt::ShiftModifier) == Qt::AltModifier;
        return alone && !key.text().isEmpty() && key.text().front().isPrint();
    }
};

} // namespace

bool Type_Check(int keyCode, TypeCheck type, KeyEvent event)
{
    return event == KeyEvent::KeyPress ? passesPress(keyCode, type) : passesKey(keyCode, type);
}

bool Type_Check(int keyCode, QStringView type, QStringView event)
{
    const auto typeCheck = meant<TypeCheck>(
        type,
        {{u"STRING", TypeCheck::String}, {u"INT", TypeCheck::Int}, {u"DOUBLE", TypeCheck::Double}});
    const auto keyEvent = meant<KeyEvent>(event, {{u"KEYUP", KeyEvent::KeyUp},
                                                  {u"KEYDOWN", KeyEvent::KeyDown},
                                                  {u"KEYPRESS", KeyEvent::KeyPress}});
    return typeCheck && keyEvent && Type_Check(keyCode, *typeCheck, *keyEvent);
}

int ChangeCase(int keyCode)
{
    return keyCode >= 'a' && keyCode <= 'z' ? keyCode - 32 : keyCode;
}

void restrictTo(QLineEdit *edit, TypeCheck type, const QString &alsoAllowed)
{
    InsertionFilter::addRule(edit, restriction({type}, alsoAllowed));
}

void restrictTo(QLineEdit *edit, TypeCheck type, TypeCheck orType, const QString &alsoAllowed)
{
    InsertionFilter::addRule(edit, restriction({type, orType}, alsoAllowed));
}

void upperCaseAsTyped(QLineEdit *edit)
{
    InsertionFilter::addRule(edit, capitals);
}

void keepOnOneLine(QLineEdit *edit)
{
    InsertionFilter::addRule(
        edit, [](const QString &inserted, const QString &) { return base::onOneLine(inserted); });
}

void keepAltFromTyping(QApplication &application)
{
    // At the application, so that it is asked before each control.
    application.installEventFilter(new AltFilter(&application));
}

} // namespace input
