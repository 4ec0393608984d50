#include "pages/page_files.h"

#include "archive/archive_operations.h"
#include "files/safe_write.h"

PageStored storePage(int record, Page side, const QString &source)
{
    if (const Result archive = checkArchive(); !archive.ok())
        return {archive, {}};
    const Result stored = copyFile(source, pagePath(record, side));
    if (!stored.ok() || side == Page::Right)
        return {stored, {}};
    return {stored, copyFile(emptyPagePath(), pagePath(record, Page::Right))};
}
