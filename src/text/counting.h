#pragma once

#include <QStringList>

// A number of things in words: "1 song", "2 songs", "9,999 songs". `one` and `many` are the words for one
// thing and for several.
QString counted(qint64 number, const QString &one, const QString &many);
// The same where the plural ends in s.
QString counted(qint64 number, const QString &one);

// The first `most` of the texts, and how many there are beside them: "a, b, and 3 more".
QString someOf(QStringList texts, qsizetype most, const QString &separator);
