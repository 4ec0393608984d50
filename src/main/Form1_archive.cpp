#include "archive/append_songs.h"
#include "archive/archive_operations.h"
#include "controls/scroll_bar.h"
#include "controls/text_box.h"
#include "main/Form1.h"
#include "window/message_box.h"
#include "window/report_box.h"

#include <QCoreApplication>
#include <QDir>

// What the main window does with the archive as a whole: it asks, calls, and tells.

static constexpr char replaceQuestion[] =
    "Another program has changed spartiti/archivio.js since it was read here. Do you want to replace it by "
    "what this window holds? What the other program did to it would be lost.";

// What is still to be done for songs that were being added when the program was ended.
static void finishSongsBeingAdded()
{
    const QStringList troubles = troublesOf(finishAppending());
    if (!troubles.isEmpty())
        reportBox("Tessaline was ended while it added songs to the archive. They are all there now.",
                  troubles.join("\n\n"));
}

// True if there is an archive to be shown.
bool Form1::readOrBegin()
{
    finishSongsBeingAdded();
    const ArchiveReading reading = loadArchive();
    const bool isMissing = reading.result.kind == Result::Kind::Missing;
    if (!isMissing && !tell(reading))
        return false;
    return Module1.recCount > 0 || begin() || !isMissing;
}

// False if nothing was read.
bool Form1::tell(const ArchiveReading &reading)
{
    if (!reading.result.ok()) {
        const QString &refusal = Module1.archiveRefusal;
        messageBox(refusal.isEmpty() ? reading.result.text() : refusal);
        return false;
    }
    if (reading.irregularRecord > 0) {
        messageBox(QStringLiteral("spartiti/archivio.js is not as it should be from title %1 on: fields may "
                                  "stand in the wrong place. It was read as it stands, and a Save would "
                                  "make that permanent.")
                       .arg(reading.irregularRecord));
    } else if (reading.endMissing) {
        messageBox(QStringLiteral("The end of spartiti/archivio.js is missing or is not as it should be. "
                                  "%1 titles were read, and a Save would keep these alone.")
                       .arg(Module1.recCount));
    }
    tellUnviewable(reading.unviewable);
    return true;
}

// Each of them once while the program runs.
void Form1::tellUnviewable(const QList<int> &songs)
{
    QStringList lines;
    for (const int n : songs) {
        if (toldUnviewable_.contains(n))
            continue;
        toldUnviewable_ += n;
        lines += QStringLiteral("%1  %2").arg(n).arg(Module1.recTitle[static_cast<size_t>(n)].simplified());
    }
    if (!lines.isEmpty())
        reportBox("The viewer stops at a backslash or a line end in a title, an author or tags. These songs "
                  "have one. Type it anew and save:",
                  lines.join('\n'));
}

// Where there is no archive, or one of no titles: true if there is one now, with what was typed.
bool Form1::begin()
{
    const QString folder = QDir::toNativeSeparators(QDir::currentPath());
    if (!hasArchiveArrived()
        && !askYesNo("There are no titles in the archive of this folder:\n" + folder
                     + "\nDo you want to begin one?"))
        return false;
    const ArchiveBeginning begun = beginArchive();
    if (!begun.written.ok()) {
        messageBox("The archive was not begun. " + begun.written.text());
        return false;
    }
    if (!tell(begun.reading))
        return false;
    if (begun.hasArrived && Module1.archiveChanged)
        messageBox("An archive has come into this folder meanwhile, and was read. What you typed stands "
                   "behind its last title, and has not been saved.");
    return true;
}

// True if the empty window has an archive on the disk now that holds what was typed in it.
bool Form1::beginWithTyped()
{
    const int shown = VScroll1->value();
    if (!begin())
        return false;
    edits_.loaded();
    showArchive(Module1.archiveChanged ? Module1.recCount : qMin(shown, Module1.recCount));
    return !Module1.archiveChanged;
}

// Asks about each state of the file that another program has made of it, also while the question stood.
static bool mayReplaceArchive()
{
    QByteArray known = Module1.archiveOnDisk;
    while (checkArchive().ok() && isArchiveOtherThan(known)) {
        if (!askBeforeLoss(replaceQuestion))
            return false;
    }
    return true;
}

bool Form1::save()
{
    const bool isEmpty = checkArchive().ok() && Module1.recCount == 0;
    if (isEmpty ? !beginWithTyped() : !saveSongs())
        return false;
    messageBox("Successfully saved!");
    return true;
}

bool Form1::saveSongs()
{
    if (!mayReplaceArchive())
        return false;
    const ArchiveSaving saved = saveArchive();
    if (!saved.written.ok()) {
        messageBox("The archive was not saved; the file is as it was before.\n" + saved.written.text());
        return false;
    }
    if (!saved.readBack.ok()) {
        messageBox("The archive was saved, but could not be read back.\n" + saved.readBack.text());
        return false;
    }
    edits_.saved();
    showCount();
    return true;
}

// Save
void Form1::Command1_Click()
{
    save();
}

// Add
void Form1::Command5_Click()
{
    if (checkArchive().ok() && Module1.recCount == 0) {
        beginWithTyped();
        return;
    }
    switch (addSong()) {
    case Adding::LastIsEmpty:
        break;
    case Adding::Full:
        return messageBox("The archive is full: it holds 9999 titles.");
    case Adding::Added:
        edits_.added();
        VScroll1->setMaximum(Module1.recCount);
        VScroll1->setValue(Module1.recCount);
    }
    if (VScroll1->value() == Module1.recCount)
        Text2->setFocus(); // its title is what comes next
}

// SALVA CSV
void Form1::Command6_Click()
{
    if (const Result written = writeCsv(); !written.ok())
        messageBox("The export was not written; an earlier one is as it was before.\n" + written.text());
    else
        messageBox("OK! CONVERSIONE EFFETTUATA CON SUCCESSO CVS!");
}

// Exit
void Form1::chiudi_Click()
{
    leave(true);
}

void Form1::leave(bool wantsUnsaved)
{
    show_.leave(wantsUnsaved);
    unload();
    QCoreApplication::exit();
}

void Form1::closeBox()
{
    if (!hasUnsavedChanges()
        || askBeforeLoss("There are changes that have not been saved. Close all the same?"))
        leave(false);
}
