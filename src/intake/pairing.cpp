#include "intake/pairing.h"

#include "intake/page_mark.h"
#include "text/alphabetical.h"

#include <QHash>

#include <algorithm>

FileKind kindOfFile(QStringView name)
{
    static const QHash<QString, FileKind> kinds = {
        {"jpg", FileKind::Picture},  {"jpeg", FileKind::Picture}, {"jpe", FileKind::Picture},
        {"jfif", FileKind::Picture}, {"png", FileKind::Picture},  {"tif", FileKind::Picture},
        {"tiff", FileKind::Picture}, {"bmp", FileKind::Picture},  {"gif", FileKind::Picture},
        {"webp", FileKind::Picture}, {"pdf", FileKind::Pdf},      {"mp3", FileKind::Recording}};
    if (name.startsWith(u'.'))
        return FileKind::Other; // hidden, or what a Mac leaves beside a file
    return kinds.value(name.sliced(name.lastIndexOf(u'.') + 1).toString().toLower(), FileKind::Other);
}

static QString stemOf(const QString &name)
{
    return name.first(name.lastIndexOf(u'.')).normalized(QString::NormalizationForm_C);
}

static QList<qsizetype> placesOf(FileKind kind, const QStringList &names)
{
    QList<qsizetype> places;
    for (qsizetype place = 0; place < names.size(); place += 1) {
        if (kindOfFile(names[place]) == kind)
            places += place;
    }
    return places;
}

// What makes two names equal: no case, and whatever separates the words.
static QString keyOf(const QString &name)
{
    QString key;
    key.reserve(name.size() + 2);
    bool isBehindBlank = true;
    for (const QChar each : name) {
        const bool isBlank = each.isSpace() || each == u'_' || each == u'-' || each == u'.';
        if (isBlank && !isBehindBlank)
            key += u' ';
        else if (!isBlank)
            key += each.toCaseFolded();
        isBehindBlank = isBlank;
    }
    if (key.endsWith(u' '))
        key.chop(1);
    return key;
}

namespace
{
// A picture, with what its name says about its place in a song.
struct Picture {
    QString file;
    qsizetype place = 0; // among the names of the folder
    QString stem;
    std::optional<PageMark> mark;
    bool isTaken = false;
};

// A song behind the place of its first file among the names of the folder.
using PlacedSong = std::pair<qsizetype, NamedSong>;
using PlacedSongs = QList<PlacedSong>;

// The pictures of one folder, in order, and the songs that are made of them.
class Pairing
{
public:
    explicit Pairing(const QStringList &sorted);

    PlacedSongs songs();

private:
    using Group = QList<qsizetype>; // places in pictures_

    void addUnmarked(Group &group) const;
    bool fits(const Group &group) const;
    int placeOf(qsizetype picture) const;
    NamedSong take(const Group &group);

    QList<Picture> pictures_;
    QHash<QString, Group> unmarked_;
};
} // namespace

Pairing::Pairing(const QStringList &sorted)
{
    for (const qsizetype place : placesOf(FileKind::Picture, sorted)) {
        const QString stem = stemOf(sorted[place]);
        pictures_ += {sorted[place], place, stem, pageMarkOf(stem)};
        if (!pictures_.last().mark)
            unmarked_[keyOf(stem)] += pictures_.size() - 1;
    }
}

// A picture without a mark is the first page.
int Pairing::placeOf(qsizetype picture) const
{
    const auto &mark = pictures_[picture].mark;
    return mark ? mark->place : 1;
}

// "Waltz" is the page before "Waltz (2)" or "Waltz-R", if nothing else is.
void Pairing::addUnmarked(Group &group) const
{
    const auto isSecond = [&](qsizetype each) { return placeOf(each) == 2 && pictures_[each].mark->isPlain; };
    const auto isFirst = [&](qsizetype each) { return placeOf(each) == 1; };
    const Group before = unmarked_.value(keyOf(pictures_[group.first()].mark->base));
    if (before.size() == 1 && !pictures_[before.first()].isTaken
        && std::any_of(group.begin(), group.end(), isSecond)
        && std::none_of(group.begin(), group.end(), isFirst))
        group.prepend(before.first());
}

bool Pairing::fits(const Group &group) const
{
    static constexpr qsizetype mostPages = 12;
    const auto &first = pictures_[group.last()].mark;
    if (first->kind == PageMark::Side)
        return group.size() == 1 || (group.size() == 2 && placeOf(group[0]) != placeOf(group[1]));
    if (group.size() < 2 || group.size() > mostPages)
        return false;
    for (qsizetype i = 0; i < group.size(); i += 1) {
        if (placeOf(group[i]) != i + 1)
            return false;
    }
    return true;
}

// A right page alone has an empty place before it.
NamedSong Pairing::take(const Group &group)
{
    const auto &mark = pictures_[group.first()].mark;
    NamedSong song{mark ? mark->base : pictures_[group.first()].stem, {}, {}};
    if (mark && mark->kind == PageMark::Side && group.size() == 1 && mark->place == 2)
        song.pages += QString();
    for (const qsizetype picture : group) {
        song.pages += pictures_[picture].file;
        pictures_[picture].isTaken = true;
    }
    return song;
}

PlacedSongs Pairing::songs()
{
    QHash<std::pair<QString, int>, qsizetype> known;
    QList<Group> groups; // in order, so that the same names always give the same songs
    for (qsizetype i = 0; i < pictures_.size(); i += 1) {
        const auto &mark = pictures_[i].mark;
        if (!mark)
            continue;
        qsizetype &group = known[{keyOf(mark->base), mark->kind}];
        if (group == 0) {
            groups += Group();
            group = groups.size();
        }
        groups[group - 1] += i;
    }
    PlacedSongs songs;
    for (Group &group : groups) {
        if (!unmarked_.isEmpty())
            addUnmarked(group);
        std::stable_sort(group.begin(), group.end(),
                         [&](qsizetype one, qsizetype other) { return placeOf(one) < placeOf(other); });
        if (fits(group))
            songs += {pictures_[*std::min_element(group.begin(), group.end())].place, take(group)};
    }
    for (const Picture &picture : std::as_const(pictures_)) {
        if (!picture.isTaken)
            songs += {picture.place, NamedSong{picture.stem, {picture.file}, {}}};
    }
    return songs;
}

// In pieces of two pages.
static QList<NamedSong> cut(const NamedSong &song)
{
    QList<NamedSong> pieces;
    for (qsizetype page = 0; page < song.pages.size(); page += 2) {
        const QString number = page == 0 ? QString() : QStringLiteral(" (%1)").arg(page / 2 + 1);
        pieces += NamedSong{song.name + number, song.pages.sliced(page, qMin(2, song.pages.size() - page)),
                            page == 0 ? song.recording : QString()};
    }
    return pieces;
}

static void sortByPlace(PlacedSongs &songs)
{
    std::stable_sort(songs.begin(), songs.end(),
                     [](const PlacedSong &one, const PlacedSong &other) { return one.first < other.first; });
}

// A recording joins the first song of its name.
static void addRecordings(PlacedSongs &songs, const QStringList &sorted)
{
    const QList<qsizetype> recordings = placesOf(FileKind::Recording, sorted);
    QHash<QString, qsizetype> byName;
    for (qsizetype i = songs.size() - 1; i >= 0 && !recordings.isEmpty(); i -= 1)
        byName.insert(keyOf(songs[i].second.name), i);
    for (const qsizetype place : recordings) {
        const qsizetype song = byName.value(keyOf(stemOf(sorted[place])), -1);
        if (song >= 0 && songs[song].second.recording.isEmpty())
            songs[song].second.recording = sorted[place];
        else
            songs += {place, NamedSong{stemOf(sorted[place]), {}, sorted[place]}};
    }
}

// PDFs and recordings come to the songs of pictures.
static QList<NamedSong> withOthers(PlacedSongs songs, const QStringList &sorted)
{
    for (const qsizetype place : placesOf(FileKind::Pdf, sorted))
        songs += {place, NamedSong{stemOf(sorted[place]), {sorted[place]}, {}}};
    sortByPlace(songs);
    addRecordings(songs, sorted);
    sortByPlace(songs);
    QList<NamedSong> all;
    for (const auto &[place, song] : std::as_const(songs))
        all += song.pages.size() > 2 ? cut(song) : QList{song};
    return all;
}

QList<NamedSong> pairByName(const QStringList &names)
{
    const QStringList sorted = alphabetical(names);
    return withOthers(Pairing(sorted).songs(), sorted);
}

QList<NamedSong> pairInOrder(const QStringList &names, int pagesOfSong)
{
    const QStringList sorted = alphabetical(names);
    PlacedSongs songs;
    for (const qsizetype place : placesOf(FileKind::Picture, sorted)) {
        if (songs.isEmpty() || songs.last().second.pages.size() == pagesOfSong)
            songs += {place, NamedSong{stemOf(sorted[place]), {}, {}}};
        songs.last().second.pages += sorted[place];
    }
    return withOthers(songs, sorted);
}
