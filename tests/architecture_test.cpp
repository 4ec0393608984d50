// The table of rooms in docs/architecture.md holds: a room includes nothing that its row lacks.

#include "support/test_folder.h"

#include <QDirIterator>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

static const QString sources = TESSALINE_SOURCES;

// Each room with those that it may include; "all" stands for every one.
static QMap<QString, QSet<QString>> roomsOfTable()
{
    QMap<QString, QSet<QString>> rooms;
    static const QRegularExpression row("^\\| `(\\w+)` \\|.*\\|([\\w, ]*)\\|$",
                                        QRegularExpression::MultilineOption);
    const QString text = QString::fromUtf8(contents(sources + "/docs/architecture.md"));
    const QString table = text.section("| room of `src` |", 1).section("\n\n", 0, 0);
    for (const auto &found : row.globalMatch(table)) {
        const QStringList names = found.captured(2).remove(' ').split(',', Qt::SkipEmptyParts);
        rooms[found.captured(1)] = QSet<QString>(names.begin(), names.end());
    }
    return rooms;
}

static QStringList includesLackedBy(const QSet<QString> &allowed, const QString &room)
{
    static const QRegularExpression include("^#include \"(\\w+)/", QRegularExpression::MultilineOption);
    QStringList lacking;
    for (QDirIterator files(sources + "/src/" + room, {"*.h", "*.cpp"}); files.hasNext();) {
        const QString file = files.next();
        for (const auto &found : include.globalMatch(QString::fromUtf8(contents(file)))) {
            const QString other = found.captured(1);
            if (other != room && !allowed.contains(other) && !allowed.contains("all"))
                lacking += files.fileName() + " includes " + other;
        }
    }
    return lacking;
}

class ArchitectureTest : public QObject
{
    Q_OBJECT
private slots:
    void everyRoom_includesOnlyWhatItsRowSays()
    {
        const QMap<QString, QSet<QString>> rooms = roomsOfTable();
        const QStringList folders = QDir(sources + "/src").entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        for (const QString &folder : folders) {
            if (QDir(sources + "/src/" + folder).entryList({"*.h"}).isEmpty())
                continue;
            QVERIFY2(rooms.contains(folder), qPrintable(folder + " has no row"));
            QCOMPARE(includesLackedBy(rooms[folder], folder).join("; "), QString());
        }
    }
};

QTEST_GUILESS_MAIN(ArchitectureTest)
#include "architecture_test.moc"
