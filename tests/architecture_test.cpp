// The table of rooms in docs/architecture.md holds: a room includes nothing that its row lacks.

#include "support/test_folder.h"

#include <QDirIterator>
#include <QRegularExpression>

class ArchitectureTest : public QObject
{
    Q_OBJECT
private slots:
    void everyRoom_includesOnlyWhatItsRowSays()
    {
        static const QRegularExpression row("^\\| `(\\w+)` \\|.*\\|([\\w, ]*)\\|$",
                                            QRegularExpression::MultilineOption);
        static const QRegularExpression include("^#include \"(\\w+)/", QRegularExpression::MultilineOption);
        const QString sources = TESSALINE_SOURCES;
        const QString text = QString::fromUtf8(contents(sources + "/docs/architecture.md"));
        QMap<QString, QString> rooms; // each with those that it may include, itself among them
        for (const auto &found : row.globalMatch(text.section("| room of `src` |", 1).section("\n\n", 0, 0)))
            rooms[found.captured(1)] = found.captured(2) + ", " + found.captured(1);
        QDirIterator files(sources + "/src", {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString file = files.next();
            const QString room = rooms.value(files.fileInfo().dir().dirName());
            for (const auto &found : include.globalMatch(QString::fromUtf8(contents(file)))) {
                const QString other = found.captured(1);
                QVERIFY2(room.contains("all") || room.contains(other),
                         qPrintable(file + " includes " + other));
            }
        }
    }
};

QTEST_GUILESS_MAIN(ArchitectureTest)
#include "architecture_test.moc"
