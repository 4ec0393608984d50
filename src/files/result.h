#pragma once

#include <QString>

// What became of an operation that touches a disk: fine, or what failed, which file, and why.
// Made in the core, turned into a message by a window.
struct [[nodiscard]] Result {
    enum class Kind {
        Fine,
        Missing, // the file is not there
        Unreadable, // it is there and cannot be read
        Damaged, // it was read, and its contents do not fit its format
        TooLarge, // it holds more than the program has room for
        Unwritable, // it could not be written; the file on disk is the old one
        Refused, // nothing was tried, for a reason known before
        Cancelled // a person stopped it before anything had changed
    };

    Kind kind = Kind::Fine;
    QString file; // the path as a person sees it, e.g. spartiti/archivio.js
    // A clause of its own, without a full stop: the system's words for it, or what is wrong with the
    // contents, and then "it" stands for the file. Refused has a whole sentence.
    QString reason;

    bool ok() const { return kind == Kind::Fine; }

    // `path` may be in any form; "./spartiti/m.jpg" is shown as "spartiti/m.jpg".
    static Result failed(Kind kind, const QString &path, const QString &reason);

    // For people: "spartiti/archivio.js: No space left on device", or the sentence of a Refused.
    QString text() const;

    // Of an Unreadable, Damaged or TooLarge file: why it must not be written. "spartiti/archivio.js is
    // damaged and was not read. It is left as it is."
    QString refusal() const;
};
