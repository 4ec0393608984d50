#pragma once

#include <QByteArray>
#include <QString>

#include <array>

// What all windows share: the records, and what the windows hand to each other. Plain public variables,
// read and written directly; there are no notifications. It lives as long as the process and never
// reaches the disk as such. A test starts with `Module1 = {};`.
struct Module1State {
    // Entry n is record n, counted from 1; entry 0 is never used. Above recCount lies what was typed
    // behind the last record and is not (yet) part of the archive. All fields are text.
    static constexpr int lastRecord = 9999;
    using Column = std::array<QString, lastRecord + 1>;

    int recCount = 0;
    Column recNumber; // the record's own number in decimal; empty until the first Save
    Column recTitle;
    Column recAuthor;
    Column recTags;
    Column recCategory; // 1 to 33 in decimal, "0" for none, empty until the first Save

    int pageRecord = 0; // the record on display; 0 until the first browsing step
    int midiRecord = 0; // the same
    int audioRecord = 0; // the record on display when "Mp3" was last clicked

    std::array<QString, 201> categoryName; // 1 to 33 are used

    QString mergeSourcePath; // top folder of the installation to absorb from

    // Why archivio.js must not be written in this run; empty while it may be.
    QString archiveRefusal;

    // What archivio.js held when it was last read or written here.
    QByteArray archiveOnDisk;

    // A record was changed or added since the archive was last read or saved.
    bool archiveChanged = false;
};

inline Module1State Module1;
