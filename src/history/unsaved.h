#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

#include <array>
#include <optional>

class Edits;

// How a song is named in a question: "12 Amazing Grace"; a title may be long.
QString songForPeople(int record, const QString &title);

// What was typed and not saved, so that it outlives the program: the songs that differ from the archive on
// the disk, with all their fields.

// Title, author, tags, category; the number is the song's place.
using SongFields = std::array<QString, 4>;

struct UnsavedSong {
    int record = 0; // from 1; one behind the count is what was typed there and not yet added
    std::optional<SongFields> was; // as the archive on the disk had it; none where it did not have the song
    SongFields is;

    bool operator==(const UnsavedSong &) const = default;
};

struct Unsaved {
    int count = 0; // of the songs, those that were added included
    QList<UnsavedSong> songs; // by number

    bool operator==(const Unsaved &) const = default;
};

// What is in memory and not on the disk now.
Unsaved unsavedNow(const Edits &edits);

// As a file keeps it: a line with a checksum, then the text. What was cut or garbled gives nothing.
QByteArray bytesOf(const Unsaved &unsaved);
std::optional<Unsaved> unsavedOf(const QByteArray &bytes);
// The same of a file; nothing, too, where it cannot be read.
std::optional<Unsaved> readUnsaved(const QString &path);

// Whether Module1 holds every one of them as it was typed, so that nothing of it can be lost.
bool isOnDisk(const Unsaved &unsaved);

// What putting them back came to.
struct PutBack {
    QList<int> records; // now as they were typed, and not saved
    QList<int> changedMeanwhile; // left as they are, since the archive holds something else there now
};

// Puts them into Module1 as changes that are not saved, and that undo takes back as one step. A song that
// is as typed by now is passed over, and so is one that has changed otherwise or does not follow the last.
PutBack putBack(const Unsaved &unsaved, Edits &edits);
