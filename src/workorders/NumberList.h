#pragma once

#include <QList>
#include <QString>

/// Numbers as a text: "3,5,8".
[[nodiscard]] QString numberList(const QList<qint64> &numbers,
                                 const QString &separator = QStringLiteral(","));
