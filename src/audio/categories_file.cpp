#include "audio/categories_file.h"

#include "archive/Module1.h"
#include "files/data_folder.h"
#include "files/safe_write.h"
#include "format/code_page.h"
#include "format/token.h"

#include <vector>

// A head line, then each name and one empty token behind it.
static constexpr size_t tokensOfFile = 1 + 2 * categoryCount;

static std::vector<QByteArrayView> firstTokens(const QByteArray &bytes)
{
    std::vector<QByteArrayView> tokens;
    for (TokenFile file{bytes}; !file.atEnd() && tokens.size() < tokensOfFile;)
        tokens.push_back(readToken(file));
    return tokens;
}

// Fills the names as far as the file goes, and returns how many there are.
static int takeNames(const std::vector<QByteArrayView> &tokens)
{
    const bool isShort = tokens.size() < tokensOfFile;
    for (size_t k = 1; k <= categoryCount; k += 1) {
        const size_t place = 2 * k - 1;
        // In a short file the closing line may stand where a name is looked for.
        if (place >= tokens.size() || (isShort && tokens[place] == "];"))
            return static_cast<int>(k) - 1;
        Module1.categoryName[k] = fromCodePage(tokens[place]);
    }
    return categoryCount;
}

Result readCategories()
{
    for (size_t k = 1; k <= categoryCount; k += 1)
        Module1.categoryName[k] = QString::number(k);

    QByteArray bytes;
    if (const Result read = readWhole(categoriesPath(), bytes); !read.ok())
        return read;
    const int names = takeNames(firstTokens(bytes));
    if (names < categoryCount) {
        return Result::failed(Result::Kind::Damaged, categoriesPath(),
                              QStringLiteral("it holds %1 names, not %2").arg(names).arg(categoryCount));
    }
    return {};
}
