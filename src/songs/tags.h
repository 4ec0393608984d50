#pragma once

#include <QStringList>

// The tags of a song are words between blanks. Two that differ in case alone are the same.

// The text with these words added behind it, but for those that it has.
QString withTags(const QString &tags, const QString &added);

// The text without this word, wherever it stands; unchanged where it does not.
QString withoutTag(const QString &tags, const QString &removed);

// All tags of these songs, in the order of a dictionary.
QStringList tagsOf(const QList<int> &records);
