#include "intake/coming_table.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

// What can be done with the pages of rows.

using Column = ComingColumn;

static void turnPage(ComingPage &page)
{
    if (!page.exists())
        return;
    int &turns = page.part == ComingPage::Whole ? page.turns : page.turnsOfPart;
    turns = (turns + 1) % 4;
}

void ComingTable::turn(const QModelIndexList &pages)
{
    QList<ComingSong> after = songs_;
    for (const QModelIndex &page : pages) {
        if (Column(page.column()) == Column::Left)
            turnPage(after[page.row()].left);
        else if (Column(page.column()) == Column::Right)
            turnPage(after[page.row()].right);
    }
    replaceSongs(after, "turn");
}

bool ComingTable::canBeginSongAt(const QModelIndex &page) const
{
    return Column(page.column()) == Column::Right && pageAt(page).exists()
        && songs_[page.row()].left.exists();
}

static QString nameOf(const ComingPage &page)
{
    return QFileInfo(page.file).completeBaseName();
}

void ComingTable::beginSongAt(const QModelIndex &page)
{
    ComingSong first = songs_[page.row()];
    ComingSong second;
    second.isTicked = first.isTicked;
    second.left = std::exchange(first.right, {});
    second.category = first.category;
    second.tags = first.tags;
    second.name = nameOf(second.left);
    second.readName(NamesAre::Title, false);
    replaceRows({page.row()}, {first, second}, "new song");
}

// Of each pair, the row that stays and the one that goes to it; none where that cannot be.
ComingTable::Pairs ComingTable::pairsOf(const QList<int> &rows) const
{
    Pairs pairs;
    if (rows.size() == 1 && rows[0] > 0)
        pairs += {rows[0] - 1, rows[0]};
    for (qsizetype i = 0; i + 1 < rows.size(); i += 2)
        pairs += {rows[i], rows[i + 1]};
    const auto isTooMuch = [this](const auto &pair) {
        const ComingSong &one = songs_[pair.first];
        const ComingSong &other = songs_[pair.second];
        return one.pages().size() + other.pages().size() > 2
            || (!one.recording.isEmpty() && !other.recording.isEmpty());
    };
    return std::any_of(pairs.begin(), pairs.end(), isTooMuch) ? Pairs() : pairs;
}

bool ComingTable::canJoin(const QList<int> &rows) const
{
    return !pairsOf(rows).isEmpty();
}

void ComingTable::join(const QList<int> &rows)
{
    QList<ComingSong> after = songs_;
    const Pairs pairs = pairsOf(rows);
    for (auto last = pairs.size() - 1; last >= 0; last -= 1) {
        const auto &[first, second] = pairs[last];
        ComingSong &song = after[first];
        const ComingSong joined = after[second];
        const QList<ComingPage> pages = song.pages() + joined.pages();
        song.left = pages.value(0);
        song.right = pages.value(1);
        if (song.recording.isEmpty())
            song.recording = joined.recording;
        after.removeAt(second);
    }
    replaceSongs(after, "join");
}

bool ComingTable::canHalve(const QList<int> &rows) const
{
    return std::any_of(rows.begin(), rows.end(), [this](int row) {
        const QList<ComingPage> pages = songs_[row].pages();
        return std::any_of(pages.begin(), pages.end(),
                           [](const ComingPage &page) { return page.part == ComingPage::Whole; });
    });
}

// Each page that is whole becomes two.
static QList<ComingPage> halved(const QList<ComingPage> &pages)
{
    QList<ComingPage> halves;
    for (ComingPage page : pages) {
        if (page.part != ComingPage::Whole) {
            halves += page;
            continue;
        }
        for (const auto part : {ComingPage::LeftHalf, ComingPage::RightHalf}) {
            page.part = part;
            halves += page;
        }
    }
    return halves;
}

// A row of two scans becomes two rows.
static QList<ComingSong> halved(const ComingSong &song)
{
    const QList<ComingPage> pages = halved(song.pages());
    QList<ComingSong> songs;
    for (qsizetype page = 0; page < pages.size(); page += 2) {
        ComingSong piece = song;
        piece.left = pages[page];
        piece.right = pages.value(page + 1);
        if (page > 0) {
            piece.recording.clear();
            piece.name += QStringLiteral(" (%1)").arg(page / 2 + 1);
            piece.title += QStringLiteral(" (%1)").arg(page / 2 + 1);
        }
        songs += piece;
    }
    return songs.isEmpty() ? QList{song} : songs;
}

void ComingTable::halve(const QList<int> &rows)
{
    QList<ComingSong> after;
    for (int row = 0; row < songs_.size(); row += 1)
        after += rows.contains(row) ? halved(songs_[row]) : QList{songs_[row]};
    replaceSongs(after, "halving");
}
