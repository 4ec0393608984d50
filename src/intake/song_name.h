#pragma once

#include <QString>

// What the name of a song's files says of its title and its author.

enum class NamesAre { Title, AuthorTitle, TitleAuthor };

struct SongName {
    QString title;
    QString author; // empty where the name tells none

    bool operator==(const SongName &) const = default;
};

// The two parts stand before and behind the first dash with blanks around it; `_` is a blank. With
// `leaveOutNumbers` a number in front goes, unless it is all there is. As the files can carry it.
SongName songNameOf(const QString &name, NamesAre namesAre, bool leaveOutNumbers);
