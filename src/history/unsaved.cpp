#include "history/unsaved.h"

#include "archive/Module1.h"
#include "files/safe_write.h"
#include "songs/edits.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

QString songForPeople(int record, const QString &title)
{
    static constexpr int mostLetters = 100;
    return QStringLiteral("%1 %2").arg(record).arg(title.left(mostLetters));
}

static QJsonArray jsonOf(const SongFields &fields)
{
    QJsonArray array;
    for (const QString &field : fields)
        array += field;
    return array;
}

static std::optional<SongFields> fieldsOf(const QJsonValue &value)
{
    const QJsonArray array = value.toArray();
    SongFields fields;
    if (array.size() != static_cast<qsizetype>(fields.size()))
        return std::nullopt;
    for (size_t i = 0; i < fields.size(); i += 1)
        fields[i] = array[static_cast<qsizetype>(i)].toString();
    return fields;
}

static QByteArray checksum(QByteArrayView text)
{
    return QCryptographicHash::hash(text.toByteArray(), QCryptographicHash::Sha256).toHex();
}

QByteArray bytesOf(const Unsaved &unsaved)
{
    QJsonArray songs;
    for (const UnsavedSong &song : unsaved.songs) {
        QJsonObject object{{"record", song.record}, {"is", jsonOf(song.is)}};
        if (song.was)
            object["was"] = jsonOf(*song.was);
        songs += object;
    }
    const QJsonObject all{{"count", unsaved.count}, {"songs", songs}};
    const QByteArray text = QJsonDocument(all).toJson(QJsonDocument::Compact);
    return checksum(text) + '\n' + text + '\n';
}

std::optional<Unsaved> unsavedOf(const QByteArray &bytes)
{
    const qsizetype lineEnd = bytes.indexOf('\n');
    if (lineEnd < 0 || !bytes.endsWith("}\n"))
        return std::nullopt;
    QByteArray text = bytes.sliced(lineEnd + 1);
    text.chop(1);
    if (checksum(text) != bytes.first(lineEnd))
        return std::nullopt;
    const QJsonObject all = QJsonDocument::fromJson(text).object();
    Unsaved unsaved{all["count"].toInt(), {}};
    for (const QJsonValue value : all["songs"].toArray()) {
        const int record = value["record"].toInt();
        const std::optional<SongFields> is = fieldsOf(value["is"]);
        if (is && record >= 1 && record <= Module1State::lastRecord)
            unsaved.songs += {record, fieldsOf(value["was"]), *is};
    }
    return unsaved;
}

std::optional<Unsaved> readUnsaved(const QString &path)
{
    QByteArray bytes;
    return readWhole(path, bytes).ok() ? unsavedOf(bytes) : std::nullopt;
}

static SongFields fieldsInMemory(int record)
{
    const auto n = static_cast<size_t>(record);
    return {Module1.recTitle[n], Module1.recAuthor[n], Module1.recTags[n], Module1.recCategory[n]};
}

// No category is an empty text before a Save and 0 behind it.
static bool isInMemory(int record, SongFields fields)
{
    SongFields present = fieldsInMemory(record);
    for (QString *category : {&present.back(), &fields.back()}) {
        if (*category == "0")
            category->clear();
    }
    return present == fields;
}

static bool isTyped(const SongFields &fields)
{
    return std::any_of(fields.begin(), fields.end(), [](const QString &field) { return !field.isEmpty(); });
}

Unsaved unsavedNow(const Edits &edits)
{
    Unsaved unsaved{Module1.recCount, {}};
    for (const int n : edits.unsavedRecords()) {
        UnsavedSong song{n, std::nullopt, fieldsInMemory(n)};
        if (const auto was = edits.asOnDisk(n))
            song.was = *was;
        unsaved.songs += song;
    }
    const int behind = Module1.recCount + 1;
    if (behind <= Module1State::lastRecord && isTyped(fieldsInMemory(behind)))
        unsaved.songs += {behind, std::nullopt, fieldsInMemory(behind)};
    return unsaved;
}

// A new song must follow the last one, or the songs between would come to be empty; an empty one may have
// been begun there since.
static bool canBePut(const UnsavedSong &song)
{
    const int last = song.was ? Module1.recCount : Module1.recCount + 1;
    return song.record <= last && isInMemory(song.record, song.was.value_or(SongFields()));
}

static void setFields(Edits &edits, const UnsavedSong &song)
{
    for (const Field field : {Field::Title, Field::Author, Field::Tags, Field::Category})
        edits.set(field, {song.record}, {song.is[static_cast<size_t>(field)]});
}

PutBack putBack(const Unsaved &unsaved, Edits &edits)
{
    PutBack put;
    for (const UnsavedSong &song : unsaved.songs) {
        if (song.record <= Module1.recCount && isInMemory(song.record, song.is))
            continue;
        if (!canBePut(song)) {
            put.changedMeanwhile += song.record;
            continue;
        }
        if (put.records.isEmpty())
            edits.stack().beginMacro("what was typed and not saved");
        if (song.record > Module1.recCount && song.record <= unsaved.count) {
            Module1.recCount = song.record;
            edits.added();
        }
        setFields(edits, song);
        put.records += song.record;
    }
    if (!put.records.isEmpty())
        edits.stack().endMacro();
    return put;
}

bool isOnDisk(const Unsaved &unsaved)
{
    return std::all_of(unsaved.songs.begin(), unsaved.songs.end(), [](const UnsavedSong &song) {
        return song.record <= Module1.recCount && isInMemory(song.record, song.is);
    });
}
