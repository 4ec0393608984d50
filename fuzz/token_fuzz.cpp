// Tokens: each takes at least a byte, all of them take all bytes, and counting agrees with reading.

#include "format/token.h"
#include "memory_files.h"

extern "C" int LLVMFuzzerTestOneInput(const char *data, size_t size)
{
    TokenFile file{QByteArrayView(data, static_cast<qsizetype>(size))};
    const qsizetype counted = countTokens(file);
    qsizetype read = 0;
    while (!file.atEnd()) {
        const qsizetype before = file.position;
        const QByteArrayView token = readToken(file);
        require(file.position > before && token.size() <= file.position - before);
        read += 1;
    }
    require(read == counted && file.position == file.bytes.size() && readToken(file).isEmpty());
    return 0;
}
