#include "files/result.h"

#include "files/data_folder.h"

Result Result::failed(Kind kind, const QString &path, const QString &reason)
{
    return {kind, shownPath(path), reason};
}

QString Result::text() const
{
    return file + ": " + reason;
}

QString Result::refusal() const
{
    const QString what = kind == Kind::Unreadable
        ? QStringLiteral("%1 cannot be read (%2).").arg(file, reason)
        : QStringLiteral("%1 %2 and was not read.").arg(file, reason);
    return what + " It is left as it is.";
}
