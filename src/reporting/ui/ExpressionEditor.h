#pragma once

#include <QPlainTextEdit>
#include <QStringList>

class QCompleter;

/// A box for an expression: coloured as it is read, with an offer of names while one is typed. Ctrl
/// and blank offers them all.
class ExpressionEditor final : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit ExpressionEditor(QWidget *parent = nullptr);

    /// What is offered; names with blanks are put in brackets, functions get their parenthesis.
    void setNames(const QStringList &fields, const QStringList &functions);
    /// Words with expressions in braces.
    void setWords(bool isWords);
    /// Puts a name in at the cursor.
    void insertName(const QString &name);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    class Colours;

    /// What has been typed of a name, up to the cursor.
    [[nodiscard]] QString wordBefore() const;
    /// Shows the names that have in them what was typed; all also without a beginning.
    void offer(bool all);
    void complete(const QString &name);

    QCompleter *m_completer;
    Colours *m_colours;
    QStringList m_functions;
};
