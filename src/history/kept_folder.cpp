#include "history/kept_folder.h"

#include "files/data_folder.h"
#include "files/safe_write.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

static const char labelName[] = "/folder.txt";

QString canonicalDataFolder()
{
    const QString canonical = QFileInfo(dataFolder()).canonicalFilePath();
    return canonical.isEmpty() ? QFileInfo(".").canonicalFilePath() + "/spartiti" : canonical;
}

// The path, and when the folder was made, which stays the same when it is moved.
static QByteArray labelOf(const QString &folder)
{
    const QDateTime birth = QFileInfo(folder).birthTime();
    return folder.toUtf8() + '\n'
        + (birth.isValid() ? birth.toUTC().toString(Qt::ISODateWithMs).toUtf8() : "") + '\n';
}

// A folder of things kept for a data folder of the same birth whose path is gone.
static QString leftBehindBy(const QByteArray &label, const QString &all)
{
    const QByteArray birth = label.split('\n').at(1);
    if (birth.isEmpty())
        return {};
    for (const QString &name : QDir(all).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QByteArray other;
        if (!readWhole(all + '/' + name + labelName, other).ok())
            continue;
        const QList<QByteArray> lines = other.split('\n');
        if (lines.value(1) == birth && !QFileInfo::exists(QString::fromUtf8(lines.first())))
            return all + '/' + name;
    }
    return {};
}

QString keptFolder()
{
    const QString all = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
    const QString data = canonicalDataFolder();
    const QByteArray hash = QCryptographicHash::hash(data.toUtf8(), QCryptographicHash::Sha1).toHex();
    const QString kept = all + '/' + QString::fromLatin1(hash);
    const QByteArray label = labelOf(data);
    if (all.isEmpty())
        return {};
    if (holdsJust(kept + labelName, label))
        return kept;
    if (const QString moved = QFileInfo::exists(kept) ? QString() : leftBehindBy(label, all);
        !moved.isEmpty())
        QDir().rename(moved, kept);
    return replaceFile(kept + labelName, label).ok() ? kept : QString();
}
