#include "songs/song_columns.h"

#include "audio/categories_file.h"
#include "songs/songs_on_disk.h"

QString nameOf(SongColumn column)
{
    static const QString names[songColumns] = {"No.",  "Title", "Author",    "Tags", "Category",
                                               "Left", "Right", "Recording", "MIDI", "Playlists"};
    return names[static_cast<size_t>(column)];
}

std::optional<Field> fieldOf(SongColumn column)
{
    switch (column) {
    case SongColumn::Title:
        return Field::Title;
    case SongColumn::Author:
        return Field::Author;
    case SongColumn::Tags:
        return Field::Tags;
    default:
        return {};
    }
}

int categoryOf(int n)
{
    const int number = Module1.recCategory[static_cast<size_t>(n)].toInt();
    return number >= 1 && number <= categoryCount ? number : 0;
}

QString shownCategory(int n)
{
    if (const int number = categoryOf(n))
        return Module1.categoryName[static_cast<size_t>(number)];
    const QString &text = Module1.recCategory[static_cast<size_t>(n)];
    return text == u"0" ? QString() : text;
}

bool isText(SongColumn column)
{
    return column == SongColumn::Category || fieldOf(column);
}

bool isTick(SongColumn column)
{
    return !isText(column) && column != SongColumn::Number && column != SongColumn::Playlists;
}

int rankOf(SongColumn column, int n, const SongsOnDisk &disk)
{
    switch (column) {
    case SongColumn::Number:
        return n;
    case SongColumn::Left:
        return disk.hasLeftPage(n) ? 1 : 0;
    case SongColumn::Right:
        return disk.hasRightPage(n) ? 1 : 0;
    case SongColumn::Recording:
        return disk.hasRecording(n) ? 1 : 0;
    case SongColumn::Midi:
        return disk.hasMidi(n) ? 1 : 0;
    case SongColumn::Playlists:
        return disk.playlistsOf(n);
    default:
        return 0;
    }
}

QString textOf(SongColumn column, int n, const SongsOnDisk &disk)
{
    static const QString tick(QChar(0x2713));
    if (const auto field = fieldOf(column))
        return columnOf(*field)[static_cast<size_t>(n)];
    if (column == SongColumn::Category)
        return shownCategory(n);
    const int rank = rankOf(column, n, disk);
    if (rank == 0)
        return {};
    return isTick(column) ? tick : QString::number(rank);
}
