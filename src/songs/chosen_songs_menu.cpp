#include "songs/chosen_songs_menu.h"

#include "audio/categories_file.h"
#include "files/safe_write.h"
#include "look/plain_text.h"
#include "midi/midi_save.h"
#include "songs/edits.h"
#include "songs/set_list.h"
#include "songs/song_table.h"
#include "songs/tag_dialog.h"
#include "songs/tags.h"
#include "text/counting.h"
#include "window/message_box.h"

#include <QFileDialog>

#include <functional>

ChosenSongsMenu::ChosenSongsMenu(QList<int> songs, Edits &edits, const SongTable &table, QWidget *parent)
    : QMenu(parent)
    , songs_(std::move(songs))
    , edits_(edits)
    , table_(table)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setAccessibleName("Chosen songs");
    addCategories();
    addEntry("Add a tag…", [this] { addTags(); });
    addEntry("Remove a tag…", [this] { removeTag(); })->setEnabled(!tagsOf(songs_).isEmpty());
    addSeparator();
    addEntry("Add to the playlist", [this] { emit addToPlaylistWanted(songs_); });
    addEntry("Copy the MIDI settings of the first", [this] { copyMidi(); })->setEnabled(songs_.size() > 1);
    addEntry("Empty these numbers…", [this] { emit emptyingWanted(songs_); });
    addEntry("Copy", [this] { emit copyWanted(); })->setShortcut(QKeySequence::Copy);
    if (table_.choice().kind == SongChoice::OfPlaylist) {
        addSeparator();
        addAction("Set list as PDF…", this, &ChosenSongsMenu::saveSetList);
    }
}

// An entry for the songs that are chosen.
QAction *ChosenSongsMenu::addEntry(const QString &text, const std::function<void()> &handler)
{
    QAction *entry = addAction(text, this, handler);
    entry->setEnabled(!songs_.isEmpty());
    return entry;
}

void ChosenSongsMenu::addCategories()
{
    QMenu *categories = addMenu("Set the category");
    categories->setEnabled(!songs_.isEmpty());
    const auto add = [&](const QString &name, int category) {
        categories->addAction(shownAmpersands(name), this, [this, category] {
            edits_.set(Field::Category, songs_, QStringList(songs_.size(), QString::number(category)));
        });
    };
    for (int k = 1; k <= categoryCount; k += 1)
        add(Module1.categoryName[static_cast<size_t>(k)], k);
    categories->addSeparator();
    add("None", 0);
}

void ChosenSongsMenu::changeTags(const std::function<QString(const QString &)> &change)
{
    QStringList texts;
    for (const int n : songs_)
        texts += change(Module1.recTags[static_cast<size_t>(n)]);
    edits_.set(Field::Tags, songs_, texts);
}

void ChosenSongsMenu::addTags()
{
    const QString added = askForTags(parentWidget(), songs_.size());
    changeTags([&](const QString &tags) { return withTags(tags, added); });
}

void ChosenSongsMenu::removeTag()
{
    const QString removed = askWhichTag(parentWidget(), tagsOf(songs_));
    if (!removed.isEmpty())
        changeTags([&](const QString &tags) { return withoutTag(tags, removed); });
}

void ChosenSongsMenu::copyMidi()
{
    const int first = songs_.constFirst();
    const QList<int> others = songs_.sliced(1);
    const QString question =
        QStringLiteral("Give %1 the MIDI settings of song %2, %3? The settings that they "
                       "have now are lost, and Undo does not bring them back.")
            .arg(counted(others.size(), "song"))
            .arg(first)
            .arg(Module1.recTitle[static_cast<size_t>(first)].left(100));
    if (!table_.disk().hasMidi(first)) {
        messageBox(QStringLiteral("Song %1 has no MIDI settings. Nothing was copied.").arg(first));
        return;
    }
    if (!askBeforeLoss(question))
        return;
    const Result copied = copyMidiSettings(first, others);
    if (!copied.ok())
        messageBox("The MIDI settings were not copied; the file is as it was before.\n" + copied.text());
    emit diskChanged();
}

void ChosenSongsMenu::saveSetList()
{
    const SongsOnDisk::Playlist playlist = table_.disk().playlists()[table_.choice().playlist];
    const QString path = QFileDialog::getSaveFileName(parentWidget(), "Set list as PDF",
                                                      setListName(playlist.name), "PDF (*.pdf)");
    if (path.isEmpty())
        return;
    if (const Result written = replaceFile(path, setListPdf(playlist)); !written.ok())
        messageBox("The set list was not written; an earlier one is as it was before.\n" + written.text());
}
