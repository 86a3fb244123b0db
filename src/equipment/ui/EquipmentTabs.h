#pragma once

#include <QList>
#include <QWidget>

class QPushButton;

/// The column of buttons that chooses the page of the equipment screen, with the keys Ctrl and a
/// letter. It shows what it is told; a click or key only asks.
class EquipmentTabs final : public QWidget
{
    Q_OBJECT

public:
    static constexpr int Count = 13;

    explicit EquipmentTabs(QWidget *parent = nullptr);

    /// ChangeButtonState: pushes the button of a page.
    void ChangeButtonState(int index);
    /// Marks the button of a page that has something in it, or takes the mark away.
    void setMarked(int index, bool marked);
    [[nodiscard]] bool isMarked(int index) const { return m_marked[index]; }
    [[nodiscard]] QPushButton *button(int index) const { return m_buttons[index]; }
    /// A box of notes, in which Ctrl+D is the stamp of date and time.
    void leaveStampTo(QWidget *noteBox) { m_noteBoxes.append(noteBox); }

Q_SIGNALS:
    /// The user asked for a page.
    void chosen(int index);

protected:
    /// The keys of the pages go ahead of what a text box would make of them, but for cut, copy,
    /// paste and undo in a text that can be changed.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// The page that a key asks for where it was pressed, -1 for none.
    [[nodiscard]] int indexOfKey(const QObject *target, const QEvent *event) const;

    QList<QPushButton *> m_buttons;
    QList<bool> m_marked;
    QList<QWidget *> m_noteBoxes;
};
