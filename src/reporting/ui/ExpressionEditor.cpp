#include "reporting/ui/ExpressionEditor.h"

#include "platform/report/designer/Fields.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QScrollBar>
#include <QStringListModel>
#include <QSyntaxHighlighter>

using namespace Qt::StringLiterals;

namespace {

/// A single letter would offer half of all names.
constexpr qsizetype LettersForOffer = 2;

} // namespace

/// Paints texts, numbers, dates, names in brackets and functions each in its colour.
class ExpressionEditor::Colours final : public QSyntaxHighlighter
{
public:
    explicit Colours(QTextDocument *document)
        : QSyntaxHighlighter(document)
    {}
    void setFunctions(const QStringList &functions)
    {
        m_functions = functions;
        rehighlight();
    }
    void setWords(bool isWords)
    {
        m_isWords = isWords;
        rehighlight();
    }

protected:
    void highlightBlock(const QString &text) override
    {
        static const QRegularExpression token(
            u"(?<text>'[^']*'?|\"[^\"]*\"?)|(?<date>#[^#]*#?)|(?<name>\\[[^\\]]*\\]?)|"
            "(?<number>\\b\\d+(?:\\.\\d+)?\\b)|(?<call>\\b\\w+)\\s*(?=\\()|"
            "(?<word>\\b(?:and|or|not|mod|true|false|null)\\b)"_s,
            QRegularExpression::CaseInsensitiveOption);
        const qsizetype length = text.size();
        // Of words only what stands in braces is an expression.
        for (qsizetype from = 0; from < length;) {
            const qsizetype open = m_isWords ? text.indexOf(u'{', from) : from;
            if (open < 0)
                return;
            const qsizetype close = m_isWords ? text.indexOf(u'}', open) : length;
            // Open at the end while it is typed: what follows is coloured as if the brace stood
            // there.
            const qsizetype end = close < 0 ? length : close;
            for (auto matches = token.globalMatch(QStringView(text).sliced(open, end - open));
                 matches.hasNext();)
                paint(matches.next(), open);
            from = end + 1;
        }
    }

private:
    void paint(const QRegularExpressionMatch &match, qsizetype offset)
    {
        struct Colour
        {
            QString group;
            QColor color;
            bool bold;
        };
        static const Colour colours[] = {{u"text"_s, QColor(0x2e, 0x6e, 0x34), false},
                                         {u"date"_s, QColor(0x8a, 0x4a, 0x00), false},
                                         {u"name"_s, QColor(0x24, 0x47, 0x6d), true},
                                         {u"number"_s, QColor(0x8a, 0x4a, 0x00), false},
                                         {u"call"_s, QColor(0x6a, 0x2c, 0x91), true},
                                         {u"word"_s, QColor(0x6a, 0x2c, 0x91), false}};
        for (const Colour &colour : colours) {
            const QString found = match.captured(colour.group);
            if (found.isEmpty())
                continue;
            // A word before a parenthesis that is no function stays plain, which shows the
            // misspelling.
            if (colour.group == u"call"_s && !m_functions.contains(found, Qt::CaseInsensitive))
                continue;
            QTextCharFormat format;
            format.setForeground(colour.color);
            format.setFontWeight(colour.bold ? QFont::Bold : QFont::Normal);
            setFormat(static_cast<int>(match.capturedStart(colour.group) + offset),
                      static_cast<int>(found.size()), format);
        }
    }

    QStringList m_functions;
    bool m_isWords = false;
};

ExpressionEditor::ExpressionEditor(QWidget *parent)
    : QPlainTextEdit(parent)
    , m_completer(new QCompleter(this))
    , m_colours(new Colours(document()))
{
    // An expression has no tabulators, and the keyboard has to get out of the box.
    setTabChangesFocus(true);
    m_completer->setWidget(this);
    m_completer->setCaseSensitivity(Qt::CaseInsensitive);
    // "cost" finds "Labor Cost" too: users know what a field is about rather than how its name
    // begins.
    m_completer->setFilterMode(Qt::MatchContains);
    m_completer->setCompletionMode(QCompleter::PopupCompletion);
    connect(m_completer, qOverload<const QString &>(&QCompleter::activated), this,
            &ExpressionEditor::complete);
}

void ExpressionEditor::setNames(const QStringList &fields, const QStringList &functions)
{
    m_functions = functions;
    m_colours->setFunctions(functions);
    QStringList all = fields + functions;
    all.sort(Qt::CaseInsensitive);
    m_completer->setModel(new QStringListModel(all, m_completer));
}

void ExpressionEditor::setWords(bool isWords)
{
    m_colours->setWords(isWords);
}

QString ExpressionEditor::wordBefore() const
{
    static const QRegularExpression word(u"\\w+$"_s);
    const QTextCursor cursor = textCursor();
    return word.match(cursor.block().text().first(cursor.positionInBlock())).captured();
}

void ExpressionEditor::offer(bool all)
{
    const QString word = wordBefore();
    if (!all && word.size() < LettersForOffer) {
        m_completer->popup()->hide();
        return;
    }
    m_completer->setCompletionPrefix(word);
    QAbstractItemView *popup = m_completer->popup();
    // A name that is whole needs no offer.
    if (m_completer->completionCount() == 0 ||
        (m_completer->completionCount() == 1 &&
         m_completer->currentCompletion().compare(word, Qt::CaseInsensitive) == 0)) {
        popup->hide();
        return;
    }
    popup->setCurrentIndex(m_completer->completionModel()->index(0, 0));
    QRect place = cursorRect();
    // The list is as wide as its longest name; the toolkit would make it as wide as the cursor.
    place.setWidth(popup->sizeHintForColumn(0) + popup->verticalScrollBar()->sizeHint().width());
    m_completer->complete(place);
}

/// What was typed of the name gives way to all of it.
void ExpressionEditor::complete(const QString &name)
{
    QTextCursor cursor = textCursor();
    cursor.movePosition(QTextCursor::Left, QTextCursor::KeepAnchor,
                        static_cast<int>(wordBefore().size()));
    cursor.removeSelectedText();
    setTextCursor(cursor);
    insertName(name);
}

void ExpressionEditor::insertName(const QString &name)
{
    QTextCursor cursor = textCursor();
    if (m_functions.contains(name)) {
        cursor.insertText(name + u"()"_s);
        // Between the parentheses, where the arguments go.
        cursor.movePosition(QTextCursor::Left);
        setTextCursor(cursor);
    } else {
        cursor.insertText(report::fieldExpression(name));
    }
    setFocus();
}

void ExpressionEditor::keyPressEvent(QKeyEvent *event)
{
    const bool isOpen = m_completer->popup()->isVisible();
    if (isOpen) {
        switch (event->key()) {
        case Qt::Key_Enter:
        case Qt::Key_Return:
        case Qt::Key_Escape:
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            event->ignore(); // the list takes them
            return;
        default:
            break;
        }
    }
    if (event->key() == Qt::Key_Space && event->modifiers() == Qt::ControlModifier) {
        offer(true);
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
    // Only letters open the offer: arrows and Delete also pass here, and it would be in their way.
    if (!event->text().isEmpty() && event->text().at(0).isPrint())
        offer(false);
    else if (isOpen)
        m_completer->popup()->hide();
}
