#pragma once

#include <QByteArray>
#include <QString>

/// The lines above a mail's text. What would end a line early is refused, since whoever writes a
/// line of his own there decides to whom the mail goes.
namespace mail {

/// Raises base::Error InvalidCall for what is no address of one mailbox: blanks, line breaks,
/// brackets or separators in it, no "@" between two parts.
void requireAddress(const QString &address);
/// The header line "Name: text". Letters beyond ASCII are coded. Raises base::Error InvalidCall for
/// a line break or another control character in the text.
[[nodiscard]] QByteArray textLine(const QByteArray &name, const QString &text);
/// The header line of one mailbox with its display text, which may be blank. Raises for both parts.
[[nodiscard]] QByteArray mailboxLine(const QByteArray &name, const QString &displayText,
                                     const QString &address);

} // namespace mail
