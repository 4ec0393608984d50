#include "archive/Module1.h"
#include "controls/combo_box.h"
#include "files/safe_write.h"
#include "look/look.h"
#include "playlists/playlistfrm.h"
#include "support/ratio.h"
#include "support/test_folder.h"
#include "window/message_box.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <algorithm>
#include <random>

static const QString path = "spartiti/playlist.js";

static QStringList fillArchive()
{
    QStringList titles;
    for (int n = 1; n <= Module1State::lastRecord; n += 1)
        titles += QStringLiteral("Song number %1 of the bench").arg(n, 4, 10, QLatin1Char('0'));
    QStringList shuffled = titles;
    std::shuffle(shuffled.begin(), shuffled.end(), std::mt19937(1));
    Module1.recCount = Module1State::lastRecord;
    for (size_t n = 1; n <= Module1State::lastRecord; n += 1) {
        Module1.recTitle[n] = shuffled[static_cast<qsizetype>(n) - 1];
        Module1.recNumber[n] = QString::number(n);
    }
    return titles;
}

static QByteArray songs(int count)
{
    QByteArray list;
    for (int k = 1; k <= count; k += 1)
        list += QByteArray::number(9000 + k % 999) + ',';
    return list + '#';
}

static QByteArray file(int playlists, int songCount)
{
    QByteArray bytes("var playlist = [\r\n");
    for (int i = 1; i <= playlists; i += 1)
        bytes += "\"Playlist " + QByteArray::number(i) + "\",\"" + songs(songCount) + "\",\r\n";
    return bytes + " ];\r\n";
}

static QStringList playlistNames(int count)
{
    QStringList names;
    for (int i = 1; i <= count; i += 1)
        names += QStringLiteral("Playlist %1").arg(i);
    return names;
}

template <typename Control> static Control *control(const QString &name)
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->objectName() == "playlistfrm" && window->isVisible())
            return window->findChild<Control *>(name);
    }
    return nullptr;
}

static void answerBoxes(QTimer &timer)
{
    QObject::connect(&timer, &QTimer::timeout, [] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget()))
            box->button(QMessageBox::Ok)->click();
    });
    timer.start(0);
}

static void fillAndShow(QListWidget &list, const QStringList &rows)
{
    list.resize(281, 429);
    list.addItems(rows);
    list.show();
    list.grab();
}

static void benchOpening(const QStringList &titles)
{
    put(path, file(999, 100));
    playlistfrm form;
    compare(
        {"open on 9,999 titles and 999 playlists", "fill a sorted list with them, presorted", 1.5},
        [&] {
            form.unload();
            form.show();
            control<QListWidget>("List1")->grab();
        },
        [&] {
            QListWidget list;
            list.setSortingEnabled(true);
            fillAndShow(list, titles);
        });
}

static void benchPicking(const QStringList &titles)
{
    put(path, file(2, 1000));
    playlistfrm form;
    form.show();
    compare(
        {"pick a playlist of 1,000 songs", "fill a list with 1,000 rows", 1.5},
        [] {
            control<ComboBox>("Combo1")->setCurrentIndex(1);
            emit control<ComboBox>("Combo1")->activated(1);
            control<QListWidget>("List2")->grab();
        },
        [&] {
            QListWidget list;
            fillAndShow(list, titles.first(1000));
        });
}

static void benchSaving()
{
    put(path, file(998, 100));
    const QByteArray bytes = contents(path);
    playlistfrm form;
    form.show();
    QComboBox names;
    names.setEditable(true);
    const QStringList known = playlistNames(998);
    QTimer answers;
    answerBoxes(answers);
    compare(
        {"save a playlist beside 998 others", "write the same text as safely, list the same names", 2, 45},
        [&] {
            put(path, bytes);
            control<QLineEdit>("Text1")->setText("Last");
            control<QPushButton>("Command1")->click();
        },
        [&] {
            put(path, bytes);
            if (!replaceFile(path, bytes).ok())
                qFatal("not written");
            QMessageBox box(QMessageBox::NoIcon, "Ok!", "Successfully saved", QMessageBox::Ok);
            box.exec();
        });
}

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    applyLook(app);
    const TestFolder folder;
    const QStringList titles = fillArchive();
    benchOpening(titles);
    benchPicking(titles);
    benchSaving();
}
