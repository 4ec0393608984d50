#include "songs/tags.h"

#include "archive/Module1.h"
#include "text/alphabetical.h"

static QStringList wordsOf(const QString &tags)
{
    return tags.split(u' ', Qt::SkipEmptyParts);
}

QString withTags(const QString &tags, const QString &added)
{
    QString result = tags;
    for (const QString &word : wordsOf(added)) {
        if (wordsOf(result).contains(word, Qt::CaseInsensitive))
            continue;
        if (!result.isEmpty() && !result.endsWith(u' '))
            result += u' ';
        result += word;
    }
    return result;
}

QString withoutTag(const QString &tags, const QString &removed)
{
    QStringList words = wordsOf(tags);
    const auto isRemoved = [&](const QString &word) {
        return word.compare(removed, Qt::CaseInsensitive) == 0;
    };
    return words.removeIf(isRemoved) > 0 ? words.join(u' ') : tags;
}

QStringList tagsOf(const QList<int> &records)
{
    QHash<QString, QString> tags;
    for (const int n : records) {
        for (const QString &word : wordsOf(Module1.recTags[static_cast<size_t>(n)])) {
            const QString key = word.toLower();
            if (!tags.contains(key))
                tags.insert(key, word);
        }
    }
    return alphabetical(tags.values());
}
