#include "files/old_pages.h"

#include "files/platform.h"
#include "files/safe_write.h"

#include <QFileInfo>

static QString freeOldPath(int record, Page page)
{
    int attempt = 1;
    while (QFileInfo::exists(oldPagePath(record, page, attempt)))
        attempt += 1;
    return oldPagePath(record, page, attempt);
}

PageAside setAside(int record, Page page)
{
    const QString path = pagePath(record, page);
    if (isMissing(path))
        return {};
    const QString newPath = freeOldPath(record, page);
    if (const Result moved = moveFile(path, newPath); !moved.ok())
        return {moved, {}};
    return {{}, newPath};
}
