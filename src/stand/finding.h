#pragma once

#include <QString>

// What can be done about a finding without asking anything more.
struct Mending {
    enum class Kind {
        None,
        Rename, // the file `name` becomes `newName`, where that is free
        EmptySheet, // a white page becomes the empty sheet, where there is none
        Categories, // the usual names become the categories' names, where there are none
        TakeAway, // the file `name` is deleted
        FinishAdding // what a broken off adding of songs has left is finished or taken away
    };

    Kind kind = Kind::None;
    QString name = {}; // below the data folder: "12l.JPG", "audio/012.mp3"
    QString newName = {};
};

// One thing in an archive at which the stand will stumble, or which somebody will want to know.
struct Finding {
    // Where a person can do something about it.
    enum class Place { Nowhere, Song, SongsWithoutTitle, SongsOfSameTitle, Playlists };

    QString what; // for people, a few words
    QString meaning; // for people, whole sentences
    int song = 0; // the number, from 1; 0 where it is about no song
    Place place = Place::Nowhere;
    Mending mending = {};
};
