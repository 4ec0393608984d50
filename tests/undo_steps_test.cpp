// Thousands of random steps in the main window and in "Songs", beside a plain model of what they mean.
#include "support/songs_window.h"

#include <random>

static const QString form = "Form1";
static constexpr size_t boxes = 3;
static constexpr size_t category = 3;
static const std::array<QString, boxes> boxNames = {"Text2", "Text3", "Text4"};

using Song = QStringList; // title, author, tags, category

struct Model {
    static constexpr int atOnce = -1;
    struct Step {
        size_t field;
        QList<int> changed;
        QList<Song> before; // all songs
        QList<Song> after;
        int run; // steps of typing are one while nothing else was done
    };

    QList<Song> songs{100, {"", "", "", "0"}}; // the first is never used
    int count = 3;
    int shown = 3;
    int last = 4; // how far one can browse
    QList<Step> steps;
    qsizetype done = 0; // how many of the steps are not undone
    int run = 0;

    void put(size_t field, QList<int> changed, const QString &text, int ofRun)
    {
        const QList<Song> before = songs;
        for (const int n : changed)
            songs[n][field] = text;
        changed.removeIf([&](int n) { return songs[n] == before[n]; });
        if (changed.isEmpty())
            return;
        steps.resize(done, Step{});
        const bool goesOn = done > 0 && ofRun != atOnce && steps.last().run == ofRun
            && steps.last().field == field && steps.last().changed == changed;
        if (goesOn)
            steps.last().after = songs;
        else
            steps += Step{field, changed, before, songs, ofRun};
        if (steps.last().before == steps.last().after)
            steps.removeLast();
        done = steps.size();
    }
    void browse(int by)
    {
        const int to = std::clamp(shown + by, 1, last);
        run += to == shown ? 0 : 1;
        shown = to;
    }
    void goBack(bool undo)
    {
        if (undo ? done == 0 : done == steps.size())
            return;
        const Step &step = steps[undo ? done - 1 : done];
        done += undo ? -1 : 1;
        songs = undo ? step.before : step.after;
        shown = step.changed.contains(shown) ? shown : step.changed[0];
        run += 1;
    }
    void add()
    {
        if (songs[count][0].isEmpty())
            return;
        count += 1;
        shown = last = count;
        run += 1;
    }
    QStringList records(int to) const
    {
        QStringList records;
        for (int n = 1; n <= to; n += 1)
            records += songs[n].join('|');
        return records;
    }
};

class UndoStepsTest : public WindowTest
{
    Q_OBJECT
private slots:
    void arrayBoxAndFile_areInStep_data() { tableOf<unsigned>({{"one", 1}, {"two", 2}, {"three", 3}}); }
    void arrayBoxAndFile_areInStep()
    {
        Program program(archiveOf({"|||0", "|||0", "|||0"}));
        songs::open();
        Model model;
        onDisk_ = model.records(model.count);
        random_.seed(tableRow<unsigned>());
        for (int step = 1; step <= 700; step += 1) {
            play(model);
            verify(model, program.rooms.edits);
            if (QTest::currentTestFailed()) {
                qWarning("at step %d", step);
                return;
            }
        }
        QVERIFY(model.count > 3 && model.steps.size() > 20);
    }

private:
    unsigned below(unsigned end) { return static_cast<unsigned>(random_()) % end; }

    void play(Model &model)
    {
        const unsigned kind = below(24);
        const QString text = QString(QChar('a' + static_cast<int>(below(3)))).repeated(1 + below(2));
        const size_t box = below(boxes);
        if (kind < 8) {
            type(form, boxNames[box], text);
            for (qsizetype typed = 1; typed <= text.size(); typed += 1)
                model.put(box, {model.shown}, text.first(typed), model.run);
        } else if (kind < 12) {
            const bool isUp = below(2) == 0;
            press(form, boxNames[box], isUp ? Qt::Key_PageUp : Qt::Key_PageDown);
            model.browse(isUp ? -1 : 1);
        } else if (kind < 18) {
            const bool isUndo = below(5) < 3;
            const bool isInSongs = below(3) == 0;
            press(isInSongs ? songs::window : form, isInSongs ? songs::window : boxNames[box],
                  isUndo ? Qt::Key_Z : Qt::Key_Y, Qt::ControlModifier);
            model.goBack(isUndo);
        } else if (kind == 18) {
            click(form, "Command5");
            model.add();
        } else if (kind == 19) {
            click(form, "Command1");
            onDisk_ = model.records(model.count);
            model.run += 1;
        } else {
            playInSongs(model, kind < 22, box, text);
        }
    }

    // Most often a cell is edited, else the categories from there to another one.
    void playInSongs(Model &model, bool isOfOne, size_t box, const QString &text)
    {
        waitUntilActive(songs::window);
        const int first = 1 + static_cast<int>(below(static_cast<unsigned>(model.count)));
        if (isOfOne) {
            songs::editCell(first - 1, static_cast<int>(box) + 1, text);
            return model.put(box, {first}, text, Model::atOnce);
        }
        QList<int> chosen;
        for (int n = first; n <= qMin(first + 2, model.count); n += 1)
            chosen += n;
        songs::table()->setFocus();
        songs::clickCell(chosen.first() - 1, 0);
        songs::clickCell(chosen.last() - 1, 0, Qt::ShiftModifier);
        songs::chooseForChosen({"Set the category", QString::number(text.size())});
        model.put(category, chosen, QString::number(text.size()), Model::atOnce);
    }

    void verify(const Model &model, Edits &edits) const
    {
        QCOMPARE(textOf(form, "Text1"), QString::number(model.shown));
        for (size_t box = 0; box < boxes; box += 1)
            QCOMPARE(textOf(form, boxNames[box]), model.songs[model.shown][box]);
        QCOMPARE(Module1.recCount, model.count);
        QCOMPARE(songs::table()->model()->rowCount(), model.count);
        QStringList records;
        for (size_t n = 1; n <= static_cast<size_t>(model.last); n += 1) {
            const QString number = Module1.recCategory[n].isEmpty() ? "0" : Module1.recCategory[n];
            records +=
                Module1.recTitle[n] + '|' + Module1.recAuthor[n] + '|' + Module1.recTags[n] + '|' + number;
        }
        QCOMPARE(records, model.records(model.last));
        QCOMPARE(edits.stack().index(), model.done);
        QCOMPARE(contents("spartiti/archivio.js"), archiveOf(onDisk_));
        QList<int> unsaved;
        for (int n = 1; n <= model.count; n += 1) {
            if (records[n - 1] != onDisk_.value(n - 1))
                unsaved += n;
        }
        QCOMPARE(edits.unsavedRecords(), unsaved);
        QCOMPARE(Module1.archiveChanged, !unsaved.isEmpty());
    }

    QStringList onDisk_;
    std::mt19937 random_;
};

QTEST_MAIN(UndoStepsTest)
#include "undo_steps_test.moc"
