#pragma once

#include "support/windows.h"

// The program with its history begun. What it keeps lies beside the archive for the test.
struct Keeping : Program {
    explicit Keeping(const QList<Answer> &ahead = {})
        : Program(archiveOf({"One|||0", "Two|||0", "Three|||7"}), ahead)
    {
        qputenv("XDG_DATA_HOME", QFile::encodeName(QDir::current().filePath("share")));
        rooms.beginHistory();
    }

    // The program ends without a chance to do anything, and is started again.
    void startAnew(const QList<Answer> &ahead)
    {
        answers = ahead;
        told.clear();
        rooms.history.reset();
        rooms.form1.reload();
        rooms.beginHistory();
    }

    // "Archive", "Left page of 3" and so on, newest first.
    QStringList versions() const
    {
        QStringList names;
        for (const Version &version : rooms.history->versions.all())
            names += nameForPeople(version.file);
        return names;
    }
};

// Takes steps that end the program, in an event loop like the one of main().
inline void untilTheEnd(const std::function<void()> &steps)
{
    QTimer::singleShot(0, steps);
    QApplication::exec();
}

// The entry "Exit" of the menu.
inline void leaveByExit()
{
    untilTheEnd([] { chooseMenu("chiudi"); });
}

// Undo by its key, and redo where Shift is held too.
inline void undo(Qt::KeyboardModifiers more = {})
{
    press("Form1", "Title", Qt::Key_Z, Qt::ControlModifier | more);
}

// Stores a page for the song that is shown.
inline void storePage(const QString &side)
{
    put("scan.jpg", "scan");
    click("Form1", side);
    clickFile(side + " page", "scan.jpg");
    click(side + " page", "Ok");
}

// A song and what its left page, its right page and its recording hold.
inline QByteArray songWithFiles(int n)
{
    return recordsInMemory()[n - 1].toUtf8() + ' ' + contents(pagePath(n, Page::Left)) + ' '
        + contents(pagePath(n, Page::Right)) + ' ' + contents(recordingPath(n)) + ' ';
}

// The number and the title that the main window shows.
inline QString shownSong()
{
    return textOf("Form1", "Text1") + ' ' + textOf("Form1", "Title");
}
