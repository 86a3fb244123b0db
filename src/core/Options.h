#pragma once

#include <QDate>
#include <QString>
#include <QVariant>

/// What is kept for the company, or for a workstation of it, in the table of options. No error
/// crosses one of these procedures: it goes to ErrorHandler, and the default is returned.

/// An option's text, "" when it is missing or the workstation has no GUID. Lookup.
[[nodiscard]] QString GetOption(const QString &Key, bool PerWorkstation);
/// The date that the workstation keeps under an option, Fallback without one. Lookup.
[[nodiscard]] QDate dateOption(const QString &Key, QDate Fallback);
/// Writes an option. One of the workstation's own that another program holds locked keeps its
/// former value, without a word. Lookup.
void SetOption(const QString &Key, const QVariant &Value, bool PerWorkstation);
