#pragma once

#include "text/folding.h"

#include <vector>

// Finds songs by what a person types: each word occurs in title, author, tags or the category's name, or is
// the song's number. Folded texts are made at the first search and kept until they are forgotten.
class SongSearch
{
public:
    void search(const Query &query) { query_ = query; }
    const Query &query() const { return query_; }

    // Those that are found, in their order.
    QList<int> found(const QList<int> &records);

    // These songs have other texts now.
    void forget(const QList<int> &records);
    void forgetAll() { folded_.clear(); }

private:
    struct Word;

    void foldAll();

    Query query_;
    std::vector<Folded> folded_; // of record n in place n; empty before the first search
};
