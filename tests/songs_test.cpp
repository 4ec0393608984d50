#include "songs/edits.h"
#include "support/test_folder.h"

#include <QSignalSpy>
#include <QTest>

class SongsTest : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        Module1 = {};
        Module1.recCount = 5;
        for (size_t n = 1; n <= 5; n += 1)
            Module1.recTitle[n] = "Song";
    }

    void whatIsTypedIntoOneBox_isOneStep()
    {
        Edits edits;
        edits.loaded();
        for (const char *text : {"S", "So", "Solo"})
            edits.type(Field::Title, 2, text);
        QCOMPARE(edits.stack().count(), 1);
        QCOMPARE(edits.stack().undoText(), "title of 2");
        edits.type(Field::Author, 2, "A");
        edits.rest();
        edits.type(Field::Author, 2, "An");
        QCOMPARE(edits.stack().count(), 3);
        edits.stack().undo();
        edits.type(Field::Author, 2, "B"); // a step of its own, though it is the same box
        edits.stack().undo();
        QCOMPARE(Module1.recAuthor[2], "A");
        edits.type(Field::Tags, 2, "x");
        edits.type(Field::Tags, 2, "");
        QCOMPARE(edits.stack().undoText(), "author of 2"); // typed and taken away again is no step
        edits.stack().undo();
        edits.stack().undo();
        QCOMPARE(Module1.recTitle[2] + Module1.recAuthor[2], "Song");
        QVERIFY(!edits.stack().canUndo() && !Module1.archiveChanged);
    }

    void manyRecords_areOneStep()
    {
        Edits edits;
        edits.loaded();
        QSignalSpy changed(&edits, &Edits::changed);
        QSignalSpy stepped(&edits, &Edits::steppedTo);
        Module1.recCategory[3] = "7";
        edits.set(Field::Category, {2, 3, 4}, {"7", "7", "7"});
        edits.set(Field::Category, {2}, {"7"}); // changes nothing
        QCOMPARE(edits.stack().count(), 1);
        QCOMPARE(edits.stack().undoText(), "category of 2 songs");
        QCOMPARE(changed.value(0).value(0).value<QList<int>>(), (QList<int>{2, 4}));
        QVERIFY(stepped.isEmpty());
        edits.stack().undo();
        QCOMPARE(stepped.value(0).value(0).value<QList<int>>(), (QList<int>{2, 4}));
        QCOMPARE(Module1.recCategory[2] + Module1.recCategory[3] + Module1.recCategory[4], "7");
    }

    void unsavedRecords_areThoseThatDifferFromTheDisk()
    {
        Edits edits;
        edits.loaded();
        edits.set(Field::Title, {4, 2}, {"D", "B"});
        Module1.recCount = 6;
        edits.added();
        QCOMPARE(edits.unsavedRecords(), (QList<int>{2, 4, 6}));
        edits.stack().undo();
        QCOMPARE(edits.unsavedRecords(), (QList<int>{6}));
        edits.stack().redo();
        edits.saved();
        QCOMPARE(edits.unsavedRecords(), (QList<int>{}));
        edits.stack().undo(); // what is saved can be undone, and is then to be saved again
        QCOMPARE(edits.unsavedRecords(), (QList<int>{2, 4}));
        QVERIFY(Module1.archiveChanged);
        edits.loaded();
        QVERIFY(!edits.stack().canUndo() && !edits.stack().canRedo());
    }
};

QTEST_GUILESS_MAIN(SongsTest)
#include "songs_test.moc"
