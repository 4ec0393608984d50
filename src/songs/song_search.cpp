#include "songs/song_search.h"

#include "audio/categories_file.h"
#include "songs/song_columns.h"

#include <algorithm>
#include <bitset>

// A word of the query with what it means beside letters.
struct SongSearch::Word {
    Folded letters;
    int number = 0;
    std::bitset<categoryCount + 1> categories; // those in whose name it occurs

    explicit Word(const Folded &word)
        : letters(word)
        , number(word.bare.toInt())
    {
        for (int k = 1; k <= categoryCount; k += 1) {
            const QString &name = Module1.categoryName[static_cast<size_t>(k)];
            const bool isName = name != QString::number(k);
            categories[static_cast<size_t>(k)] = isName && occursIn(fold(name), letters);
        }
    }

    bool occursInCategory(int n) const
    {
        return categories.any() && categories[static_cast<size_t>(categoryOf(n))];
    }
};

static Folded foldSong(size_t n)
{
    const QLatin1Char between('\n'); // which nobody can type
    return fold(Module1.recTitle[n] + between + Module1.recAuthor[n] + between + Module1.recTags[n]);
}

void SongSearch::foldAll()
{
    const size_t known = qMax<size_t>(folded_.size(), 1);
    folded_.resize(static_cast<size_t>(Module1.recCount) + 1);
    for (size_t n = known; n < folded_.size(); n += 1)
        folded_[n] = foldSong(n);
}

void SongSearch::forget(const QList<int> &records)
{
    for (const int n : records) {
        if (static_cast<size_t>(n) < folded_.size())
            folded_[static_cast<size_t>(n)] = foldSong(static_cast<size_t>(n));
    }
}

QList<int> SongSearch::found(const QList<int> &records)
{
    if (query_.isEmpty())
        return records;
    foldAll();
    const QList<Word> words(query_.words().begin(), query_.words().end());
    const auto isFound = [&](int n) {
        const Folded &song = folded_[static_cast<size_t>(n)];
        return std::all_of(words.begin(), words.end(), [&](const Word &word) {
            return occursIn(song, word.letters) || word.number == n || word.occursInCategory(n);
        });
    };
    QList<int> found;
    std::copy_if(records.begin(), records.end(), std::back_inserter(found), isFound);
    return found;
}
