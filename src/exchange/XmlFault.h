#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

class QXmlStreamReader;

namespace exchange {

/// Why a text is no XML, and where.
struct XmlFault
{
    QString reason;
    qint64 line = 0; ///< from 1
    QString source;  ///< the line's text

    /// What a user is told of it.
    [[nodiscard]] QString text() const;
};

/// The fault at which a reader of this text, in UTF-8 or nearly so, has stopped.
[[nodiscard]] XmlFault faultAt(const QXmlStreamReader &reader, const QByteArray &text);
/// The first fault of a text in UTF-8; nothing when it is well-formed.
[[nodiscard]] std::optional<XmlFault> faultIn(const QByteArray &text);

} // namespace exchange
