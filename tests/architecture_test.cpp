// The table of rooms in docs/architecture.md holds: a room includes nothing that its row lacks.

#include "support/test_folder.h"

#include <QDirIterator>
#include <QMap>
#include <QRegularExpression>

static const QString sources = TESSALINE_SOURCES;

// Each room with those that it may include; "all" stands for every one.
static QMap<QString, QStringList> roomsOfTable()
{
    QMap<QString, QStringList> rooms;
    static const QRegularExpression row("^\\| `(\\w+)` \\|.*\\|([\\w, ]*)\\|$",
                                        QRegularExpression::MultilineOption);
    const QString text = QString::fromUtf8(contents(sources + "/docs/architecture.md"));
    const QString table = text.section("| room of `src` |", 1).section("\n\n", 0, 0);
    for (const auto &found : row.globalMatch(table))
        rooms[found.captured(1)] = found.captured(2).remove(' ').split(',');
    return rooms;
}

class ArchitectureTest : public QObject
{
    Q_OBJECT
private slots:
    void everyRoom_includesOnlyWhatItsRowSays()
    {
        static const QRegularExpression include("^#include \"(\\w+)/", QRegularExpression::MultilineOption);
        const QMap<QString, QStringList> rooms = roomsOfTable();
        QDirIterator files(sources + "/src", {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString file = files.next(), room = files.fileInfo().dir().dirName();
            QVERIFY2(rooms.contains(room), qPrintable(room + " has no row"));
            for (const auto &found : include.globalMatch(QString::fromUtf8(contents(file)))) {
                const QString other = found.captured(1);
                const bool isAllowed = rooms[room].contains(other) || rooms[room].contains("all");
                QVERIFY2(isAllowed || other == room, qPrintable(file + " includes " + other));
            }
        }
    }
};

QTEST_GUILESS_MAIN(ArchitectureTest)
#include "architecture_test.moc"
