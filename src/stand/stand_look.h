#pragma once

#include "stand/stand_plan.h"

// Looking at a stand before the archive is copied there. Nothing is changed.

// A song that the stand's archive holds, and that goes when this one takes its place.
struct OtherSong {
    int number = 0;
    QString here; // the title; empty where there is no such song
    QString there;
};

struct [[nodiscard]] StandLook {
    Result result; // anything but fine: nothing can be copied, for this reason
    QString root; // the stand's top folder, which holds its start page and its data folder
    QList<ListedFile> here;
    QList<PlannedFile> plan;
    qint64 roomNeeded = 0; // in bytes
    qint64 roomThere = 0;
    QStringList titles; // of the songs here, by number; entry 0 is never used
    int songs = 0; // of the archive here
    int playlists = 0;

    bool hasRoom() const { return roomNeeded <= roomThere; }
    int countOf(PlannedFile::Task task) const;
};

// Whether there is an *.html file in the folder, as in that of every stand.
bool hasStartPage(const QString &root);

// Refused where the folder is within the archive's own. `progress` counts files, of an unknown number.
StandLook lookAtStand(const QString &root, const Progress &progress = {});

// The songs of the stand's archive whose titles differ from those of the same number here, by more than
// case, accents and blanks, and those behind the last song here. Read anew.
QList<OtherSong> otherSongsOn(const StandLook &look);
