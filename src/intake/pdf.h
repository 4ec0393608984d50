#pragma once

#include "files/progress.h"
#include "files/result.h"
#include "intake/coming_song.h"
#include "intake/jobs.h"

#include <QHash>
#include <QStringList>

// PDF files, by the programs pdfinfo and pdftoppm of poppler-utils.

struct PdfInfo {
    Result result; // why it has no pages, in words: locked, broken, empty, no poppler-utils
    QList<int> dpi; // for each page, the dots per inch at which it is made: 200, or less for a huge one
};

// What each of the files is. Where progress says stop, those that were not yet looked at are missing.
QHash<QString, PdfInfo> readPdfs(const QStringList &files, const Progress &progress = {});

// The command that writes pages `first` to `last` of a file to its output: JPEGs one behind the other, or
// where `isRaw` their pixels.
Jobs::Job pageJob(const QString &file, int first, int last, int dpi, bool isRaw);

// Takes the first JPEG, or picture of pixels, from what it has written; empty if there is none.
QByteArray takePicture(QByteArray &output);

// What went wrong with a page; fine if nothing did.
Result resultOf(const Jobs::Outcome &outcome, const QString &file);
