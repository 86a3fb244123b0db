#pragma once

#include <QString>
#include <ostream>

/// Texts are shown as such where an expectation fails; without this they come as numbers, letter by
/// letter. Stands ahead of every test's source, so that all of a program see the same.
inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}
