#pragma once

#include <QByteArrayView>

// A text data file in memory, and how far it has been read. The bytes must outlive every token.
struct TokenFile {
    QByteArrayView bytes;
    qsizetype position = 0;

    bool atEnd() const { return position >= bytes.size(); }
};

// The next token, without its quotes and not trimmed, as a view into the file's bytes; the position then
// stands behind it and behind the one delimiter that ended it. A comma ends a token, and a line end
// (CR LF, or either alone) behind that comma gives one more, empty token: see "Tokens" in
// docs/file-formats.md. At the end of the file the token is empty.
QByteArrayView readToken(TokenFile &file);

// Takes a line that stands just as the writers put it, "text", and CR LF: two tokens, of which the second
// is empty. Any other line is left to readToken(): false, and the position has not moved.
bool readWrittenLine(TokenFile &file, QByteArrayView &text);

// Goes on to the end of the file; true if all tokens on the way are empty.
bool onlyEmptyTokensFollow(TokenFile &file);

// How many tokens the file holds from its position to its end.
qsizetype countTokens(TokenFile file);

// The line that the byte at `position` stands on, counted from 1. A line ends in CR LF or either alone.
qsizetype lineAt(QByteArrayView bytes, qsizetype position);
