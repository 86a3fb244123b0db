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

    /// What is wrong or not known, with the line and column that the reader stands at.
    [[nodiscard]] QString at(const QString &what) const
    {
        return QStringLiteral("Line %1, column %2: %3.")
            .arg(m_xml.lineNumber())
            .arg(m_xml.columnNumber())
            .arg(what);
    }

    /// Takes the attributes of the element that the reader stands at.
    void beginElement()
    {
        m_attributes.clear();
        for (const QXmlStreamAttribute &attribute : m_xml.attributes())
            m_attributes.insert(attribute.name().toString(), attribute.value().toString());
    }
    /// An attribute's text, which counts as known from now on; nothing when it is not there.
    std::optional<QString> take(QStringView name)
    {
        const QString key = name.toString();
        if (!m_attributes.contains(key))
            return std::nullopt;
        return m_attributes.take(key);
    }
    /// Warns of the attributes that nothing has taken.
    void endAttributes()
    {
        QStringList unknown = m_attributes.keys();
        unknown.sort();
        for (const QString &name : std::as_const(unknown))
            m_warnings.append(
                at(QStringLiteral("\"%1\" of \"%2\" is not known").arg(name, m_xml.name())));
    }
    /// Each of these takes one attribute; without it the target stays as it is.
    void text(QStringView name, QString &target)
    {
        if (const auto value = take(name))
            target = *value;
    }
    /// With its unit, "12.5mm"; into 1/100 mm.
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
    /// "yes" or "no".
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
    /// A size above 0 and up to 1000, such as a font's points.
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
    /// A whole number from 0 on.
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
    /// "#rrggbb" or a colour's name; "none" gives an invalid one.
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
    /// An attribute that an element can't do without.
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
