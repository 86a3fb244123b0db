#include "exchange/XmlFault.h"

#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace exchange {
namespace {

/// A memo may stand in one line, and the box has to fit on the screen.
constexpr qsizetype LongestSource = 600;

/// A line of a text, from 1, as a parser counts them: parted by carriage returns, line feeds or
/// both.
QString lineOf(const QString &text, qint64 wanted)
{
    qint64 line = 1;
    qsizetype begin = 0;
    for (qsizetype at = 0; at < text.size() && line < wanted; ++at) {
        const bool isReturn = text[at] == u'\r';
        if (!isReturn && text[at] != u'\n')
            continue;
        if (isReturn && at + 1 < text.size() && text[at + 1] == u'\n')
            ++at;
        ++line;
        begin = at + 1;
    }
    qsizetype end = begin;
    while (end < text.size() && text[end] != u'\r' && text[end] != u'\n')
        ++end;
    return text.mid(begin, end - begin);
}

} // namespace

QString XmlFault::text() const
{
    return reason + u"\n\nLINE: "_s + QString::number(line) + u"  "_s + source;
}

XmlFault faultAt(const QXmlStreamReader &reader, const QByteArray &text)
{
    XmlFault fault{reader.errorString(), reader.lineNumber(),
                   lineOf(QString::fromUtf8(text), reader.lineNumber())};
    if (fault.source.size() > LongestSource) {
        const qsizetype begin = std::max<qsizetype>(
            0, std::min<qsizetype>(reader.columnNumber(), fault.source.size()) - LongestSource / 2);
        fault.source = fault.source.mid(begin, LongestSource);
    }
    return fault;
}

std::optional<XmlFault> faultIn(const QByteArray &text)
{
    QXmlStreamReader reader(text);
    while (!reader.atEnd())
        reader.readNext();
    return reader.hasError() ? std::optional(faultAt(reader, text)) : std::nullopt;
}

} // namespace exchange
