#include "browse/drive_list.h"

#include "files/platform.h"

#include <QDir>
#include <QStorageInfo>

#include <algorithm>

DriveList::DriveList(QWidget *parent)
    : QComboBox(parent)
{
    readDrives();
    showDriveOf(QDir::currentPath());
    connect(this, &QComboBox::activated, this, &DriveList::driveChosen);
}

QString DriveList::drive() const
{
    return currentData().toString();
}

static bool liesIn(const QString &folder, const QString &path)
{
    return path == folder || path.startsWith(folder.endsWith('/') ? folder : folder + '/');
}

// A medium, not a part of the system that happens to be mounted by itself.
static bool isMedium(const QStorageInfo &volume)
{
    static const QStringList places = {"/media", "/mnt", "/run/media", "/Volumes"};
    static const QStringList networks = {"nfs", "nfs4", "cifs", "smb3", "smbfs", "afpfs", "webdav"};
    const QString path = volume.rootPath();
    return QFileInfo(path).isDir()
        && (networks.contains(QString::fromLatin1(volume.fileSystemType()))
            || std::ranges::any_of(places, [&](const QString &place) { return liesIn(place, path); }));
}

static QStringList knownDrives()
{
    QStringList drives;
    for (const QFileInfo &drive : QDir::drives())
        drives += drive.path();
    drives += QDir::homePath();
    for (const QStorageInfo &volume : QStorageInfo::mountedVolumes()) {
        if (isMedium(volume))
            drives += volume.rootPath();
    }
    drives.removeDuplicates();
    return drives;
}

void DriveList::readDrives()
{
    const QString before = drive();
    clear();
    for (const QString &drive : knownDrives()) {
        const QString name = driveName(drive);
        const QString shown = QDir::toNativeSeparators(drive);
        addItem(name.isEmpty() ? shown : QStringLiteral("%1 (%2)").arg(shown, name), drive);
    }
    setCurrentIndex(findData(before));
}

// The row of the innermost drive that holds a folder; -1 if none does.
static int rowOf(const QComboBox *drives, const QString &folder)
{
    int best = -1;
    for (int row = 0; row < drives->count(); row += 1) {
        const QString drive = drives->itemData(row).toString();
        if (liesIn(drive, folder) && (best < 0 || drive.size() > drives->itemData(best).toString().size()))
            best = row;
    }
    return best;
}

void DriveList::showDriveOf(const QString &folder)
{
    setCurrentIndex(rowOf(this, QDir::fromNativeSeparators(folder)));
}

QString DriveList::currentFolder() const
{
    const QString working = QDir::currentPath();
    return rowOf(this, working) == currentIndex() ? working : drive();
}

void DriveList::showPopup()
{
    readDrives();
    QComboBox::showPopup();
}
