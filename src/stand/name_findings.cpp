#include "stand/archive_facts.h"

#include "stand/own_names.h"
#include "text/alphabetical.h"

#include <QDir>

using Mend = Mending::Kind;
using Place = Finding::Place;

static Finding wrongName(const ArchiveFacts &facts, const QString &name, const QString &right)
{
    Finding finding{"Wrong name: " + name, "The stand looks for " + right + " and does not find this one."};
    if (const int n = songOfName(right); facts.hasSong(n)) {
        finding.song = n;
        finding.place = Place::Song;
    }
    if (facts.names.contains(right))
        finding.meaning += " There is a " + right + " too: only you can say which is the right one.";
    else
        finding.mending = {Mend::Rename, name, right};
    return finding;
}

static Finding leftOver(const QString &name)
{
    return {"Left over: " + name,
            "A write was broken off here, as by a power cut. The file that it was to replace is whole.",
            0,
            Place::Nowhere,
            {Mend::TakeAway, name}};
}

static std::optional<Finding> ownNameFinding(const ArchiveFacts &facts, const QString &name)
{
    const int n = songOfName(name);
    if (n == 0 || !facts.archive.result.ok())
        return {};
    if (!facts.hasSong(n))
        return Finding{"File of no song: " + name,
                       "The archive ends with song " + QString::number(facts.songs())
                           + ". A new song that gets this number would get this file."};
    if (!pageOfName(name) && !facts.files.contains(name))
        return Finding{"Not a file: " + name, "Under this name the stand expects a recording.", n,
                       Place::Song};
    return {};
}

static std::optional<Finding> nameFinding(const ArchiveFacts &facts, const QString &name)
{
    if (isOwnName(name))
        return ownNameFinding(facts, name);
    if (name == QDir(arrivingPath()).dirName())
        return Finding{"Songs on their way: " + name,
                       "Adding songs was broken off, or another program is just at it. \"Mend\" finishes it.",
                       0,
                       Place::Nowhere,
                       {Mend::FinishAdding}};
    if (const QString right = rightNameOf(name); !right.isEmpty())
        return wrongName(facts, name, right);
    if (isLeftOver(name) && facts.files.contains(name))
        return leftOver(name);
    if (isOldPage(name))
        return Finding{"Old page: " + name,
                       "It made room for a new song's page, and nothing uses it any more."};
    return Finding{"Not the archive's own: " + name, "Neither this program nor the stand uses it."};
}

QList<Finding> nameFindings(const ArchiveFacts &facts)
{
    QHash<QString, Finding> byName;
    for (const QString &name : facts.names) {
        if (const auto finding = nameFinding(facts, name))
            byName.insert(name, *finding);
    }
    QList<Finding> findings;
    for (const QString &name : alphabetical(byName.keys()))
        findings += byName[name];
    return findings;
}
