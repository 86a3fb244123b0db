#include "reporting/ui/ExpressionDialog.h"

#include "core/ui/Screen.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"
#include "platform/report/expr/Functions.h"
#include "platform/report/paginate/RecordsetSource.h"
#include "reporting/ExpressionTrial.h"
#include "reporting/ui/ExpressionEditor.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

/// Names that each report knows.
const QStringList Special{u"PageNumber"_s, u"TotalPages"_s, u"RowNumber"_s, u"Today"_s, u"Now"_s};

class ExpressionDialog final : public Screen
{
public:
    ExpressionDialog(const report::ExpressionQuestion &question, const report::Layout &layout,
                     const db::Recordset &rows, QWidget *parent)
        : Screen(u"frmExpression"_s, question.caption, parent, StoreWhat::SizeOnly)
        , m_question(question)
        , m_layout(layout)
        , m_rows(rows)
    {
        for (const report::DesignField &field : question.fields)
            // All fields, also those of further rows: these have no value here, but are no mistake.
            m_known.insert(field.name.toLower());
        buildForm();
        fillNames();
        m_editor->setPlainText(question.text);
        // Who opens the window goes on writing; a selected text would vanish with the first letter.
        m_editor->moveCursor(QTextCursor::End);
        m_editor->setFocus();
        tryIt();
    }

    [[nodiscard]] std::optional<QString> ask()
    {
        showModal();
        return m_isTaken ? std::optional(m_editor->toPlainText().trimmed()) : std::nullopt;
    }

private:
    void buildForm()
    {
        input::FormBuilder form(this);
        form.note(m_question.isWords
                      ? u"Words are printed as they stand; what stands in { } is worked out."_s
                      : u"Fields, numbers, texts in ' ' and functions, joined by + - * / and &."_s);
        form.beginColumns();
        m_editor = new ExpressionEditor(this);
        m_editor->setObjectName(u"txtExpression"_s);
        m_editor->setAccessibleName(m_question.caption);
        m_editor->setWords(m_question.isWords);
        form.widget(m_editor, true);
        m_error = form.note({}, u"lblError"_s);
        m_values = form.note({}, u"lblValues"_s);
        form.nextColumn();
        m_names = new QListWidget(this);
        m_names->setObjectName(u"lstNames"_s);
        m_names->setAccessibleName(u"Names that can be used"_s);
        form.widget(m_names, true);
        form.endColumns();
        auto *take = form.button(u"cmdTake"_s, u"&OK"_s, theme::icon(u"complete"_s));
        auto *cancel = form.button(u"cmdCancel"_s, u"&Cancel"_s, theme::icon(u"cancel"_s));
        form.finish();
        resize(760, 430);
        m_error->setWordWrap(true);
        m_values->setWordWrap(true);
        take->setDefault(true);
        QObject::connect(m_editor, &QPlainTextEdit::textChanged, this, [this] { tryIt(); });
        QObject::connect(m_names, &QListWidget::itemActivated, this,
                         [this](const QListWidgetItem *item) {
                             m_editor->insertName(item->data(Qt::UserRole).toString());
                         });
        QObject::connect(take, &QPushButton::clicked, this, [this] {
            m_isTaken = true;
            unload();
        });
        QObject::connect(cancel, &QPushButton::clicked, this, [this] { reject(); });
    }

    void addNames(const QString &heading, const QStringList &names)
    {
        if (names.isEmpty())
            return;
        auto *title = new QListWidgetItem(heading, m_names);
        // Headings can't be chosen, and the arrow keys pass over them.
        title->setFlags(Qt::NoItemFlags);
        for (const QString &name : names) {
            auto *item = new QListWidgetItem(u"   "_s + name, m_names);
            item->setData(Qt::UserRole, name);
        }
    }

    void fillNames()
    {
        QStringList fields;
        for (const report::DesignField &field : std::as_const(m_question.fields))
            // Columns that the query doesn't give yet come into it by the list of data, not by an
            // expression.
            if (field.isInQuery)
                fields.append(field.name);
        const QStringList functions = report::functionNames();
        addNames(u"Fields"_s, fields);
        addNames(u"Formulas"_s, m_question.formulas);
        addNames(u"Parameters"_s, m_question.parameters);
        addNames(u"Always there"_s, Special);
        addNames(u"Functions"_s, functions);
        m_editor->setNames(fields + m_question.formulas + m_question.parameters + Special,
                           functions);
    }

    /// Told with each letter; OK takes also what is not right yet, as the designer does.
    void tryIt()
    {
        const report::RecordsetSource rows(m_rows);
        const expressions::Trial trial = expressions::tried(
            m_editor->toPlainText(), m_question.isWords, m_layout, rows, m_known);
        m_error->setText(trial.error.isEmpty() ? QString() : u"Not yet right: "_s + trial.error);
        m_values->setText(trial.values.isEmpty()
                              ? QString()
                              : u"In the first rows:\n"_s + trial.values.join(u'\n'));
        m_error->setStyleSheet(u"color: #b00000;"_s);
    }

    report::ExpressionQuestion m_question;
    report::Layout m_layout;
    db::Recordset m_rows;
    QSet<QString> m_known; ///< names of all fields, in lower case
    bool m_isTaken = false;

    ExpressionEditor *m_editor = nullptr;
    QListWidget *m_names = nullptr;
    QLabel *m_error = nullptr;
    QLabel *m_values = nullptr;
};

} // namespace

std::optional<QString> askExpression(const report::ExpressionQuestion &question,
                                     const report::Layout &layout, const db::Recordset &rows,
                                     QWidget *parent)
{
    return ExpressionDialog(question, layout, rows, parent).ask();
}
