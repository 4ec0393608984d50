#include "stand/stand_plan.h"

#include "files/data_folder.h"
#include "stand/own_names.h"

#include <QDir>
#include <QHash>
#include <QStringList>

#include <algorithm>
#include <tuple>
#include <vector>

using Task = PlannedFile::Task;

static QString nameOf(const QString &path)
{
    return path.section('/', -1);
}

QString archiveName()
{
    return nameOf(archivePath());
}

bool isDataFile(const QString &name)
{
    static const QStringList names = {archiveName(), nameOf(categoriesPath()), nameOf(playlistPath()),
                                      nameOf(midiPath())};
    return names.contains(name);
}

static bool belongsToCopy(const QString &name)
{
    static const QString arriving = QDir(arrivingPath()).dirName() + '/';
    return !isLeftOver(name) && !name.startsWith(arriving);
}

namespace
{
// Within a task: pages and other files by number, then recordings, then data files, the archive last.
struct Place {
    explicit Place(const PlannedFile &planned)
        : task(planned.task)
        , name(planned.file.name)
        , last(isDataFile(planned.file.name) ? planned.file.name == archiveName() ? 2 : 1 : 0)
    {
        qsizetype end = name.lastIndexOf('/') + 1;
        folder = name.first(end);
        while (end < name.size() && name[end].isDigit())
            end += 1;
        number = name.sliced(folder.size(), end - folder.size()).toInt();
    }

    Task task;
    QStringView name;
    int last = 0;
    QStringView folder;
    int number = 0;

    auto key() const { return std::tie(task, last, folder, number, name); }
};
} // namespace

static QList<PlannedFile> inOrder(const QList<PlannedFile> &plan)
{
    std::vector<std::pair<Place, qsizetype>> places;
    places.reserve(static_cast<size_t>(plan.size()));
    for (qsizetype i = 0; i < plan.size(); i += 1)
        places.emplace_back(Place(plan[i]), i);
    std::sort(places.begin(), places.end(),
              [](const auto &one, const auto &other) { return one.first.key() < other.first.key(); });
    QList<PlannedFile> sorted;
    sorted.reserve(plan.size());
    for (const auto &[place, i] : places)
        sorted += plan[i];
    return sorted;
}

static constexpr qint64 mostApart = 2000; // milliseconds; as exactly as a FAT disk can tell

static bool isSame(const ListedFile &one, const ListedFile &other)
{
    return one.size == other.size && qAbs(one.time - other.time) <= mostApart;
}

namespace
{
class Planning
{
public:
    Planning(const QList<ListedFile> &there, bool foldsCase)
        : foldsCase_(foldsCase)
    {
        there_.reserve(there.size());
        for (const ListedFile &file : there)
            there_.insert(keyOf(file.name), file);
    }

    void take(const ListedFile &file)
    {
        const QString key = keyOf(file.name);
        PlannedFile planned{Task::New, file};
        if (file.size < 0) {
            planned.task = Task::NotToBeCopied;
            planned.reason = "it is no ordinary file";
        } else if (const QString taken = taken_.value(key); !taken.isEmpty()) {
            planned.task = Task::NotToBeCopied;
            planned.reason = "on the stand it would be one with " + taken;
        } else if (const auto there = there_.constFind(key); there != there_.constEnd()) {
            planned.task = isSame(file, *there) ? Task::Same : Task::Changed;
            planned.sizeThere = there->size;
            planned.isNewerThere = there->time > file.time + mostApart;
        }
        if (planned.task != Task::NotToBeCopied)
            taken_.insert(key, file.name);
        plan_ += planned;
    }

    QList<PlannedFile> finish()
    {
        for (auto file = there_.cbegin(); file != there_.cend(); ++file) {
            if (!taken_.contains(file.key()))
                plan_ += {Task::OnlyThere, *file};
        }
        return inOrder(plan_);
    }

private:
    QString keyOf(const QString &name) const { return foldsCase_ ? name.toLower() : name; }

    const bool foldsCase_;
    QHash<QString, ListedFile> there_; // by key
    QHash<QString, QString> taken_; // the names here that have their place there, by key
    QList<PlannedFile> plan_;
};
} // namespace

QList<PlannedFile> planOf(const QList<ListedFile> &here, const QList<ListedFile> &there, bool foldsCase)
{
    Planning planning(there, foldsCase);
    // Where two are one there, the archive's own name goes before one that only resembles it.
    for (const bool own : {true, false}) {
        for (const ListedFile &file : here) {
            if (belongsToCopy(file.name) && isOwnName(file.name) == own)
                planning.take(file);
        }
    }
    return planning.finish();
}

qint64 roomNeeded(const QList<PlannedFile> &plan, qint64 blockSize)
{
    qint64 added = 0, twice = 0, largest = 0;
    const auto inBlocks = [&](qint64 size) { return (size + blockSize - 1) / blockSize * blockSize; };
    for (const PlannedFile &planned : plan) {
        if (!planned.isToBeCopied())
            continue;
        const qint64 size = inBlocks(planned.file.size);
        added += qMax<qint64>(size - inBlocks(planned.sizeThere), 0);
        if (planned.task == Task::Changed)
            twice += size;
        largest = qMax(largest, size);
    }
    return added + qMin(twice, bytesAtATime + largest);
}
