#pragma once

#include <QComboBox>

// Offers the drives that a person would know: the drive letters with their names where there are such, else
// the root, the home, and removable and network media. It starts on the drive of the working directory, and
// looks again for drives each time it is opened.
class DriveList : public QComboBox
{
    Q_OBJECT
public:
    explicit DriveList(QWidget *parent);

    // The top folder of the drive it stands on.
    QString drive() const;

    // The folder to begin at on that drive: the working directory where that lies there, else the top.
    QString currentFolder() const;

    // Stands on the drive that holds this folder, without the signal.
    void showDriveOf(const QString &folder);

    void showPopup() override;

signals:
    // A person chose a drive, be it the same one again.
    void driveChosen();

private:
    void readDrives();
};
