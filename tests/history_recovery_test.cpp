// What is typed and not saved: how it is kept for the next start, and put back.
#include "archive/archive_file.h"
#include "history/recovery.h"
#include "songs/edits.h"
#include "support/table.h"
#include "support/test_folder.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTest>

static Unsaved typed(const QString &title)
{
    return {1, {{1, SongFields{"One", "", "", "0"}, {title, "", "", "0"}}}};
}

static const QString first = "kept/unsaved-1.json";

// What was typed, over an archive that may have changed since.
struct Case {
    UnsavedSong song;
    int count;
    QStringList archive; // at the next start
    QStringList then;
    bool isTold = false;
};

class HistoryRecoveryTest : public FolderTest
{
    Q_OBJECT
private slots:
    void aChange_isWrittenSoonAfterTheLastAndNotLongAfterTheFirst()
    {
        QVERIFY(QDir().mkdir("kept"));
        const auto isKept = [] { return QFileInfo::exists(first); };
        bool mayWrite = true;
        Recovery recovery(
            "kept", [] { return typed("Typed"); }, [&] { return mayWrite; }, {100, 400});
        recovery.note(); // before it has begun nothing is kept
        recovery.begin();
        QTest::qWait(150);
        QVERIFY(!isKept());
        QElapsedTimer since;
        since.start();
        while (!isKept() && since.elapsed() < 5000) {
            recovery.note();
            QTest::qWait(20);
        }
        QVERIFY2(since.elapsed() >= 300 && since.elapsed() < 2000,
                 qPrintable(QString::number(since.elapsed())));
        QCOMPARE(readUnsaved(first), typed("Typed"));
        recovery.forget();
        QVERIFY(!isKept());
        mayWrite = false;
        recovery.note();
        QTest::qWait(300);
        QVERIFY(!isKept());
        mayWrite = true;
        QTRY_VERIFY(isKept());
    }

    void whatAnotherProgramLeft_isNeverWrittenOver()
    {
        const auto left = bytesOf(typed("Left"));
        put(first, left);
        put("kept/running-1.lock", ""); // killed before it could write its name there
        put("kept/running-2.lock", "999999999\ntessaline\n\n"); // of a program that runs no longer
        Recovery recovery("kept", [] { return typed("Mine"); });
        recovery.begin();
        QVERIFY(recovery.canKeep() && !recovery.isSecond());
        QCOMPARE(recovery.leftBehind(), QStringList{first});
        recovery.note();
        QVERIFY(recovery.write());
        QCOMPARE(contents(first), left);
        QCOMPARE(contents("kept/unsaved-2.json"), bytesOf(typed("Mine")));
        Recovery second("kept", [] { return Unsaved(); });
        second.begin();
        QVERIFY(second.isSecond() && second.canKeep());
        QCOMPARE(second.leftBehind(), QStringList{first});
        QVERIFY(second.takeOver(first));
        QCOMPARE(namesIn("kept").filter("unsaved"), QStringList{"unsaved-2.json"});
    }

    void aFolderThatCannotBeHad_isSaid()
    {
        for (const char *folder : {"", "/proc/nowhere"}) {
            Recovery recovery(folder, [] { return typed("Typed"); });
            recovery.begin();
            recovery.note();
            QVERIFY(!recovery.canKeep() && !recovery.isSecond() && !recovery.write());
        }
    }

    void cutOrGarbledAnywhere_itGivesNothing()
    {
        const Unsaved unsaved{3,
                              {{2, SongFields{"A", "", "", "0"}, {"\u00c9\"\\\n", "", "", "7"}},
                               {3, std::nullopt, {"New", "", "", ""}}}};
        const QByteArray bytes = bytesOf(unsaved);
        QCOMPARE(unsavedOf(bytes), unsaved);
        for (qsizetype i = 0; i < bytes.size(); i += 1) {
            QVERIFY(!unsavedOf(bytes.first(i)));
            for (const char other : {'\0', ' ', '"', static_cast<char>(bytes[i] ^ 1)}) {
                QByteArray garbled = bytes;
                garbled[i] = other;
                QVERIFY(garbled == bytes || !unsavedOf(garbled));
            }
        }
    }

    void puttingBack_changesOnlyWhatIsAsItWas_data()
    {
        const SongFields one{"One", "", "", "0"};
        const UnsavedSong changed{1, one, {"Uno", "Me", "a b", "7"}};
        const UnsavedSong added{2, std::nullopt, {"Two", "", "", ""}};
        tableOf<Case>({
            {"changed", {changed, 1, {"One|||0"}, {"Uno|Me|a b|7", "|||"}}},
            {"no category is one", {changed, 1, {"One|||"}, {"Uno|Me|a b|7", "|||"}}},
            {"other since", {changed, 1, {"Ein|||0"}, {"Ein|||0", "|||"}, true}},
            {"gone since", {changed, 1, {}, {"|||"}, true}},
            {"saved since", {changed, 1, {"Uno|Me|a b|7"}, {"Uno|Me|a b|7", "|||"}}},
            {"added", {added, 2, {"One|||0"}, {"One|||0", "Two|||", "|||"}}},
            {"typed behind the last", {added, 1, {"One|||0"}, {"One|||0", "Two|||"}}},
            {"an empty one there", {added, 2, {"One|||0", "|||0"}, {"One|||0", "Two|||", "|||"}}},
            {"another one there", {added, 2, {"One|||0", "Zwei|||0"}, {"One|||0", "Zwei|||0", "|||"}, true}},
            {"the one before gone", {added, 2, {}, {"|||"}, true}},
        });
    }
    void puttingBack_changesOnlyWhatIsAsItWas()
    {
        const auto row = tableRow<Case>();
        putArchive(row.archive);
        (void)loadArchive();
        Edits edits;
        edits.loaded();
        const PutBack put = putBack({row.count, {row.song}}, edits);
        QCOMPARE(recordsInMemory(1), row.then);
        QCOMPARE(put.changedMeanwhile, row.isTold ? QList{row.song.record} : QList<int>());
        QCOMPARE(edits.stack().count(), put.records.size()); // no step where nothing was put back
        edits.stack().undo();
        for (qsizetype i = 0; i < Module1.recCount; i += 1)
            QCOMPARE(recordsInMemory()[i].section('|', 0, 0), row.archive.value(i).section('|', 0, 0));
    }
};

QTEST_GUILESS_MAIN(HistoryRecoveryTest)
#include "history_recovery_test.moc"
