#include "format/token.h"

#include <cstring>

static bool isDelimiter(char character)
{
    return character == ',' || character == '\r' || character == '\n';
}

static qsizetype closingQuote(const TokenFile &file)
{
    const char *start = file.bytes.data() + file.position;
    const void *found = std::memchr(start, '"', static_cast<size_t>(file.bytes.size() - file.position));
    return found ? static_cast<const char *>(found) - file.bytes.data() : file.bytes.size();
}

static void skipDelimiter(TokenFile &file)
{
    if (file.atEnd() || !isDelimiter(file.bytes[file.position]))
        return;
    const bool lineEnd = file.bytes[file.position] == '\r';
    file.position += 1;
    if (lineEnd && !file.atEnd() && file.bytes[file.position] == '\n')
        file.position += 1;
}

QByteArrayView readToken(TokenFile &file)
{
    while (!file.atEnd() && file.bytes[file.position] == ' ')
        file.position += 1;

    qsizetype start = file.position;
    qsizetype end = start;
    if (!file.atEnd() && file.bytes[start] == '"') {
        file.position = ++start;
        end = closingQuote(file);
        file.position = qMin(end + 1, file.bytes.size());
    } else {
        while (end < file.bytes.size() && !isDelimiter(file.bytes[end]))
            end += 1;
        file.position = end;
    }
    skipDelimiter(file);
    return file.bytes.sliced(start, end - start);
}

bool readWrittenLine(TokenFile &file, QByteArrayView &text)
{
    static constexpr char ending[] = {'"', ',', '\r', '\n'};
    if (file.atEnd() || file.bytes[file.position] != '"')
        return false;
    const qsizetype start = file.position + 1;
    const qsizetype close = closingQuote({file.bytes, start});
    const auto left = static_cast<size_t>(file.bytes.size() - close);
    if (left < sizeof ending || std::memcmp(file.bytes.data() + close, ending, sizeof ending) != 0)
        return false;
    text = file.bytes.sliced(start, close - start);
    file.position = close + static_cast<qsizetype>(sizeof ending);
    return true;
}

bool onlyEmptyTokensFollow(TokenFile &file)
{
    while (!file.atEnd()) {
        if (!readToken(file).isEmpty())
            return false;
    }
    return true;
}

qsizetype countTokens(TokenFile file)
{
    qsizetype count = 0;
    QByteArrayView text;
    while (!file.atEnd()) {
        const bool isWholeLine = readWrittenLine(file, text);
        if (!isWholeLine)
            readToken(file);
        count += isWholeLine ? 2 : 1;
    }
    return count;
}

qsizetype lineAt(QByteArrayView bytes, qsizetype position)
{
    qsizetype line = 1;
    for (qsizetype i = 0; i < position; i += 1) {
        const bool isPair = bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n';
        line += !isPair && (bytes[i] == '\r' || bytes[i] == '\n');
    }
    return line;
}
