#pragma once

#include <QString>
#include <QStringList>

// What remains of text from a keyboard or a clipboard.
struct TypedText {
    QString text;
    QStringList leftOut; // each character that had no counterpart, once
};

// Makes typed or pasted text into text that the data files can carry: composed, with ' for ", / for \, a
// blank for a line break or tab, and the base letter for a letter that the code page lacks; what still
// cannot be carried is left out. See docs/behaviour.md.
TypedText carriedByFiles(const QString &typed);
