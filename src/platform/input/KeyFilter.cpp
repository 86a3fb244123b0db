#include "platform/input/KeyFilter.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QList>
#include <algorithm>
#include <optional>
#include <utility>

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

bool isWord(QStringView text, QStringView word, char16_t number)
{
    return text.compare(word, Qt::CaseInsensitive) == 0 ||
           (text.size() == 1 && text.front() == QChar(number));
}

/// Follows what the user puts into a box and mends just that part, so that stored text with other
/// characters, which the program has set, is not touched.
class InsertionFilter : public QObject
{
public:
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

protected:
    /// What is to stand for an inserted part; rest is the text around it.
    [[nodiscard]] virtual QString mended(const QString &inserted, const QString &rest) const = 0;
    /// Called before a character is typed; True when it has been dealt with.
    virtual bool typed(QChar character) = 0;
    [[nodiscard]] QLineEdit *edit() const { return m_edit; }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched == m_edit && event->type() == QEvent::KeyPress && !m_edit->isReadOnly()) {
            const auto *key = static_cast<QKeyEvent *>(event);
            const auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
            if (!(key->modifiers() & commands) && key->text().size() == 1 &&
                key->text().front().isPrint())
                return typed(key->text().front());
        }
        return QObject::eventFilter(watched, event);
    }

private:
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
        const QString rest = text.left(head) + text.right(tail);
        const QString better = mended(inserted, rest);
        if (better == inserted)
            return;
        m_edit->setText(text.left(head) + better + text.right(tail));
        m_edit->setCursorPosition(int(head + better.size()));
    }

    QLineEdit *m_edit;
    QString m_former;
};

class Restriction final : public InsertionFilter
{
public:
    Restriction(QLineEdit *edit, QList<TypeCheck> types, QString alsoAllowed)
        : InsertionFilter(edit)
        , m_types(std::move(types))
        , m_alsoAllowed(std::move(alsoAllowed))
    {}

private:
    [[nodiscard]] bool passes(QChar character, const QString &rest) const
    {
        if (m_alsoAllowed.contains(character))
            return true;
        // A number with two points is none, though each of its keys passes.
        if (character == u'.' && rest.contains(u'.'))
            return false;
        return std::ranges::any_of(m_types, [character](TypeCheck type) {
            return Type_Check(character.unicode(), type, KeyEvent::KeyPress);
        });
    }
    [[nodiscard]] QString mended(const QString &inserted, const QString &rest) const override
    {
        QString result;
        for (const QChar character : inserted) {
            if (passes(character, rest + result))
                result += character;
        }
        return result;
    }
    bool typed(QChar character) override
    {
        QString rest = edit()->text();
        if (edit()->hasSelectedText())
            rest.remove(edit()->selectionStart(), edit()->selectionLength());
        return !passes(character, rest);
    }

    QList<TypeCheck> m_types;
    QString m_alsoAllowed;
};

class Capitals final : public InsertionFilter
{
public:
    using InsertionFilter::InsertionFilter;

private:
    [[nodiscard]] QString mended(const QString &inserted, const QString &) const override
    {
        QString result = inserted;
        for (QChar &character : result)
            character = QChar(ChangeCase(character.unicode()));
        return result;
    }
    bool typed(QChar character) override
    {
        const QChar capital(ChangeCase(character.unicode()));
        if (capital == character)
            return false;
        edit()->insert(capital);
        return true;
    }
};

} // namespace

bool Type_Check(int keyCode, TypeCheck type, KeyEvent event)
{
    return event == KeyEvent::KeyPress ? passesPress(keyCode, type) : passesKey(keyCode, type);
}

bool Type_Check(int keyCode, QStringView type, QStringView event)
{
    std::optional<TypeCheck> typeCheck;
    if (isWord(type, u"STRING", u'0'))
        typeCheck = TypeCheck::String;
    else if (isWord(type, u"INT", u'1'))
        typeCheck = TypeCheck::Int;
    else if (isWord(type, u"DOUBLE", u'2'))
        typeCheck = TypeCheck::Double;

    std::optional<KeyEvent> keyEvent;
    if (isWord(event, u"KEYUP", u'0'))
        keyEvent = KeyEvent::KeyUp;
    else if (isWord(event, u"KEYDOWN", u'1'))
        keyEvent = KeyEvent::KeyDown;
    else if (isWord(event, u"KEYPRESS", u'2'))
        keyEvent = KeyEvent::KeyPress;

    return typeCheck && keyEvent && Type_Check(keyCode, *typeCheck, *keyEvent);
}

int ChangeCase(int keyCode)
{
    return keyCode >= 'a' && keyCode <= 'z' ? keyCode - 32 : keyCode;
}

void restrictTo(QLineEdit *edit, TypeCheck type, const QString &alsoAllowed)
{
    new Restriction(edit, {type}, alsoAllowed);
}

void restrictTo(QLineEdit *edit, TypeCheck type, TypeCheck orType, const QString &alsoAllowed)
{
    new Restriction(edit, {type, orType}, alsoAllowed);
}

void upperCaseAsTyped(QLineEdit *edit)
{
    new Capitals(edit);
}

} // namespace input
