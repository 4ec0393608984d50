#pragma once

#include <QList>
#include <QMenu>

#include <functional>

class Edits;
class SongTable;

// What can be done with the songs that are chosen in the list. What changes fields is one step of undo.
// Deletes itself when it is closed.
class ChosenSongsMenu : public QMenu
{
    Q_OBJECT
public:
    ChosenSongsMenu(QList<int> songs, Edits &edits, const SongTable &table, QWidget *parent);

signals:
    void addToPlaylistWanted(const QList<int> &songs);
    void copyWanted();
    void emptyingWanted(const QList<int> &songs);
    void diskChanged(); // something that the list shows was written

private:
    QAction *addEntry(const QString &text, const std::function<void()> &handler);
    void addCategories();
    void changeTags(const std::function<QString(const QString &)> &change);
    void addTags();
    void removeTag();
    void copyMidi();
    void saveSetList();

    const QList<int> songs_; // from above to below
    Edits &edits_;
    const SongTable &table_;
};
