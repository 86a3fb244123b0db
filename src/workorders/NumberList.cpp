#include "workorders/NumberList.h"

#include <QStringList>

QString numberList(const QList<qint64> &numbers, const QString &separator)
{
    QStringList texts;
    for (const qint64 number : numbers)
        texts.append(QString::number(number));
    return texts.join(separator);
}
