#include "files/result.h"

#include "files/data_folder.h"

Result Result::failed(Kind kind, const QString &path, const QString &reason)
{
    return {kind, shownPath(path), reason};
}

QString Result::text() const
{
    return kind == Kind::Refused ? reason : file + ": " + reason;
}

QString Result::refusal() const
{
    static constexpr qsizetype it = 2;
    const QString what = kind == Kind::Unreadable
        ? QStringLiteral("%1 cannot be read (%2).").arg(file, reason)
        : file + reason.sliced(it) + " and was not read.";
    return what + " It is left as it is.";
}
