#include "songs/song_text.h"

#include "songs/song_columns.h"
#include "songs/songs_on_disk.h"

#include <functional>

static QString lineOf(const std::function<QString(SongColumn)> &text)
{
    QStringList cells;
    for (int column = 0; column < songColumns; column += 1) {
        QString cell = text(SongColumn(column));
        // A tab or a line end in a file made by hand would begin a cell of its own.
        cells += cell.replace(u'\t', u' ').replace(u'\r', u' ').replace(u'\n', u' ');
    }
    return cells.join(u'\t') + u'\n';
}

QString spreadsheetText(const QList<int> &records, const SongsOnDisk &disk)
{
    QString text = lineOf([](SongColumn column) { return nameOf(column); });
    for (const int n : records) {
        text += lineOf([&](SongColumn column) {
            if (isTick(column))
                return QString(rankOf(column, n, disk) ? "yes" : "");
            return textOf(column, n, disk);
        });
    }
    return text;
}
