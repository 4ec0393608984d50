#include "history/comparison.h"

#include "archive/Module1.h"
#include "archive/archive_table.h"
#include "audio/categories_file.h"
#include "files/data_folder.h"
#include "files/platform.h"
#include "files/safe_write.h"
#include "history/unsaved.h"
#include "midi/midi_file.h"
#include "playlists/playlist_file.h"
#include "text/counting.h"

#include <QFileInfo>
#include <QMap>

// A song, a playlist, a block of MIDI settings or a category, as it is compared.
struct Entry {
    int record = 0;
    QString what;
    QStringList fields;
};

// By number, or by place and name.
using Entries = QMap<std::pair<int, QString>, Entry>;

// One of the data files: what its entries are called, what their fields are, and how they are read.
struct Comparable {
    QString file;
    QString thing;
    QStringList fields;
    Result (*read)(const QString &path, Entries &entries);
};

static void addSong(Entries &entries, int record, const QString &title, const QStringList &others)
{
    entries[{record, {}}] = {record, QStringLiteral("%1 %2").arg(record).arg(title),
                             QStringList(title) + others};
}

static Result readSongs(const QString &path, Entries &entries)
{
    QByteArray bytes;
    if (const Result read = readWhole(path, bytes); !read.ok())
        return read;
    const ArchiveTable table = readArchive(bytes, ownArchive, path);
    for (int n = 1; n <= table.count(); n += 1) {
        const ArchiveRecord &song = table.records[static_cast<size_t>(n)];
        addSong(entries, n, table.text(song.title),
                {table.text(song.author), table.text(song.tags), table.text(song.category)});
    }
    return table.result;
}

static Result readTyped(const QString &path, Entries &entries)
{
    const std::optional<Unsaved> unsaved = readUnsaved(path);
    if (!unsaved)
        return Result::failed(Result::Kind::Damaged, path, "it is damaged");
    for (const UnsavedSong &song : unsaved->songs)
        addSong(entries, song.record, song.is[0], {song.is[1], song.is[2], song.is[3]});
    return {};
}

static Result readPlaylists(const QString &path, Entries &entries)
{
    Playlists playlists;
    const Result read = readPlaylistFile(playlists, path);
    for (int i = 1; i <= playlists.count(); i += 1) {
        const QString &name = playlists.playlistName[static_cast<size_t>(i)];
        QString songs = playlists.playlistSongs[static_cast<size_t>(i)];
        songs.chop(1);
        entries[{0, name}] = {0, name, {songs}};
    }
    return read;
}

static Result readMidi(const QString &path, Entries &entries)
{
    MidiTable table;
    const Result read = readMidiFile(table, path);
    for (int i = 1; i <= table.midiBlockCount; i += 1) {
        const int song = QString::fromLatin1(table.midiBlockNumber(i)).toInt();
        QStringList rows;
        for (int k = 1; k <= MidiTable::channels; k += 1)
            rows += QString::fromLatin1(table.midiBlockRow(i, k));
        entries[{song, {}}] = {song, QStringLiteral("MIDI settings of %1").arg(song), rows};
    }
    return read;
}

static Result readNames(const QString &path, Entries &entries)
{
    QByteArray bytes;
    if (const Result read = readWhole(path, bytes); !read.ok())
        return read;
    const CategoryTable names = categoriesIn(bytes);
    for (int k = 1; k <= categoryCount; k += 1)
        entries[{k, {}}] = {0, QStringLiteral("Category %1").arg(k), {names.name[static_cast<size_t>(k)]}};
    return {};
}

static QStringList channels()
{
    QStringList names;
    for (int k = 1; k <= MidiTable::channels; k += 1)
        names += QStringLiteral("Channel %1").arg(k);
    return names;
}

static const Comparable *comparableOf(const QString &file)
{
    static const QStringList songFields{"Title", "Author", "Tags", "Category"};
    static const QList<Comparable> all{
        {"archivio.js", "title", songFields, readSongs},
        {unsavedName, "title", songFields, readTyped},
        {"playlist.js", "playlist", {"Songs"}, readPlaylists},
        {"midi.js", "block", channels(), readMidi},
        {"generi.js", "name", {"Name"}, readNames},
    };
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const auto &one) { return one.file == file; });
    return found == all.end() ? nullptr : &*found;
}

static Entries songsInMemory()
{
    Entries entries;
    for (int n = 1; n <= Module1.recCount; n += 1) {
        const auto i = static_cast<size_t>(n);
        addSong(entries, n, Module1.recTitle[i],
                {Module1.recAuthor[i], Module1.recTags[i],
                 Module1.recCategory[i].isEmpty() ? "0" : Module1.recCategory[i]});
    }
    return entries;
}

// What is counted for the summary.
struct Counts {
    int changed = 0;
    int added = 0;
    int gone = 0;

    QString text(const QString &thing) const
    {
        QStringList parts;
        const auto part = [&](int number, const QString &what) {
            if (number > 0)
                parts += (parts.isEmpty() ? counted(number, thing) : QString::number(number)) + ' ' + what;
        };
        part(changed, "changed");
        part(added, "new");
        part(gone, "gone");
        return parts.isEmpty() ? QStringLiteral("unchanged") : parts.join(", ");
    }
};

static void compareFields(const Entry &then, const Entry &now, const QStringList &names,
                          Differences &comparison)
{
    for (qsizetype i = 0; i < names.size(); i += 1) {
        if (then.fields.value(i) != now.fields.value(i))
            comparison.differences +=
                {now.record, now.what, names[i], then.fields.value(i), now.fields.value(i)};
    }
}

static void compareEntries(const Entries &then, const Entries &now, const Comparable &file,
                           Differences &comparison)
{
    Counts counts;
    for (auto entry = now.begin(); entry != now.end(); ++entry) {
        const auto before = then.find(entry.key());
        if (before == then.end()) {
            counts.added += 1;
            comparison.differences += {entry->record, entry->what, {}, {}, entry->fields.first()};
        } else if (before->fields != entry->fields) {
            counts.changed += 1;
            compareFields(*before, *entry, file.fields, comparison);
        }
    }
    for (auto entry = then.begin(); entry != then.end(); ++entry) {
        if (now.contains(entry.key()))
            continue;
        counts.gone += 1;
        comparison.differences += {entry->record, entry->what, {}, entry->fields.first(), {}};
    }
    comparison.summary = counts.text(file.thing);
}

static Entries onlyThoseIn(const Entries &wanted, const Entries &all)
{
    Entries some;
    for (const auto &key : wanted.keys()) {
        if (all.contains(key))
            some[key] = all[key];
    }
    return some;
}

// Of a page or a recording, which hold nothing that could be named.
static QString whatIsThereNow(const Version &version, const QString &path)
{
    const QString present = dataFile(version.file);
    QByteArray bytes;
    if (isMissing(present))
        return "gone";
    if (QFileInfo(present).size() != version.size || !readWhole(path, bytes).ok())
        return "replaced";
    return holdsJust(present, bytes) ? "unchanged" : "replaced";
}

Differences compareWithNow(const Version &version, const QString &path)
{
    Differences comparison;
    const Comparable *file = comparableOf(version.file);
    if (!file) {
        comparison.summary = whatIsThereNow(version, path);
        return comparison;
    }
    Entries then;
    Entries now;
    comparison.result = file->read(path, then);
    if (!comparison.result.ok())
        return comparison;
    const bool isOfSongs = file->thing == "title";
    const Result present = isOfSongs ? Result() : file->read(dataFile(version.file), now);
    if (isOfSongs)
        now = songsInMemory();
    if (version.file == unsavedName) // it has but the songs that were typed
        now = onlyThoseIn(then, now);
    if (!present.ok() && present.kind != Result::Kind::Missing)
        comparison.result = present;
    compareEntries(then, now, *file, comparison);
    return comparison;
}
