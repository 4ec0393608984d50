#include "intake/found_files.h"

#include "intake/pairing.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace
{
class Finder
{
public:
    explicit Finder(const Progress &progress)
        : progress_(progress)
    {
    }

    void addFile(const QString &path);
    void addFolder(const QString &path);

    FoundFiles found;

private:
    bool goOn();

    const Progress &progress_;
    QHash<QString, qsizetype> places_; // of folders
    qsizetype latest_ = 0; // the place of the one before
};
} // namespace

bool Finder::goOn()
{
    static constexpr int often = 500;
    if (progress_ && (found.count + found.others) % often == 0 && !progress_(0, 0))
        found.isCancelled = true;
    return !found.isCancelled;
}

void Finder::addFile(const QString &path)
{
    const qsizetype slash = path.lastIndexOf(u'/');
    const QString name = path.sliced(slash + 1);
    if (kindOfFile(name) == FileKind::Other) {
        found.others += !name.startsWith(u'.');
        return;
    }
    const QStringView folder = QStringView(path).first(slash);
    if (found.folders.isEmpty() || found.folders[latest_].path != folder) {
        latest_ = places_.value(folder.toString(), found.folders.size());
        places_.insert(folder.toString(), latest_);
    }
    if (latest_ == found.folders.size())
        found.folders += FoundFolder{folder.toString(), {}};
    found.folders[latest_].names += name;
    found.count += 1;
}

void Finder::addFolder(const QString &path)
{
    QDirIterator files(path, QDir::Files, QDirIterator::Subdirectories);
    while (goOn() && files.hasNext())
        addFile(files.next());
}

FoundFiles findFiles(const QStringList &paths, const Progress &progress)
{
    Finder finder(progress);
    for (const QString &path : paths) {
        const QFileInfo file(path);
        if (file.isDir())
            finder.addFolder(QDir::cleanPath(file.absoluteFilePath()));
        else if (file.exists())
            finder.addFile(QDir::cleanPath(file.absoluteFilePath()));
    }
    std::sort(finder.found.folders.begin(), finder.found.folders.end(),
              [](const auto &one, const auto &other) { return one.path < other.path; });
    for (FoundFolder &folder : finder.found.folders)
        folder.names.removeDuplicates();
    return finder.found;
}

FoundFiles filesBeside(const FoundFiles &known, const FoundFiles &found)
{
    QHash<QString, QSet<QString>> names;
    for (const FoundFolder &folder : known.folders)
        names[folder.path].unite({folder.names.begin(), folder.names.end()});
    FoundFiles rest{{}, 0, found.others, found.isCancelled};
    for (const FoundFolder &folder : found.folders) {
        FoundFolder those{folder.path, folder.names};
        those.names.removeIf([&](const QString &name) { return names[folder.path].contains(name); });
        rest.count += static_cast<int>(those.names.size());
        if (!those.names.isEmpty())
            rest.folders += those;
    }
    return rest;
}

FoundFiles filesTogether(const FoundFiles &known, const FoundFiles &added)
{
    FoundFiles all = known;
    for (const FoundFolder &folder : added.folders) {
        const auto same = std::find_if(all.folders.begin(), all.folders.end(),
                                       [&](const FoundFolder &each) { return each.path == folder.path; });
        if (same == all.folders.end())
            all.folders += folder;
        else
            same->names += folder.names;
    }
    all.count += added.count;
    all.others += added.others;
    return all;
}

QStringList pdfsIn(const FoundFiles &files)
{
    QStringList pdfs;
    for (const FoundFolder &folder : files.folders) {
        for (const QString &name : folder.names) {
            if (kindOfFile(name) == FileKind::Pdf)
                pdfs += folder.path + '/' + name;
        }
    }
    return pdfs;
}

static ComingPage pdfPage(const QString &pdf, const PdfInfo &info, int page)
{
    return {pdf, page, info.dpi[page - 1], 0, ComingPage::Whole, 0};
}

static ComingSong named(const QString &name, const Reading &reading)
{
    ComingSong song;
    song.name = name;
    song.readName(reading.namesAre, reading.leaveOutNumbers);
    return song;
}

static QString further(const QString &name, int piece)
{
    return piece == 0 ? name : QStringLiteral("%1 (%2)").arg(name).arg(piece + 1);
}

static QList<ComingSong> songsOfPdf(const ComingSong &whole, const QString &pdf, const PdfInfo &info,
                                    const Reading &reading)
{
    if (!info.result.ok()) {
        ComingSong song = whole;
        song.left = {pdf, 1, 0, 0, ComingPage::Whole, 0};
        song.addNote(info.result.reason);
        song.isTicked = false;
        return {song};
    }
    const int step = reading.pagesOfSong == 1 ? 1 : 2;
    QList<ComingSong> songs;
    for (int page = 1; page <= info.dpi.size(); page += step) {
        ComingSong song = named(further(whole.name, (page - 1) / step), reading);
        song.recording = page == 1 ? whole.recording : QString();
        song.left = pdfPage(pdf, info, page);
        if (step == 2 && page < info.dpi.size())
            song.right = pdfPage(pdf, info, page + 1);
        songs += song;
    }
    return songs;
}

static QList<ComingSong> songsOf(const NamedSong &files, const QString &folder,
                                 const QHash<QString, PdfInfo> &pdfs, const Reading &reading)
{
    const auto pathOf = [&](const QString &name) { return name.isEmpty() ? name : folder + '/' + name; };
    ComingSong song = named(files.name, reading);
    song.recording = pathOf(files.recording);
    const QString first = pathOf(files.pages.value(0));
    if (kindOfFile(files.pages.value(0)) == FileKind::Pdf) {
        const PdfInfo unread{Result::failed(Result::Kind::Unreadable, first, "it was not read"), {}};
        return songsOfPdf(song, first, pdfs.value(first, unread), reading);
    }
    song.left.file = first;
    song.right.file = pathOf(files.pages.value(1));
    return {song};
}

QList<ComingSong> songsOf(const FoundFiles &files, const QHash<QString, PdfInfo> &pdfs,
                          const Reading &reading, KnownSongs &known)
{
    QList<ComingSong> songs;
    for (const FoundFolder &folder : files.folders) {
        const QList<NamedSong> all = reading.pagesOfSong == 0
            ? pairByName(folder.names)
            : pairInOrder(folder.names, reading.pagesOfSong);
        for (const NamedSong &each : all)
            songs += songsOf(each, folder.path, pdfs, reading);
    }
    for (ComingSong &song : songs)
        known.look(song);
    return songs;
}

QList<ComingSong> songsOfBook(const QString &pdf, const PdfInfo &info, const QList<ContentsSong> &contents,
                              KnownSongs &known)
{
    QList<ComingSong> songs;
    for (const ContentsSong &entry : contents) {
        for (int page = entry.firstPage; page <= entry.lastPage; page += 2) {
            ComingSong song;
            song.name = further(entry.title, (page - entry.firstPage) / 2);
            song.title = song.name;
            song.author = entry.author;
            song.isNamed = true;
            song.left = pdfPage(pdf, info, page);
            if (page < entry.lastPage)
                song.right = pdfPage(pdf, info, page + 1);
            known.look(song);
            songs += song;
        }
    }
    return songs;
}
