// Thousands of random steps in the main window, beside a plain model of what they mean.
#include "controls/scroll_bar.h"
#include "support/windows.h"

#include <QLineEdit>

#include <random>

static const QString window = "Form1";
static constexpr int boxes = 3;
static const std::array<QString, boxes> boxNames = {"Text2", "Text3", "Text4"};

// A song as the model has it.
using Song = std::array<QString, boxes>;

struct Model {
    struct Step {
        int song;
        size_t box;
        QString before;
        QString after;
        int run; // steps of typing are one while nothing else was done
    };

    QList<Song> songs{{}}; // the first is never used; one more than there are, for what is typed behind them
    int count = 0;
    int shown = 0;
    int last = 0; // how far one can browse
    QList<Step> steps;
    qsizetype done = 0; // how many of the steps are not undone
    int run = 0;

    void type(size_t box, const QString &text)
    {
        QString &field = songs[shown][box];
        if (field == text)
            return;
        steps.resize(done, Step{});
        const bool goesOn =
            done > 0 && steps.last().song == shown && steps.last().box == box && steps.last().run == run;
        if (goesOn)
            steps.last().after = text;
        else
            steps += Step{shown, box, field, text, run};
        if (steps.last().before == steps.last().after)
            steps.removeLast();
        done = steps.size();
        field = text;
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
        done -= undo ? 1 : 0;
        const Step &step = steps[done];
        done += undo ? 0 : 1;
        songs[step.song][step.box] = undo ? step.before : step.after;
        shown = step.song;
        run += 1;
    }
    void add()
    {
        if (songs[count][0].isEmpty())
            return;
        count += 1;
        if (songs.size() <= count)
            songs += Song{};
        shown = last = count;
        run += 1;
    }
    QByteArray file() const
    {
        QStringList records;
        for (int n = 1; n <= count; n += 1)
            records += songs[n][0] + '|' + songs[n][1] + '|' + songs[n][2] + "|0";
        return archiveOf(records);
    }
};

class UndoStepsTest : public WindowTest
{
    Q_OBJECT
private slots:
    void arrayBoxAndFile_areInStep_data()
    {
        QTest::addColumn<unsigned>("seed");
        for (unsigned seed = 1; seed <= 3; seed += 1)
            QTest::addRow("%u", seed) << seed;
    }
    void arrayBoxAndFile_areInStep()
    {
        QFETCH(const unsigned, seed);
        static constexpr int steps = 1000;
        const Program program(archiveOf({"a|||0", "b|||0", "c|||0"}));
        Model model;
        model.songs = {{}, {"a"}, {"b"}, {"c"}, {}};
        model.count = model.shown = 3;
        model.last = 4;
        QByteArray onDisk = model.file();
        std::mt19937 random(seed);
        const auto below = [&](unsigned end) { return static_cast<unsigned>(random()) % end; };
        for (int step = 1; step <= steps; step += 1) {
            const unsigned kind = below(20);
            if (kind < 8) {
                const size_t box = below(boxes);
                const QString text = QString(QChar('a' + static_cast<int>(below(3)))).repeated(1 + below(2));
                type(window, boxNames[box], text);
                for (qsizetype typed = 1; typed <= text.size(); typed += 1)
                    model.type(box, text.first(typed));
            } else if (kind < 12) {
                const bool isUp = below(2) == 0;
                press(window, boxNames[below(boxes)], isUp ? Qt::Key_PageUp : Qt::Key_PageDown);
                model.browse(isUp ? -1 : 1);
            } else if (kind < 18) {
                const bool isUndo = below(5) < 3;
                press(window, boxNames[below(boxes)], isUndo ? Qt::Key_Z : Qt::Key_Y, Qt::ControlModifier);
                model.goBack(isUndo);
            } else if (kind == 18) {
                click(window, "Command5");
                model.add();
            } else {
                click(window, "Command1");
                onDisk = model.file();
                model.run += 1;
            }
            verify(model, onDisk);
            if (QTest::currentTestFailed()) {
                qWarning("at step %d", step);
                return;
            }
        }
        QVERIFY(model.count > 3 && model.steps.size() > 20);
    }

private:
    static void verify(const Model &model, const QByteArray &onDisk)
    {
        QCOMPARE(textOf(window, "Text1"), QString::number(model.shown));
        for (size_t box = 0; box < boxes; box += 1)
            QCOMPARE(textOf(window, boxNames[box]), model.songs[model.shown][box]);
        QCOMPARE(Module1.recCount, model.count);
        for (int n = 1; n < model.songs.size(); n += 1) {
            const auto entry = static_cast<size_t>(n);
            QCOMPARE((Song{Module1.recTitle[entry], Module1.recAuthor[entry], Module1.recTags[entry]}),
                     model.songs[n]);
        }
        QCOMPARE(contents("spartiti/archivio.js"), onDisk);
        QCOMPARE(Module1.archiveChanged, model.file() != onDisk);
    }
};

QTEST_MAIN(UndoStepsTest)
#include "undo_steps_test.moc"
