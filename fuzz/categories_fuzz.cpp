// The categories: every name is set, and names that are written as the format says read the same.

#include "archive/Module1.h"
#include "audio/categories_file.h"
#include "format/code_page.h"
#include "memory_files.h"

extern "C" int LLVMFuzzerTestOneInput(const char *data, size_t size)
{
    memoryFile = QByteArray(data, static_cast<qsizetype>(size));
    const bool whole = readCategories().ok();
    if (!whole)
        return 0;
    const auto names = Module1.categoryName;
    QByteArray bytes("var generi = [\r\n");
    for (size_t k = 1; k <= categoryCount; k += 1) {
        if (names[k].contains('"')) // no file in the right form has it
            return 0;
        bytes += '"' + toCodePage(names[k]) + "\",\r\n";
    }
    memoryFile = bytes + " ];\r\n";
    require(readCategories().ok() && Module1.categoryName == names);
    return 0;
}
