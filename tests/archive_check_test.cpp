#include "stand/archive_check.h"
#include "stand/mend.h"
#include "stand/own_names.h"
#include "support/test_folder.h"

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
        lines += QDir::fromNativeSeparators(finding.what) + '|' + QString::number(finding.song)
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
    // By way of a third name, for disks on which names differ by more than their letters' case.
    return [=] { QVERIFY(QDir("spartiti").rename(from, "x") && QDir("spartiti").rename("x", to)); };
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

class ArchiveCheckTest : public FolderTest
{
    Q_OBJECT
private slots:
    // The name of a row is what is found, as lines of found() with a semicolon between two.
    void eachKindOfFinding_isFoundAlone_data()
    {
        const QByteArray page = picture(), settings = midiBlock("2", "0,0,0");
        tableOf<Change>({
            {"Not to be read: spartiti/archivio.js|0", file("archivio.js", "x")},
            {"Lines that are not as they should be|2", songs("\"Two\",", "\"Two\", x")},
            {"End of archivio.js missing|0", file("archivio.js", threeSongs.chopped(5))},
            {"Backslash or line end in a text|2", songs("Two", "T\\wo")},
            {"Number 7 in place of 2|2", songs("\"2\"", "\"7\"")},
            {"Category 1 has no name|1",
             file("generi.js", categories(32).replace("[\r\n", "[\r\n\"\",\r\n"))},
            {"Not to be read: spartiti/generi.js|0;Category 33 has no name|3",
             file("generi.js", categories(30))},
            {"1 song without a title|0", songs("One", " ")},
            {"2 songs of equal titles|0", songs("Three", "ONE ")},
            {"Right page without a left one|2", file("2R.jpg", page + 'x')},
            {"Page that cannot be shown: 1L.jpg|1", file("1L.jpg", "GIF")},
            {"Page that cannot be shown: 2L.jpg|2", [] { QDir().mkdir("spartiti/2L.jpg"); }},
            {"Page that cannot be shown: 3R.jpg|3", [] { putLink("gone.jpg", "spartiti/3R.jpg"); }},
            {"Not to be read: spartiti/audio|0",
             [] { renamed("audio", "../elsewhere")(), file("audio", "x")(); }},
            {"Page that cannot be shown: m.jpg|0", file("m.jpg", "x")},
            {"No empty sheet m.jpg|0|mend", without("m.jpg")},
            {"No generi.js|0|mend", without("generi.js")},
            {"Not to be read: spartiti/playlist.js|0", file("playlist.js", "x")},
            {"Playlist with songs that are not there: Set|0", playlists("\"Set\",\"1,8,,0,x,8,#\",\r\n")},
            {"Playlist of no songs: Set|0", playlists("\"Set\",\"#\",\r\n")},
            {"Playlists of the same name: Set|0",
             playlists("\"Set\",\"1,#\",\r\n\"set\",\"1,#\",\r\n\"Set\",\"2,#\",\r\n")},
            {"Not to be read: spartiti/midi.js|0", file("midi.js", "var midi = [\r\n\"1\",\r\n\"0,")},
            {"MIDI values above 127|2", midi(midiBlock("2", "0,0,128"))},
            {"MIDI settings for no song: 4|0", midi(midiBlock("4", "0,0,0"))},
            {"MIDI settings twice for one song|2", midi(settings + midiBlock("02", "0,,0"))},
            {"End of midi.js missing|0", file("midi.js", fileOf("midi", settings).chopped(5))},
            {"File of no song: 9L.jpg|0", file("9L.jpg", page)},
            {"Wrong name: 3l.JPG|3|mend", renamed("3L.jpg", "3l.JPG")},
            {"Wrong name: audio/003.mp3|3|mend", renamed("audio/3.mp3", "audio/003.mp3")},
            {"Wrong name: 01L.jpg|1", file("01L.jpg", page)}, // there is a 1L.jpg too
            {"Wrong name: Audio|0|mend", renamed("audio", "Audio")},
            {"Left over: audio/3.mp3.aBcD1e|0|mend", file("audio/3.mp3.aBcD1e", {})},
            {"Songs on their way: arriving|0|mend", file("arriving/4L.jpg", {})},
            {"Old page: 4L (old 1).jpg|0", file("4L (old 1).jpg", {})},
            {"Not the archive's own: .hidden|0", file(".hidden", {})},
            {"Not the archive's own: audio/deep|0", file("audio/deep/1.mp3", {})},
        });
    }
    void eachKindOfFinding_isFoundAlone()
    {
        putWholeArchive();
        tableRow<Change>()();
        QCOMPARE(found().join(';'), QTest::currentDataTag());
    }

    void whatMayBeSo_isNotFound()
    {
        putWholeArchive();
        for (const Change &change : {songs("Three", ""), file("2R.jpg", picture()), without("playlist.js")})
            change();
        QCOMPARE(found(), QStringList());
    }

    void theDemonstration_hasNothingWrong()
    {
        QVERIFY(putLink(TESSALINE_SOURCES "/demo/spartiti", "spartiti"));
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
    }

    void mending_looksAgainFirst()
    {
        for (const char *name :
             {"01L.jpg", "1L.jpg", "m.jpg", "generi.js", "archivio.js", "arriving/mine.txt"})
            file(name, name)();
        const QStringList before = filesBelow(".");
        QCOMPARE(mend({Mend::Rename, "01L.jpg", "1L.jpg"}).kind, Result::Kind::Unwritable);
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
