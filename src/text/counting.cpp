#include "text/counting.h"

#include <QLocale>

QString counted(qint64 number, const QString &one, const QString &many)
{
    static const QLocale english(QLocale::English);
    return english.toString(number) + ' ' + (number == 1 ? one : many);
}

QString counted(qint64 number, const QString &one)
{
    return counted(number, one, one + 's');
}

QString someOf(QStringList texts, qsizetype most, const QString &separator)
{
    const qsizetype more = texts.size() - most;
    if (more > 0)
        texts = texts.first(most) << QStringLiteral("and %1 more").arg(more);
    return texts.join(separator);
}
