#include "pages/page_files.h"

#include "archive/archive_operations.h"
#include "files/platform.h"
#include "files/safe_write.h"

#include <QFileInfo>

using Kind = Result::Kind;

PageStored storePage(int record, Page side, const QString &source)
{
    if (const Result archive = checkArchive(); !archive.ok())
        return {archive, {}};
    const Result stored = copyFile(source, pagePath(record, side));
    if (!stored.ok() || side == Page::Right)
        return {stored, {}};
    return {stored, copyFile(emptyPagePath(), pagePath(record, Page::Right))};
}

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
    const Result moved = moveFile(path, newPath);
    if (!moved.ok())
        return {Result::failed(Kind::Unwritable, path, moved.reason), {}};
    return {{}, newPath};
}
