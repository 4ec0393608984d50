#include "playlists/song_list.h"

#include "archive/Module1.h"

#include <algorithm>
#include <utility>

void SongList::add(const QString &number)
{
    songCount += 1;
    songEntry[static_cast<size_t>(songCount)] = number;
}

void SongList::swapWithNext(int k)
{
    const auto slot = static_cast<size_t>(k);
    std::swap(songEntry[slot], songEntry[slot + 1]);
}

void SongList::remove(int k)
{
    const auto slot = songEntry.begin() + k;
    std::move(slot + 1, songEntry.end(), slot);
    songEntry.back().clear();
    songCount -= 1;
}

void SongList::empty()
{
    std::fill_n(songEntry.begin() + 1, songCount, QString());
    songCount = 0;
}

QString SongList::text() const
{
    QString songs;
    for (size_t k = 1; k <= static_cast<size_t>(songCount); k += 1)
        songs += songEntry[k] + ',';
    return songs + '#';
}

QList<int> decodeSongList(const QString &songs)
{
    QList<int> numbers;
    QList<QStringView> pieces = QStringView(songs).split(u',');
    pieces.removeLast();
    for (const QStringView piece : pieces) {
        bool isNumber = false;
        const int number = piece.toInt(&isNumber);
        if (isNumber && number >= 0 && number <= Module1State::lastRecord)
            numbers += number;
    }
    return numbers;
}
