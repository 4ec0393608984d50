#include "stand/archive_check.h"
#include "stand/mend.h"
#include "stand/own_names.h"
#include "support/table.h"
#include "support/test_folder.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTest>

#include <functional>

using Change = std::function<void()>;
using Mend = Mending::Kind;

static const QByteArray threeSongs = archiveOf({"One|A|t|1", "Two|||0", "Three|||33"});

static QByteArray picture()
{
    QImage sheet(20, 30, QImage::Format_Grayscale8);
    sheet.fill(Qt::white);
    return encoded(sheet, "jpg");
}

static QByteArray categories(int count)
{
    return fileOf("generi", linesOf(QStringList(count, "Name").join('|')));
}

static QByteArray midiBlock(const char *number, const QString &row)
{
    return linesOf(number + QString('|' + row).repeated(16));
}

// Three songs with pages, recordings, playlists and MIDI settings, with nothing wrong.
static void putWholeArchive()
{
    const QByteArray page = picture();
    put("spartiti/archivio.js", threeSongs);
    put("spartiti/generi.js", categories(33));
    put("spartiti/playlist.js", fileOf("playlist", "\"Set\",\"1,3,1,#\",\r\n"));
    put("spartiti/midi.js", fileOf("midi", midiBlock("2", "000,127,5")));
    put("spartiti/ARCHIVIO.CSV", "\"1\"\r\n");
    for (const char *name : {"m", "1L", "1R", "3L"})
        put(QStringLiteral("spartiti/%1.jpg").arg(name), page);
    put("spartiti/audio/3.mp3", "sound");
}

// The findings, a line each: what, the song's number and, where there is one, that something can be mended.
static QStringList found()
{
    QStringList lines;
    for (const Finding &finding : checkWholeArchive().findings)
        lines += finding.what + '|' + QString::number(finding.song)
            + (finding.mending.kind == Mend::None ? "" : "|mend");
    return lines;
}

// What is changed in the folder of the archive.
static Change file(const char *name, const QByteArray &bytes)
{
    return [=] { put(QStringLiteral("spartiti/") + name, bytes); };
}

static Change without(const char *name)
{
    return [=] { QFile::remove(QStringLiteral("spartiti/") + name); };
}

static Change renamed(const char *from, const char *to)
{
    return [=] { QVERIFY(QDir("spartiti").rename(from, to)); };
}

static Change songs(const char *before, const char *after)
{
    return file("archivio.js", QByteArray(threeSongs).replace(before, after));
}

static Change playlists(const char *lines)
{
    return file("playlist.js", fileOf("playlist", lines));
}

static Change midi(const QByteArray &blocks)
{
    return file("midi.js", fileOf("midi", blocks));
}

struct Row {
    Change change;
    QString found; // lines of found(), a semicolon between two
    QString meaning = {}; // a part of what the first means
};

class ArchiveCheckTest : public FolderTest
{
    Q_OBJECT
private slots:
    void eachKindOfFinding_isFoundAlone_data()
    {
        const QByteArray page = picture();
        const QByteArray firstUnnamed = fileOf("generi", linesOf("|" + QStringList(32, "Name").join('|')));
        const QByteArray settings = midiBlock("2", "0,0,0");
        tableOf<Row>({
            {"nothing", {[] {}, ""}},
            {"damaged archive", {file("archivio.js", "x"), "Not to be read: spartiti/archivio.js|0"}},
            {"shifted lines", {songs("\"Two\",", "\"Two\", x"), "Lines that are not as they should be|2"}},
            {"archive without its end",
             {file("archivio.js", threeSongs.chopped(5)), "End of archivio.js missing|0"}},
            {"backslash", {songs("Two", "T\\wo"), "Backslash or line end in a text|2"}},
            {"number", {songs("\"2\"", "\"7\""), "Number 7 in place of 2|2"}},
            {"two songs of one such",
             {file("archivio.js", archiveOf({"One|||40", "Two|||", "Three|||40"})),
              "Category 40 has no name|1"}},
            {"category of an empty name", {file("generi.js", firstUnnamed), "Category 1 has no name|1"}},
            {"too few categories",
             {file("generi.js", categories(30)),
              "Not to be read: spartiti/generi.js|0;Category 33 has no name|3"}},
            {"no title", {songs("One", " "), "1 song without a title|0"}},
            {"no last title", {songs("Three", ""), ""}},
            {"same title", {songs("Three", "ONE "), "2 songs of equal titles|0"}},
            {"right page alone", {file("2R.jpg", page + 'x'), "Right page without a left one|2"}},
            {"empty right page alone", {file("2R.jpg", page), ""}},
            {"pipe",
             {[] { putPipe("spartiti/2R.jpg"); },
              "Right page without a left one|2;Page that cannot be shown: 2R.jpg|2"}},
            {"no picture", {file("3L.jpg", "GIF"), "Page that cannot be shown: 3L.jpg|3"}},
            {"page that is a folder",
             {[] { QDir().mkdir("spartiti/2L.jpg"); }, "Page that cannot be shown: 2L.jpg|2"}},
            {"link to nothing",
             {[] { QFile::link("gone.jpg", "spartiti/2L.jpg"); }, "Page that cannot be shown: 2L.jpg|2"}},
            {"recordings in no folder",
             {[] { renamed("audio", "../elsewhere")(), file("audio", "x")(); },
              "Not to be read: spartiti/audio|0"}},
            {"empty sheet that is none", {file("m.jpg", "x"), "Page that cannot be shown: m.jpg|0"}},
            {"no empty sheet", {without("m.jpg"), "No empty sheet m.jpg|0|mend"}},
            {"no generi.js", {without("generi.js"), "No generi.js|0|mend"}},
            {"damaged playlists", {file("playlist.js", "x"), "Not to be read: spartiti/playlist.js|0"}},
            {"playlist of songs not there",
             {playlists("\"Set\",\"1,8,,0,x,8,#\",\r\n"), "Playlist with songs that are not there: Set|0",
              ": 8, one without a number, 0, x."}},
            {"playlist of no songs", {playlists("\"Set\",\"#\",\r\n"), "Playlist of no songs: Set|0"}},
            {"playlists of one name",
             {playlists("\"Set\",\"1,#\",\r\n\"set\",\"1,#\",\r\n"
                        "\"Set\",\"2,#\",\r\n\"Set\",\"2,#\",\r\n"),
              "Playlists of the same name: Set|0"}},
            {"no playlists", {without("playlist.js"), ""}},
            {"damaged MIDI settings",
             {file("midi.js", "var midi = [\r\n\"1\",\r\n\"0,"), "Not to be read: spartiti/midi.js|0"}},
            {"MIDI value above 127", {midi(midiBlock("2", "0,0,128")), "MIDI values above 127|2"}},
            {"MIDI settings for no song", {midi(midiBlock("4", "0,0,0")), "MIDI settings for no song: 4|0"}},
            {"twice the same song",
             {midi(settings + midiBlock("02", "0,0,0") + midiBlock("2", "0,,0")),
              "MIDI settings twice for one song|2"}},
            {"MIDI settings cut short",
             {file("midi.js", fileOf("midi", settings).chopped(5)), "End of midi.js missing|0"}},
            {"page above the last song", {file("4L.jpg", page), "File of no song: 4L.jpg|0"}},
            {"recording above the last song",
             {file("audio/10000.mp3", {}), "File of no song: audio/10000.mp3|0"}},
            {"letters' case", {renamed("3L.jpg", "3l.JPG"), "Wrong name: 3l.JPG|3|mend"}},
            {"zeros in front", {renamed("audio/3.mp3", "audio/003.mp3"), "Wrong name: audio/003.mp3|3|mend"}},
            {"right name taken", {file("01L.jpg", page), "Wrong name: 01L.jpg|1"}},
            {"folder of recordings", {renamed("audio", "Audio"), "Wrong name: Audio|0|mend"}},
            {"left over of a recording",
             {file("audio/3.mp3.aBcD1e", {}), "Left over: audio/3.mp3.aBcD1e|0|mend"}},
            {"songs on their way", {file("arriving/4L.jpg", {}), "Songs on their way: arriving|0|mend"}},
            {"old page", {file("4L (old 1).jpg", {}), "Old page: 4L (old 1).jpg|0"}},
            {"hidden", {file(".hidden", {}), "Not the archive's own: .hidden|0"}},
            {"a folder of recordings", {file("audio/deep/1.mp3", {}), "Not the archive's own: audio/deep|0"}},
            {"nearly a page", {file("12 L.jpg", {}), "Not the archive's own: 12 L.jpg|0"}},
        });
    }

    void eachKindOfFinding_isFoundAlone()
    {
        putWholeArchive();
        const auto row = tableRow<Row>();
        row.change();
        QCOMPARE(found().join(';'), row.found);
        QVERIFY(checkWholeArchive().findings.value(0).meaning.contains(row.meaning));
    }

    void theDemonstration_hasNothingWrong()
    {
        QVERIFY(QFile::link(TESSALINE_SOURCES "/demo/spartiti", "spartiti"));
        QCOMPARE(checkWholeArchive().pages, 16);
        QCOMPARE(found(), QStringList());
        QVERIFY(checkWholeArchive([](int, int all) { return all != 16; }).wasCancelled);
    }

    void leftOvers_areOnlyWhatNobodyWouldWrite()
    {
        QStringList names{"archivio.js.Xa81bQ", "1L.jpg.k9ZqT3", "audio/12.mp3.aQ8rrT", "notes.txt.Xa81bQ"};
        for (const char *end : {"backup", "Backup", "BACKUP", "240901", "Copy12", "12June", "Xa81bQQ"})
            names += QStringLiteral("archivio.js.") + end;
        names.removeIf([](const QString &name) { return !isLeftOver(name); });
        QCOMPARE(names.join(' '), "archivio.js.Xa81bQ 1L.jpg.k9ZqT3 audio/12.mp3.aQ8rrT");
    }

    void mending_doesOnlyWhatItNames()
    {
        putWholeArchive();
        for (const Change &change :
             {renamed("1R.jpg", "01r.Jpg"), file("midi.js.Xa81bQ", "x"), file("arriving/4L.jpg", "x"),
              file("notes.txt", "mine"), without("m.jpg"), without("generi.js")})
            change();
        for (const Finding &finding : checkWholeArchive().findings) {
            if (finding.mending.kind != Mend::None)
                QVERIFY2(mend(finding.mending).ok(), qPrintable(finding.what));
        }
        QCOMPARE(found(), QStringList("Not the archive's own: notes.txt|0"));
        QCOMPARE(namesIn("spartiti").size(), 11);
        QCOMPARE(contents("spartiti/notes.txt"), "mine");
        QCOMPARE(QImage("spartiti/m.jpg").size(), QSize(1240, 1754));
    }

    void mending_looksAgainFirst()
    {
        for (const char *name :
             {"1l.jpg", "1L.jpg", "m.jpg", "generi.js", "archivio.js", "arriving/mine.txt"})
            file(name, name)();
        const QStringList before = filesBelow(".");
        QCOMPARE(mend({Mend::Rename, "1l.jpg", "1L.jpg"}).kind, Result::Kind::Unwritable);
        QCOMPARE(mend({Mend::Rename, "gone.jpg", "2L.jpg"}).kind, Result::Kind::Missing);
        QCOMPARE(mend({Mend::EmptySheet}).kind, Result::Kind::Refused);
        QCOMPARE(mend({Mend::Categories}).kind, Result::Kind::Refused);
        QCOMPARE(mend({Mend::TakeAway, "archivio.js"}).kind, Result::Kind::Refused);
        QCOMPARE(mend({Mend::TakeAway, "archivio.js.Xa81bQ"}).kind, Result::Kind::Refused);
        QCOMPARE(mend({Mend::FinishAdding}).kind, Result::Kind::Refused);
        QCOMPARE(filesBelow("."), before);
    }
};

QTEST_MAIN(ArchiveCheckTest)
#include "archive_check_test.moc"
