#pragma once

#include "platform/report/layout/Words.h"

#include <QHash>
#include <QXmlStreamReader>
#include <cmath>

namespace report {

/// What is wrong in a file that can still be told where.
struct Failure
{
    QString what;
};

/// Reads the attributes of a layout file's elements, each into what it means; what is not taken is
/// told as unknown. Raises Failure.
class AttributeReader
{
protected:
    explicit AttributeReader(const QByteArray &text)
        : m_xml(text)
    {}

    [[nodiscard]] QString at(const QString &what) const
    {
        return QStringLiteral("Line %1, column %2: %3.")
            .arg(m_xml.lineNumber())
            .arg(m_xml.columnNumber())
            .arg(what);
    }

    void beginElement()
    {
        m_attributes.clear();
        for (const QXmlStreamAttribute &attribute : m_xml.attributes())
            m_attributes.insert(attribute.name().toString(), attribute.value().toString());
    }
    std::optional<QString> take(QStringView name)
    {
        const QString key = name.toString();
        if (!m_attributes.contains(key))
            return std::nullopt;
        return m_attributes.take(key);
    }
    void endAttributes()
    {
        QStringList unknown = m_attributes.keys();
        unknown.sort();
        for (const QString &name : std::as_const(unknown))
            m_warnings.append(
                at(QStringLiteral("\"%1\" of \"%2\" is not known").arg(name, m_xml.name())));
    }
    void text(QStringView name, QString &target)
    {
        if (const auto value = take(name))
            target = *value;
    }
    void length(QStringView name, Length &target)
    {
        const auto value = take(name);
        if (!value)
            return;
        const auto length = parseLength(*value);
        if (!length)
            throw Failure{QStringLiteral("\"%1\" is no length, such as \"12.5mm\"").arg(*value)};
        target = *length;
    }
    /// A length that can't be less than nothing.
    void size(QStringView name, Length &target)
    {
        length(name, target);
        if (target < 0)
            throw Failure{QStringLiteral("\"%1\" can't be less than 0").arg(name)};
    }
    void flag(QStringView name, bool &target)
    {
        const auto value = take(name);
        if (!value)
            return;
        if (*value != u"yes" && *value != u"no")
            throw Failure{
                QStringLiteral("\"%1\" is \"yes\" or \"no\", not \"%2\"").arg(name, *value)};
        target = *value == u"yes";
    }
    void number(QStringView name, double &target)
    {
        const auto value = take(name);
        if (!value)
            return;
        bool ok = false;
        target = value->toDouble(&ok);
        if (!ok || !std::isfinite(target) || target <= 0 || target > 1000)
            throw Failure{QStringLiteral("\"%1\" is no size").arg(*value)};
    }
    void count(QStringView name, int &target)
    {
        const auto value = take(name);
        if (!value)
            return;
        bool ok = false;
        target = value->toInt(&ok);
        if (!ok || target < 0)
            throw Failure{QStringLiteral("\"%1\" is no number of things").arg(*value)};
    }
    void color(QStringView name, QColor &target)
    {
        const auto value = take(name);
        if (!value)
            return;
        const QColor parsed = *value == u"none" ? QColor() : QColor(*value);
        if (!parsed.isValid() && *value != u"none")
            throw Failure{QStringLiteral("\"%1\" is no colour, such as \"#24476d\"").arg(*value)};
        target = parsed;
    }
    template<class Kind, std::size_t Count>
    void word(QStringView name, const words::Word<Kind> (&known)[Count], Kind &target)
    {
        const auto value = take(name);
        if (!value)
            return;
        const auto kind = words::kindOf(known, *value);
        if (!kind)
            throw Failure{QStringLiteral("\"%1\" can't be \"%2\"").arg(name, *value)};
        target = *kind;
    }
    QString required(QStringView name)
    {
        const auto value = take(name);
        if (!value || value->isEmpty())
            throw Failure{QStringLiteral("\"%1\" has no \"%2\"").arg(m_xml.name(), name)};
        return *value;
    }

    QXmlStreamReader m_xml;
    QHash<QString, QString> m_attributes;
    QStringList m_warnings;
};

} // namespace report
