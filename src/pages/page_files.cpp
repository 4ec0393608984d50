#include "pages/page_files.h"

#include "files/platform.h"

#include <QFile>
#include <QFileInfo>

using Kind = Result::Kind;

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
    QFile file(path);
    if (!file.rename(newPath))
        return {Result::failed(Kind::Unwritable, path, file.errorString()), {}};
    syncFolder(QFileInfo(newPath).path());
    return {{}, newPath};
}
