#pragma once

#include <QString>

#include <optional>

// The names of all files of an archive; nothing else in the program puts such a name together.
// Every path is relative to the working directory, or lies in the folder `root` where one is given:
// the top folder of an installation, with or without a separator at its end. docs/file-formats.md
// tells what each file holds.

enum class Page { Left, Right };

// The data folder itself.
QString dataFolder(const QString &root = ".");
QString recordingsFolder();

// The path of what is called `name` below the data folder: "12L.jpg", "audio/12.mp3".
QString dataFile(const QString &name, const QString &root = ".");

QString archivePath(const QString &root = ".");
QString categoriesPath(const QString &root = ".");
QString playlistPath();
QString midiPath();
QString csvPath();

// The page that a right page starts as.
QString emptyPagePath();

// `record` counts from 1; it is put into the name in plain decimal, whatever it is.
QString pagePath(int record, Page page, const QString &root = ".");
QString recordingPath(int record);

// Which page a file of that name in the data folder is; none where pagePath() gives no such name.
struct PageOfRecord {
    int record = 0;
    Page page = Page::Left;
};
std::optional<PageOfRecord> pageOfName(QStringView name);

// The record whose recording bears that name in its folder; 0 where it is none.
int recordOfRecording(QStringView name);

// Where a page goes that must not pass for the record's any longer; `attempt` counts from 1, for where
// earlier ones have taken a name.
QString oldPagePath(int record, Page page, int attempt);

// The path under which what is to be called `name` below spartiti, "12L.jpg" or "audio/12.mp3", is made
// ready before it is put there. Without a name, the folder of all of them.
QString arrivingPath(const QString &name = {});

// The form in which people are told of a path: no leading "./", this platform's separators.
QString shownPath(const QString &path);
