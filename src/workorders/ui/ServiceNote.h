#pragma once

#include <QObject>
#include <QString>
#include <QVariant>
#include <functional>
#include <optional>

class QPlainTextEdit;

/// The note of the service on whose row a grid stands: shown, edited, and written when the box is
/// left. Locked without a row.
class ServiceNote final : public QObject
{
    Q_OBJECT

public:
    /// Writes the note of a service over what was shown of it; nothing: over whatever it is. False
    /// when that failed, and the box then keeps the focus. Raises record::Conflict when another
    /// workstation has changed the note meanwhile.
    using Write = std::function<bool(qint64 service, const QString &note,
                                     const std::optional<QVariant> &shown)>;
    /// False when a note can't stand as it is, changed or not, which the rule has told; the box
    /// then keeps the focus.
    using MayStand = std::function<bool(qint64 service, const QString &note)>;

    ServiceNote(QPlainTextEdit *box, Write write, MayStand mayStand = {});

    /// Shows the note of a service, of none for 0.
    void show(qint64 service, const QString &note);
    /// Writes what was changed, where the box is left without its focus going: the screen is
    /// closed, or a key presses a button. False when it was refused; the box then has the focus.
    [[nodiscard]] bool leave();

private:
    bool store();
    [[nodiscard]] QString text() const;

    QPlainTextEdit *m_box;
    Write m_write;
    MayStand m_mayStand;
    qint64 m_service = 0;
    QString m_shown;
};
