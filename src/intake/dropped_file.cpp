#include "intake/dropped_file.h"

#include "archive/Module1.h"
#include "archive/archive_file.h"
#include "files/safe_write.h"
#include "intake/page_picture.h"
#include "intake/pairing.h"

#include <QFileInfo>

static bool isCalledJpeg(const QString &path)
{
    static const QStringList endings = {"jpg", "jpeg", "jpe", "jfif"};
    return endings.contains(QFileInfo(path).suffix().toLower());
}

Dropped meaningOf(const QStringList &paths, std::optional<Page> page, int record)
{
    const bool hasSong = record > 0 && record <= Module1.recCount;
    if (paths.size() != 1 || !hasSong || !QFileInfo(paths[0]).isFile())
        return Dropped::Songs;
    if (kindOfFile(QFileInfo(paths[0]).fileName()) == FileKind::Recording)
        return Dropped::Recording;
    return page && isCalledJpeg(paths[0]) ? Dropped::Page : Dropped::Songs;
}

Result storeDroppedPage(int record, Page page, const QString &source)
{
    if (const Result archive = checkArchive(); !archive.ok())
        return archive;
    const PictureHead head = headOf(source);
    if (!head.result.ok())
        return head.result;
    if (!head.isJpeg)
        return Result::failed(Result::Kind::Unreadable, source, "it is called a JPEG and is not one");
    return copyFile(source, pagePath(record, page));
}
