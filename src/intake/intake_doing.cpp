#include "archive/archive_operations.h"
#include "controls/text_box.h"
#include "intake/bring_in.h"
#include "intake/intake_window.h"
#include "intake/page_picture.h"
#include "text/counting.h"
#include "window/message_box.h"
#include "window/progress.h"
#include "window/report_box.h"

#include <QCheckBox>

// How the window "Bring in songs" brings the ticked rows in.

// What the head of a picture tells; a PDF was looked at when it was added.
static QString troubleOf(const ComingPage &page)
{
    if (page.pdfPage > 0)
        return page.dpi > 0 ? QString() : QStringLiteral("it has no pages");
    const Result checked = page.exists() ? headOf(page.file).result : Result{};
    return checked.ok() ? QString() : page.file.section(u'/', -1) + ": " + checked.reason;
}

// How many songs that is; none where the person stops it.
std::optional<int> IntakeWindow::untickWhatCannotCome()
{
    const Progress progress = progressBox("Looking at the scans");
    int bad = 0;
    for (int row = 0; row < table_.rowCount(); row += 1) {
        if (!table_.songs()[row].isTicked)
            continue;
        if (!progress(row, table_.rowCount()))
            return {};
        QStringList troubles;
        for (const ComingPage &page : table_.songs()[row].pages())
            troubles += troubleOf(page);
        troubles.removeAll(QString());
        if (troubles.isEmpty())
            continue;
        table_.addNote(row, troubles.join("; "), true);
        bad += 1;
    }
    return bad;
}

// Of so many songs that are no longer ticked; true if the rest is to be brought in.
bool IntakeWindow::askForTheOthers(qsizetype bad)
{
    const QString text = counted(bad, "song has", "songs have")
        + " pages that cannot be made, or a recording that cannot be read. The table tells which, and they "
          "are "
          "no longer ticked.";
    if (table_.tickedCount() > 0)
        return askYesNo(text + " Bring in the other " + counted(table_.tickedCount(), "song") + '?');
    messageBox(text);
    return false;
}

bool IntakeWindow::askWhetherToGoOn()
{
    const std::optional<int> bad = untickWhatCannotCome();
    if (!bad || (*bad > 0 && !askForTheOthers(*bad)))
        return false;
    return !hasTextBehindLast()
        || askBeforeLoss(
            "What was typed behind the last song is not added yet, and would give way to the new "
            "songs. Bring them in all the same?");
}

// What cannot be made may show only when it is tried. None where the person wants no more.
std::optional<BringInReport> IntakeWindow::bringInWhatCanCome(const QString &playlist)
{
    for (;;) {
        QList<ComingSong> ticked;
        QList<int> rows;
        for (int row = 0; row < table_.rowCount(); row += 1) {
            if (table_.songs()[row].isTicked) {
                ticked += table_.songs()[row];
                rows += row;
            }
        }
        const BringInReport report =
            bringIn(ticked, playlist, progressBox("Bringing in " + counted(ticked.size(), "song")));
        if (report.cannotCome.isEmpty())
            return report;
        for (auto song = report.cannotCome.begin(); song != report.cannotCome.end(); ++song)
            table_.addNote(rows[song.key()], song.value(), true);
        if (!askForTheOthers(report.cannotCome.size()))
            return {};
    }
}

static const char nothing[] = "Nothing was brought in; the archive is as it was before.";

void IntakeWindow::bringInTicked()
{
    const QString playlist = makePlaylist_->isChecked() ? playlist_->text() : QString();
    Result possible = checkBringIn(table_.tickedCount());
    if (possible.ok() && makePlaylist_->isChecked())
        possible = checkNewPlaylist(playlist);
    if (!possible.ok())
        return messageBox(nothing + ('\n' + possible.text()));
    setWorking(true);
    images_.setPaused(true);
    std::optional<BringInReport> report;
    if (askWhetherToGoOn())
        report = bringInWhatCanCome(playlist);
    images_.setPaused(false);
    setWorking(false);
    if (report && !report->result.ok())
        messageBox(report->result.kind == Result::Kind::Cancelled ? nothing
                                                                  : nothing + ('\n' + report->result.text()));
    else if (report)
        endBringingIn(*report, playlist);
}

void IntakeWindow::endBringingIn(const BringInReport &report, const QString &playlist)
{
    QList<ComingSong> others = table_.songs();
    others.removeIf([](const ComingSong &song) { return song.isTicked; });
    table_.keepOnly(others);
    QStringList troubles = troublesOf(report);
    if (!report.playlist.ok())
        troubles += "The playlist was not made.\n" + report.playlist.text();
    tell(report.count, report.firstSong, report.playlist.ok() ? playlist : QString(), troubles);
    if (others.isEmpty())
        close();
    loadAnew_(report.firstSong);
}

void IntakeWindow::tell(int count, int firstSong, const QString &playlist, const QStringList &troubles)
{
    const int last = firstSong + count - 1;
    QString text = count == 1 ? QStringLiteral("1 song was brought in, as number %1.").arg(firstSong)
                              : QStringLiteral("%1 were brought in, as numbers %2 to %3.")
                                    .arg(counted(count, "song"))
                                    .arg(firstSong)
                                    .arg(last);
    if (!playlist.isEmpty())
        text += " They make the playlist \"" + playlist + "\".";
    if (troubles.isEmpty())
        messageBox(text);
    else
        reportBox(text + " Some of it went otherwise than it should:", troubles.join("\n\n"));
}
