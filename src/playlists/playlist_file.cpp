#include "playlists/playlist_file.h"

#include "archive/Module1.h"
#include "files/data_folder.h"
#include "files/safe_write.h"
#include "format/code_page.h"
#include "format/field.h"
#include "format/token.h"

#include <utility>

using Kind = Result::Kind;

static constexpr QByteArrayView closingToken = "];";

bool isClosingToken(const QString &name)
{
    return name == QLatin1String(closingToken);
}

QStringList Playlists::storedUnder(const QString &name) const
{
    QStringList stored;
    for (size_t i = 1; i <= static_cast<size_t>(count()); i += 1) {
        if (playlistName[i] != name)
            continue;
        stored.removeAll(playlistSongs[i]);
        stored += playlistSongs[i];
    }
    return stored;
}

QList<int> decodeSongList(const QString &songs)
{
    QList<int> numbers;
    QList<QStringView> pieces = QStringView(songs).split(u',');
    pieces.removeLast();
    for (const QStringView piece : pieces) {
        bool isNumber = false;
        const int number = piece.toInt(&isNumber);
        if (isNumber && number >= 0 && number <= Module1State::lastRecord)
            numbers += number;
    }
    return numbers;
}

// True if a quoted token ended with its quote, and not with the file.
static bool isClosed(const TokenFile &file, QByteArrayView token)
{
    return token.end() != file.bytes.end() && *token.end() == '"';
}

// Takes the tokens of one playlist line behind its name. False if they are not what such a line has; a
// line that the file's end cut off behind its song list is whole.
static bool readSongs(TokenFile &file, QByteArrayView &songs)
{
    if (file.atEnd())
        return false;
    songs = readToken(file);
    if (file.atEnd() && !isClosed(file, songs))
        return false;
    return readToken(file).isEmpty();
}

static Result failed(Kind kind, const QString &reason)
{
    return Result::failed(kind, playlistPath(), reason);
}

// A quote inside a token comes of a damaged line, and could not be written again.
static Result readPlaylists(TokenFile &file, Playlists &playlists)
{
    const QByteArrayView firstLine = readToken(file);
    if (file.bytes.isEmpty() || firstLine.contains('"'))
        return failed(Kind::Damaged, "it is damaged in its first line");
    const CodePageReader textOf = codePageReaderFor(file.bytes);
    int slot = 1;
    for (;; slot += 1) {
        const auto entry = static_cast<size_t>(slot);
        const QByteArrayView name = file.atEnd() ? closingToken : readToken(file);
        playlists.playlistName[entry] = textOf(name);
        if (name == closingToken)
            break;
        if (slot > Playlists::most)
            return failed(Kind::TooLarge, QStringLiteral("it holds more than %1 playlists").arg(slot - 1));
        QByteArrayView songs;
        if (!readSongs(file, songs) || name.contains('"') || songs.contains('"'))
            return failed(Kind::Damaged, QStringLiteral("it is damaged at playlist %1").arg(slot));
        playlists.playlistSongs[entry] = textOf(songs);
    }
    playlists.playlistSlot = slot;
    if (slot == 1 && firstLine != "var playlist = [" && !file.bytes.contains(closingToken))
        return failed(Kind::Damaged, "it holds no playlists and nothing else that belongs there");
    return onlyEmptyTokensFollow(file) ? Result{}
                                       : failed(Kind::Damaged, "it goes on behind its closing line");
}

Result readPlaylistFile(Playlists &playlists, const QString &path)
{
    QByteArray bytes;
    if (Result read = readWhole(path, bytes); !read.ok())
        return read;
    TokenFile file{bytes};
    Playlists found;
    Result result = readPlaylists(file, found);
    if (result.ok())
        playlists = std::move(found);
    else
        result.file = shownPath(path);
    return result;
}

static Result writeAll(const Playlists &playlists)
{
    QByteArray bytes("var playlist = [\r\n");
    for (size_t i = 1; i <= static_cast<size_t>(playlists.count()); i += 1) {
        appendField(bytes, playlists.playlistName[i]);
        bytes += ',';
        appendField(bytes, playlists.playlistSongs[i]);
        bytes += ",\r\n";
    }
    bytes += " ];\r\n";
    return replaceFile(playlistPath(), bytes);
}

Result createPlaylistFile()
{
    return writeAll({});
}

static void endBehind(Playlists &playlists, int count)
{
    playlists.playlistSlot = count + 1;
    playlists.playlistName[static_cast<size_t>(count) + 1] = QLatin1String(closingToken);
}

static void append(Playlists &playlists, const QString &name, const QString &songs)
{
    const int slot = playlists.count() + 1;
    playlists.playlistName[static_cast<size_t>(slot)] = name;
    playlists.playlistSongs[static_cast<size_t>(slot)] = songs;
    endBehind(playlists, slot);
}

static Result rewrite(Playlists &playlists, Playlists &changed)
{
    Result written = writeAll(changed);
    if (written.ok())
        playlists = std::move(changed);
    return written;
}

Result writePlaylistFile(Playlists &playlists, const QString &name, const QString &shown,
                         const QString &songs)
{
    Playlists changed = playlists;
    bool isReplaced = false;
    for (size_t i = 1; i <= static_cast<size_t>(changed.count()) && name == shown; i += 1) {
        if (changed.playlistName[i] != name)
            continue;
        changed.playlistSongs[i] = songs;
        isReplaced = true;
    }
    if (!isReplaced && changed.count() == Playlists::most)
        return failed(Kind::Refused,
                      QStringLiteral("There are %1 playlists already, which is all that "
                                     "the file has room for.")
                          .arg(changed.count()));
    if (!isReplaced)
        append(changed, name, songs);
    return rewrite(playlists, changed);
}

Result writePlaylistFileWithout(Playlists &playlists, const QString &name)
{
    Playlists changed;
    endBehind(changed, 0);
    for (size_t i = 1; i <= static_cast<size_t>(playlists.count()); i += 1) {
        if (playlists.playlistName[i] != name)
            append(changed, playlists.playlistName[i], playlists.playlistSongs[i]);
    }
    return rewrite(playlists, changed);
}
