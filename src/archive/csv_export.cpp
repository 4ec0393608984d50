#include "archive/archive_file.h"
#include "files/data_folder.h"
#include "files/safe_write.h"
#include "format/field.h"

Result writeCsv()
{
    if (const Result archive = checkArchive(); !archive.ok())
        return archive;
    QByteArray bytes;
    for (size_t i = 1; i <= static_cast<size_t>(Module1.recCount); i += 1) {
        appendField(bytes, Module1.recNumber[i]);
        bytes += ',';
        appendField(bytes, Module1.recTitle[i]);
        bytes += ',';
        appendField(bytes, Module1.recAuthor[i]);
        bytes += ',';
        appendField(bytes, Module1.recTags[i]);
        bytes += ",\"0\",\"0\",\"0\",\"0\"\r\n";
    }
    return replaceFile(csvPath(), bytes);
}
