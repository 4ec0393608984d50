#include "archive/archive_operations.h"

#include "archive/Module1.h"
#include "files/data_folder.h"

Result checkArchive()
{
    return Module1.archiveRefusal.isEmpty()
        ? Result{}
        : Result::failed(Result::Kind::Refused, archivePath(), Module1.archiveRefusal);
}

bool hasUnsavedChanges()
{
    if (Module1.archiveChanged)
        return true;
    for (size_t n = static_cast<size_t>(Module1.recCount) + 1; n <= Module1State::lastRecord; n += 1) {
        if (!Module1.recTitle[n].isEmpty() || !Module1.recAuthor[n].isEmpty()
            || !Module1.recTags[n].isEmpty())
            return true;
    }
    return false;
}

void forgetArchive()
{
    for (Module1State::Column *column :
         {&Module1.recNumber, &Module1.recTitle, &Module1.recAuthor, &Module1.recTags, &Module1.recCategory})
        column->fill({});
    Module1.recCount = 0;
    Module1.archiveRefusal.clear();
    Module1.archiveOnDisk.clear();
    Module1.archiveChanged = false;
}
