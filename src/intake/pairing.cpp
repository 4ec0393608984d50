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

// What makes two names equal.
static QString keyOf(QString name)
{
    for (QChar &each : name) {
        if (each == u'_' || each == u'-' || each == u'.')
            each = u' ';
    }
    return name.simplified().toCaseFolded();
}

namespace
{
// A picture, with what its name says about its place.
struct Picture {
    QString file;
    QString stem;
    std::optional<PageMark> mark;
    bool isTaken = false;
};

// The pictures of one folder, in order, and the songs that are made of them.
class Pairing
{
public:
    explicit Pairing(const QStringList &pictures);

    // The songs, each behind the place in order of its first picture.
    QList<std::pair<qsizetype, NamedSong>> songs();

private:
    using Group = QList<qsizetype>; // places in pictures_

    void addUnmarked(Group &group) const;
    bool fits(const Group &group) const;
    int placeOf(qsizetype picture) const;
    NamedSong take(const Group &group);

    QList<Picture> pictures_;
    QHash<QString, Group> unmarked_; // those that may be the page before the marked ones
};
} // namespace

Pairing::Pairing(const QStringList &pictures)
{
    for (const QString &file : pictures) {
        const QString stem = stemOf(file);
        pictures_ += {file, stem, pageMarkOf(stem)};
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
    if (before.size() == 1 && !pictures_[before.first()].mark && !pictures_[before.first()].isTaken
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

QList<std::pair<qsizetype, NamedSong>> Pairing::songs()
{
    QHash<QString, Group> groups;
    QStringList order; // of the groups, so that the same names always give the same songs
    for (qsizetype i = 0; i < pictures_.size(); i += 1) {
        const auto &mark = pictures_[i].mark;
        if (!mark)
            continue;
        const QString key = keyOf(mark->base) + u'\n' + QString::number(mark->kind);
        if (!groups.contains(key))
            order += key;
        groups[key] += i;
    }
    QList<std::pair<qsizetype, NamedSong>> songs;
    for (const QString &key : std::as_const(order)) {
        Group group = groups[key];
        addUnmarked(group);
        std::stable_sort(group.begin(), group.end(),
                         [&](qsizetype one, qsizetype other) { return placeOf(one) < placeOf(other); });
        if (fits(group))
            songs += {*std::min_element(group.begin(), group.end()), take(group)};
    }
    for (qsizetype i = 0; i < pictures_.size(); i += 1) {
        if (!pictures_[i].isTaken)
            songs += {i, NamedSong{pictures_[i].stem, {pictures_[i].file}, {}}};
    }
    return songs;
}

static QStringList ofKind(const QStringList &names, FileKind kind)
{
    QStringList those;
    for (const QString &name : names) {
        if (kindOfFile(name) == kind)
            those += name;
    }
    return those;
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

using PlacedSongs = QList<std::pair<qsizetype, NamedSong>>;

// PDFs and recordings come to the songs of pictures, which stand behind the places of their first pictures
// in `pictures`; all of them in the order of `sorted`.
static QList<NamedSong> withOthers(PlacedSongs songs, const QStringList &pictures, const QStringList &sorted)
{
    QHash<QString, qsizetype> place;
    for (qsizetype i = 0; i < sorted.size(); i += 1)
        place.insert(sorted[i], i);
    for (auto &[where, song] : songs)
        where = place[pictures[where]];
    for (const QString &pdf : ofKind(sorted, FileKind::Pdf))
        songs += {place[pdf], NamedSong{stemOf(pdf), {pdf}, {}}};
    std::stable_sort(songs.begin(), songs.end(),
                     [](const auto &one, const auto &other) { return one.first < other.first; });
    QHash<QString, qsizetype> byName;
    for (qsizetype i = songs.size() - 1; i >= 0; i -= 1)
        byName.insert(keyOf(songs[i].second.name), i);
    for (const QString &recording : ofKind(sorted, FileKind::Recording)) {
        const qsizetype song = byName.value(keyOf(stemOf(recording)), -1);
        if (song >= 0 && songs[song].second.recording.isEmpty())
            songs[song].second.recording = recording;
        else
            songs += {place[recording], NamedSong{stemOf(recording), {}, recording}};
    }
    std::stable_sort(songs.begin(), songs.end(),
                     [](const auto &one, const auto &other) { return one.first < other.first; });
    QList<NamedSong> all;
    for (const auto &[where, song] : std::as_const(songs))
        all += song.pages.size() > 2 ? cut(song) : QList{song};
    return all;
}

QList<NamedSong> pairByName(const QStringList &names)
{
    const QStringList sorted = alphabetical(names);
    const QStringList pictures = ofKind(sorted, FileKind::Picture);
    return withOthers(Pairing(pictures).songs(), pictures, sorted);
}

QList<NamedSong> pairInOrder(const QStringList &names, int pagesOfSong)
{
    const QStringList sorted = alphabetical(names);
    const QStringList pictures = ofKind(sorted, FileKind::Picture);
    PlacedSongs songs;
    for (qsizetype i = 0; i < pictures.size(); i += pagesOfSong)
        songs += {i,
                  NamedSong{stemOf(pictures[i]),
                            pictures.sliced(i, qMin<qsizetype>(pagesOfSong, pictures.size() - i)),
                            {}}};
    return withOthers(songs, pictures, sorted);
}
