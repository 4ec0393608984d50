#include "stand/archive_check.h"
#include "stand/mend.h"
#include "stand/own_names.h"
#include "support/table.h"
#include "support/test_folder.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTest>

#include <sys/stat.h>

using Change = void (*)();
using Mend = Mending::Kind;
using Place = Finding::Place;

static const QByteArray threeSongs = archiveOf({"One|A|t|1", "Two|||0", "Three|||33"});

static QByteArray picture()
{
    put("picture.jpg", {});
    QImage sheet(20, 30, QImage::Format_Grayscale8);
    sheet.fill(Qt::white);
    if (!sheet.save("picture.jpg"))
        qFatal("no picture could be made");
    const QByteArray bytes = contents("picture.jpg");
    QFile::remove("picture.jpg");
    return bytes;
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

struct Row {
    Change change;
    const char *expected; // lines of found(), a semicolon between two
};
Q_DECLARE_METATYPE(Row)

static void renameFile(const char *from, const char *to)
{
    if (!QFile::rename(from, to))
        qFatal("%s cannot be renamed", from);
}

static void putPlaylists(const char *lines)
{
    put("spartiti/playlist.js", fileOf("playlist", lines));
}

static void putArchiveWith(const char *before, const char *after)
{
    put("spartiti/archivio.js", QByteArray(threeSongs).replace(before, after));
}

class ArchiveCheckTest : public QObject
{
    Q_OBJECT
private slots:
    void eachKindOfFinding_isFoundAlone_data()
    {
        tableOf<Row>({
            {"nothing", {[] {}, ""}},
            {"no archive",
             {[] { QFile::remove("spartiti/archivio.js"); }, "Not to be read: spartiti/archivio.js|0"}},
            {"damaged archive",
             {[] { put("spartiti/archivio.js", "x"); }, "Not to be read: spartiti/archivio.js|0"}},
            {"shifted lines",
             {[] { putArchiveWith("\"Two\",", "\"Two\", x"); }, "Lines that are not as they should be|2"}},
            {"archive without its end",
             {[] { put("spartiti/archivio.js", threeSongs.chopped(5)); }, "End of archivio.js missing|0"}},
            {"backslash", {[] { putArchiveWith("Two", "T\\wo"); }, "Backslash or line end in a text|2"}},
            {"number", {[] { putArchiveWith("\"2\"", "\"7\""); }, "Number 7 in place of 2|2"}},
            {"no number", {[] { putArchiveWith("\"2\"", "\"\""); }, "Number  in place of 2|2"}},
            {"category above 33", {[] { putArchiveWith("\"33\"", "\"34\""); }, "Category 34 has no name|3"}},
            {"category that is a text",
             {[] { putArchiveWith("\"33\"", "\"Jazz\""); }, "Category Jazz has no name|3"}},
            {"two songs of one such",
             {[] {
                  put("spartiti/archivio.js", archiveOf({"One|||40", "Two|||", "Three|||40"}));
              },
              "Category 40 has no name|1"}},
            {"category of an empty name",
             {[] {
                  put("spartiti/generi.js",
                      fileOf("generi", linesOf("|" + QStringList(32, "Name").join('|'))));
              },
              "Category 1 has no name|1"}},
            {"too few categories",
             {[] { put("spartiti/generi.js", categories(30)); },
              "Not to be read: spartiti/generi.js|0;Category 33 has no name|3"}},
            {"no title", {[] { putArchiveWith("One", " "); }, "1 song without a title|0"}},
            {"no last title", {[] { putArchiveWith("Three", ""); }, ""}},
            {"same title", {[] { putArchiveWith("Three", "ONE "); }, "2 songs of equal titles|0"}},
            {"right page alone",
             {[] { put("spartiti/2R.jpg", picture() + 'x'); }, "Right page without a left one|2"}},
            {"empty right page alone", {[] { put("spartiti/2R.jpg", contents("spartiti/m.jpg")); }, ""}},
            {"no picture", {[] { put("spartiti/3L.jpg", "GIF"); }, "Page that cannot be shown: 3L.jpg|3"}},
            {"page of no bytes", {[] { put("spartiti/1R.jpg", {}); }, "Page that cannot be shown: 1R.jpg|1"}},
            {"page that is a folder",
             {[] { QDir().mkdir("spartiti/2L.jpg"); }, "Page that cannot be shown: 2L.jpg|2"}},
            {"page that is a pipe",
             {[] { mkfifo("spartiti/2L.jpg", 0600); }, "Page that cannot be shown: 2L.jpg|2"}},
            {"link to nothing",
             {[] { QFile::link("gone.jpg", "spartiti/2L.jpg"); }, "Page that cannot be shown: 2L.jpg|2"}},
            {"recordings in no folder",
             {[] {
                  renameFile("spartiti/audio", "elsewhere");
                  put("spartiti/audio", "x");
              },
              "Not to be read: spartiti/audio|0"}},
            {"empty sheet that is none",
             {[] { put("spartiti/m.jpg", "x"); }, "Page that cannot be shown: m.jpg|0"}},
            {"no empty sheet", {[] { QFile::remove("spartiti/m.jpg"); }, "No empty sheet m.jpg|0|mend"}},
            {"no generi.js", {[] { QFile::remove("spartiti/generi.js"); }, "No generi.js|0|mend"}},
            {"damaged playlists",
             {[] { put("spartiti/playlist.js", "x"); }, "Not to be read: spartiti/playlist.js|0"}},
            {"playlist of songs not there",
             {[] { putPlaylists("\"Set\",\"1,4,,0,x,#\",\r\n"); },
              "Playlist with songs that are not there: Set|0"}},
            {"playlist of no songs",
             {[] { putPlaylists("\"Set\",\"#\",\r\n"); }, "Playlist of no songs: Set|0"}},
            {"playlists of one name",
             {[] {
                  putPlaylists("\"Set\",\"1,#\",\r\n\"set\",\"1,#\",\r\n"
                               "\"Set\",\"2,#\",\r\n\"Set\",\"2,#\",\r\n");
              },
              "Playlists of the same name: Set|0"}},
            {"no playlists", {[] { QFile::remove("spartiti/playlist.js"); }, ""}},
            {"damaged MIDI settings",
             {[] { put("spartiti/midi.js", "var midi = [\r\n\"1\",\r\n\"0,"); },
              "Not to be read: spartiti/midi.js|0"}},
            {"MIDI value above 127",
             {[] { put("spartiti/midi.js", fileOf("midi", midiBlock("2", "0,0,128"))); },
              "MIDI values above 127|2"}},
            {"MIDI settings for no song",
             {[] { put("spartiti/midi.js", fileOf("midi", midiBlock("4", "0,0,0"))); },
              "MIDI settings for no song: 4|0"}},
            {"twice the same song",
             {[] {
                  put("spartiti/midi.js",
                      fileOf("midi",
                             midiBlock("2", "0,0,0") + midiBlock("02", "0,0,0") + midiBlock("2", "0,,0")));
              },
              "MIDI settings twice for one song|2"}},
            {"MIDI settings cut short",
             {[] { put("spartiti/midi.js", contents("spartiti/midi.js").chopped(5)); },
              "End of midi.js missing|0"}},
            {"files above the last song",
             {[] {
                  put("spartiti/4L.jpg", picture());
                  put("spartiti/audio/10000.mp3", {});
              },
              "File of no song: 4L.jpg|0;File of no song: audio/10000.mp3|0"}},
            {"letters' case",
             {[] { renameFile("spartiti/3L.jpg", "spartiti/3l.JPG"); }, "Wrong name: 3l.JPG|3|mend"}},
            {"zeros in front",
             {[] { renameFile("spartiti/audio/3.mp3", "spartiti/audio/003.mp3"); },
              "Wrong name: audio/003.mp3|3|mend"}},
            {"right name taken", {[] { put("spartiti/01L.jpg", picture()); }, "Wrong name: 01L.jpg|1"}},
            {"data file",
             {[] { renameFile("spartiti/playlist.js", "spartiti/Playlist.JS"); },
              "Wrong name: Playlist.JS|0|mend"}},
            {"folder of recordings",
             {[] { renameFile("spartiti/audio", "spartiti/Audio"); }, "Wrong name: Audio|0|mend"}},
            {"left over",
             {[] {
                  put("spartiti/archivio.js.Xa81bQ", {});
                  put("spartiti/audio/3.mp3.aBcD1e", {});
              },
              "Left over: archivio.js.Xa81bQ|0|mend;Left over: audio/3.mp3.aBcD1e|0|mend"}},
            {"songs on their way",
             {[] { put("spartiti/arriving/4L.jpg", {}); }, "Songs on their way: arriving|0|mend"}},
            {"old page", {[] { put("spartiti/4L (old 1).jpg", {}); }, "Old page: 4L (old 1).jpg|0"}},
            {"not its own",
             {[] {
                  put("spartiti/.hidden", {});
                  put("spartiti/audio/deep/1.mp3", {});
                  put("spartiti/archivio.js.backup", {});
                  put("spartiti/12 L.jpg", {});
              },
              "Not the archive's own: .hidden|0;Not the archive's own: 12 L.jpg|0;"
              "Not the archive's own: archivio.js.backup|0;"
              "Not the archive's own: audio/deep|0"}},
        });
    }

    void eachKindOfFinding_isFoundAlone()
    {
        const TestFolder folder;
        putWholeArchive();
        const auto row = tableRow<Row>();
        row.change();
        QStringList expected = QString(row.expected).split(';', Qt::SkipEmptyParts);
        QCOMPARE(found().join(';'), expected.join(';'));
    }

    void theDemonstration_hasNothingWrong()
    {
        const TestFolder folder;
        QVERIFY(QFile::link(TESSALINE_SOURCES "/demo/spartiti", "spartiti"));
        QCOMPARE(checkWholeArchive().pages, 16);
        QCOMPARE(found(), QStringList());
    }

    void findings_leadToWhereTheyAre()
    {
        const TestFolder folder;
        putWholeArchive();
        put("spartiti/archivio.js", archiveOf({"|||0", "One|||0", "One|||50"}));
        putPlaylists("\"Set\",\"8,,9,#\",\r\n");
        const ArchiveCheck check = checkWholeArchive();
        QList<Place> places;
        for (const Finding &finding : check.findings)
            places += finding.place;
        QCOMPARE(
            places,
            QList<Place>({Place::SongsWithoutTitle, Place::SongsOfSameTitle, Place::Song, Place::Playlists}));
        QVERIFY(check.findings[3].meaning.contains("8, one without a number, 9."));
        QCOMPARE(check.titles, QStringList({"", "", "One", "One"}));
        QCOMPARE(check.pages, 4);
    }

    void cancelling_tellsHowFarItCame()
    {
        const TestFolder folder;
        putWholeArchive();
        put("spartiti/1L.jpg", "x");
        const ArchiveCheck check = checkWholeArchive([](int, int all) { return all != 4; });
        QVERIFY(check.wasCancelled);
        QCOMPARE(check.pages, 0);
    }

    void leftOvers_areOnlyWhatNobodyWouldWrite_data()
    {
        tableOf<std::pair<QString, bool>>({
            {"drawn by lot", {"1L.jpg.k9ZqT3", true}},
            {"of a recording", {"audio/12.mp3.aQ8rrT", true}},
            {"of the categories", {"generi.js.AbCdEf", true}},
            {"small letters", {"archivio.js.backup", false}},
            {"a name", {"archivio.js.Backup", false}},
            {"shouted", {"archivio.js.BACKUP", false}},
            {"a date", {"archivio.js.240901", false}},
            {"numbered", {"archivio.js.Copy12", false}},
            {"a day", {"archivio.js.12June", false}},
            {"too long", {"archivio.js.Xa81bQQ", false}},
            {"of another's file", {"notes.txt.Xa81bQ", false}},
        });
    }

    void leftOvers_areOnlyWhatNobodyWouldWrite()
    {
        const auto row = tableRow<std::pair<QString, bool>>();
        QCOMPARE(isLeftOver(row.first), row.second);
    }

    // A fresh folder lacks two files, and then nothing.
    void mending_makesWhatIsMissing()
    {
        const TestFolder folder;
        put("spartiti/archivio.js", archiveOf({"|||0"}));
        QCOMPARE(found(), QStringList({"No generi.js|0|mend", "No empty sheet m.jpg|0|mend"}));
        for (const Finding &finding : checkWholeArchive().findings)
            QVERIFY(mend(finding.mending).ok());
        QCOMPARE(found(), QStringList());
        QCOMPARE(QImage("spartiti/m.jpg").size(), QSize(1240, 1754));
        const QByteArray sheet = contents("spartiti/m.jpg"), names = contents("spartiti/generi.js");
        QCOMPARE(mend({Mend::EmptySheet}).kind, Result::Kind::Refused);
        QCOMPARE(mend({Mend::Categories}).kind, Result::Kind::Refused);
        QCOMPARE(contents("spartiti/m.jpg"), sheet);
        QCOMPARE(contents("spartiti/generi.js"), names);
    }

    void mending_doesOnlyWhatItNames()
    {
        const TestFolder folder;
        putWholeArchive();
        renameFile("spartiti/1R.jpg", "spartiti/01r.Jpg");
        put("spartiti/midi.js.Xa81bQ", "x");
        put("spartiti/arriving/4L.jpg", "x");
        put("spartiti/notes.txt", "mine");
        const QList<Finding> before = checkWholeArchive().findings;
        for (const Finding &finding : before) {
            if (finding.mending.kind != Mend::None)
                QVERIFY2(mend(finding.mending).ok(), qPrintable(finding.what));
        }
        QCOMPARE(found(), QStringList("Not the archive's own: notes.txt|0"));
        QCOMPARE(namesIn("spartiti").size(), 11);
        QCOMPARE(contents("spartiti/notes.txt"), "mine");
    }

    void mending_looksAgainFirst()
    {
        const TestFolder folder;
        put("spartiti/1l.jpg", "new");
        put("spartiti/1L.jpg", "old");
        put("spartiti/archivio.js", "mine");
        put("spartiti/arriving/mine.txt", "mine");
        QCOMPARE(mend({Mend::Rename, "1l.jpg", "1L.jpg"}).kind, Result::Kind::Unwritable);
        QCOMPARE(mend({Mend::Rename, "gone.jpg", "2L.jpg"}).kind, Result::Kind::Missing);
        QCOMPARE(mend({Mend::TakeAway, "archivio.js"}).kind, Result::Kind::Refused);
        QCOMPARE(mend({Mend::TakeAway, "archivio.js.Xa81bQ"}).kind, Result::Kind::Refused);
        QCOMPARE(mend({Mend::FinishAdding}).kind, Result::Kind::Refused);
        QCOMPARE(contents("spartiti/1L.jpg") + contents("spartiti/1l.jpg"), "oldnew");
        QCOMPARE(contents("spartiti/archivio.js") + contents("spartiti/arriving/mine.txt"), "minemine");
    }
};

QTEST_MAIN(ArchiveCheckTest)
#include "archive_check_test.moc"
