#pragma once

#include <QString>
#include <QStringList>

// What remains of text from a keyboard or a clipboard.
struct TypedText {
    QString text;
    // The first ten characters that had no counterpart, each once, and "…" where there were more. One that
    // shows nothing stands by its number: "U+200B".
    QStringList leftOut;
};

// Makes typed or pasted text into text that the data files can carry: composed, with ' for ", / for \, a
// blank for a line break, a tab or a blank of another width, and the base letter for a letter that the code
// page lacks; what still cannot be carried is left out. See docs/behaviour.md.
TypedText carriedByFiles(const QString &typed);
