#pragma once

#include <QComboBox>
#include <QElapsedTimer>
#include <QHash>

namespace input {

/// A list to choose from whose items carry the ids of rows. Typing moves to the next item that
/// begins with what was typed, one letter again and again through all that begin with it. A wheel
/// turned over it changes nothing unless it has the focus.
class IdCombo : public QComboBox
{
    Q_OBJECT

public:
    explicit IdCombo(QWidget *parent = nullptr);

    /// Takes all items out; an id that could not be shown is forgotten too.
    void clear();
    void add(const QString &text, qint64 id);
    /// Adds items that carry no id.
    void add(const QStringList &texts);
    /// The id of the item shown, or the one that display() could not show; 0 without one.
    [[nodiscard]] qint64 id() const;
    /// True when the item shown is one of the list, and not the blank one.
    [[nodiscard]] bool isItemChosen() const;
    /// Shows the item with this id. Without one (it was deleted, or the list is not whole) the list
    /// shows its blank item and keeps the id until another item is chosen, so that what can't be
    /// shown is not lost; False then.
    bool display(qint64 id);
    /// Shows the item with this id; False, and nothing changes, when there is none.
    bool select(qint64 id);
    /// Shows the item with this text, without regard to case; False when there is none.
    bool selectText(const QString &text);
    /// From text to id as text; of like texts the first.
    [[nodiscard]] const QHash<QString, QString> &collection() const { return m_collection; }

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    bool isLetterAgain(const QString &letter);
    void chooseNext(const QString &beginning);

    QHash<QString, QString> m_collection;
    qint64 m_unlisted = 0; ///< what display() could not show
    QString m_typed;       ///< within one pause of typing
    QElapsedTimer m_sinceTyped;
};

} // namespace input
