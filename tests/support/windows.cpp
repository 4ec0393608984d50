#include "support/windows.h"

#include <QContextMenuEvent>
#include <QDialogButtonBox>
#include <QLabel>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QUrl>

QWidget *windowNamed(const QString &name)
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if ((window->windowTitle() == name || window->objectName() == name) && window->isVisible())
            return window;
    }
    return nullptr;
}

bool isCalled(const QWidget *control, const QString &name)
{
    const auto *button = qobject_cast<const QAbstractButton *>(control);
    return (button && button->text() == name) || control->accessibleName() == name;
}

QString textOf(const QString &window, const QString &name)
{
    return control(window, name)->property("text").toString();
}

QStringList shownRows(const QString &window, const QString &list)
{
    const auto *model = control<QAbstractItemView>(window, list)->model();
    QStringList rows;
    for (int row = 0; row < model->rowCount(); row += 1) {
        const QModelIndex index = model->index(row, 0);
        rows += (index.data(Qt::CheckStateRole) == Qt::Checked ? "+" : "") + index.data().toString();
    }
    return rows;
}

QString cell(const QString &window, const QString &table, int row, int column)
{
    return control<QTableView>(window, table)->model()->index(row, column).data().toString();
}

void waitUntilActive(const QString &window)
{
    QWidget *shown = windowNamed(window);
    if (!shown)
        qFatal("no window %s on the screen", qPrintable(window));
    shown->activateWindow(); // the offscreen platform hands nothing back when a box closes
    if (!QTest::qWaitForWindowActive(shown))
        qFatal("%s does not become the active window", qPrintable(window));
}

void click(const QString &window, const QString &name)
{
    QWidget *clicked = control(window, name);
    if (!clicked->isVisible() || !clicked->isEnabled())
        qFatal("%s in the window %s cannot be clicked", qPrintable(name), qPrintable(window));
    QTest::mouseClick(clicked, Qt::LeftButton);
}

void clickWithFullDisk(const QString &window, const QString &name, qint64 room)
{
    const FullDisk disk(room);
    click(window, name);
}

// The place that was clicked, so far to the right within the row.
static QPoint clickOn(QAbstractItemView *view, const QModelIndex &row, Qt::KeyboardModifiers held = {},
                      int right = 60)
{
    view->scrollTo(row);
    const QRect whole = view->visualRect(row);
    const QPoint place(whole.left() + qMin(right, whole.width() / 2), whole.center().y());
    QTest::mouseClick(view->viewport(), Qt::LeftButton, held, place);
    return place;
}

void clickRow(const QString &window, const QString &list, int row, Qt::KeyboardModifiers held, int right)
{
    auto *view = control<QAbstractItemView>(window, list);
    clickOn(view, view->model()->index(row, 0), held, right);
}

void clickCell(const QString &window, const QString &table, int row, int column, Qt::KeyboardModifiers held)
{
    auto *view = control<QAbstractItemView>(window, table);
    clickOn(view, view->model()->index(row, column), held);
}

// The last row of that name.
static QModelIndex rowNamed(const QAbstractItemView *list, const QString &name)
{
    const auto rows = list->model()->match(list->model()->index(0, 0), Qt::DisplayRole, name, -1,
                                           Qt::MatchExactly | Qt::MatchRecursive);
    if (rows.isEmpty())
        qFatal("no row %s in the list %s", qPrintable(name), qPrintable(list->accessibleName()));
    return rows.constLast();
}

void clickFile(const QString &window, const QString &file)
{
    auto *list = control<QAbstractItemView>(window, "File1");
    clickOn(list, rowNamed(list, file));
}

void openFolder(const QString &window, const QString &folder)
{
    auto *list = control<QAbstractItemView>(window, "Dir1");
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, clickOn(list, rowNamed(list, folder)));
}

void type(const QString &window, const QString &box, const QString &text)
{
    control<QLineEdit>(window, box)->selectAll();
    QTest::keyClicks(control(window, box), text);
}

void press(const QString &window, const QString &name, Qt::Key key, Qt::KeyboardModifiers held)
{
    waitUntilActive(window);
    QTest::keyClick(control(window, name), key, held);
}

// In the open menu.
static void choose(const QStringList &entries)
{
    for (const QString &text : entries) {
        QAction *entry = nullptr;
        const auto isOffered = [&] {
            const auto *menu = QApplication::activePopupWidget();
            for (QAction *each : menu ? menu->actions() : QList<QAction *>()) {
                if (each->isEnabled() && each->text().remove('&').section('\t', 0, 0) == text)
                    entry = each;
            }
            return entry != nullptr;
        };
        if (!QTest::qWaitFor(isOffered))
            qFatal("no entry %s in the menu", qPrintable(text));
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(entry).center());
    }
}

void chooseMenu(const QString &entry)
{
    auto *bar = windowNamed("Form1")->findChild<QMenuBar *>();
    for (QAction *menu : bar->actions()) {
        for (const QAction *each : menu->menu()->actions()) {
            if (each->text() != entry && each->objectName() != entry)
                continue;
            QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(menu).center());
            return choose({each->text()});
        }
    }
    qFatal("no entry %s in the menus", qPrintable(entry));
}

void chooseByMenuKey(const QString &window, const QString &list, const QStringList &entries)
{
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(control<QAbstractItemView>(window, list)->viewport(), &event);
    choose(entries);
}

void chooseByRightClick(QWidget *box, const QString &entry)
{
    QTest::mouseClick(box->window()->windowHandle(), Qt::RightButton, {},
                      box->mapTo(box->window(), QPoint(5, 5)));
    choose({entry});
}

Qt::DropAction drop(QWidget *target, QMimeData &dragged, QPoint at)
{
    const auto any = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(at, any, &dragged, Qt::LeftButton, Qt::ShiftModifier);
    QDropEvent let(at, any, &dragged, Qt::LeftButton, Qt::ShiftModifier);
    QApplication::sendEvent(target, &enter);
    if (enter.isAccepted())
        QApplication::sendEvent(target, &let);
    return enter.isAccepted() ? let.dropAction() : Qt::IgnoreAction;
}

void dropFiles(QWidget *target, const QStringList &addresses)
{
    QMimeData files;
    QList<QUrl> urls;
    for (const QString &each : addresses)
        urls += each.contains("://") ? QUrl(each) : QUrl::fromLocalFile(QDir::current().filePath(each));
    files.setUrls(urls);
    drop(target, files, target->rect().center());
    QCoreApplication::processEvents(); // they are taken a moment later
}

void putPicture(const QString &path, const QColor &colour)
{
    QImage picture(30, 40, QImage::Format_RGB32);
    picture.fill(colour);
    put(path, encoded(picture, qPrintable(QFileInfo(path).suffix())));
}

void putCategories(const QStringList &names, const QString &path)
{
    const QStringList others(33 - names.size(), "Rock");
    put(path, fileOf("generi", linesOf((names + others).join('|'))));
}

QByteArray midiBlock(const QString &number, const QString &firstRow)
{
    return linesOf(number + '|' + firstRow + QString("|000,000,000").repeated(15));
}

Program::Program(const QByteArray &archive, const QList<Answer> &ahead)
    : answers(ahead)
{
    if (!archive.isNull())
        put("spartiti/archivio.js", archive);
    QObject::connect(&timer, &QTimer::timeout, [this] { answer(); });
    timer.start(5);
    rooms.form1.show();
    waitUntilActive("Form1");
}

// What a person reads in a box: its text, and the report below it if there is one.
static QString textIn(const QDialog *box)
{
    QStringList texts;
    for (const auto *label : box->findChildren<QLabel *>())
        texts += label->text();
    for (const auto *report : box->findChildren<QPlainTextEdit *>())
        texts += report->toPlainText();
    texts.removeAll(QString());
    return texts.join('\n');
}

void Program::answer()
{
    auto *box = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    const auto *buttons = box ? box->findChild<QDialogButtonBox *>() : nullptr;
    const bool asksForMore = box && !box->inherits("QMessageBox") && !box->findChild<QPlainTextEdit *>();
    if (!buttons || !box->isVisible() || asksForMore)
        return;
    told += QDir::fromNativeSeparators(textIn(box));
    if (const auto happens = std::exchange(meanwhile, {}))
        happens();
    if (answers.isEmpty())
        QTest::keyClick(box, Qt::Key_Escape);
    else if (answers.first() == enterKey && answers.takeFirst() == enterKey)
        QTest::keyClick(box->windowHandle(), Qt::Key_Return);
    else
        QTest::mouseClick(buttons->button(QDialogButtonBox::StandardButton(int(answers.takeFirst()))),
                          Qt::LeftButton);
}

QString Program::boxesOf(const QString &window, const QString &button, const QList<Answer> &given)
{
    told.clear();
    answers = given;
    click(window, button);
    if (windowNamed(window))
        waitUntilActive(window);
    return told.join('\n');
}
