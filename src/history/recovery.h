#pragma once

#include "history/unsaved.h"

#include <QElapsedTimer>
#include <QLockFile>
#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>

// Keeps what is typed and not saved in a file of its own, so that a power cut or a crash does not take it:
// two seconds after the last change, and ten after the first at the latest. Each program that runs in one
// data folder has a lock and a file of its own there; what a program that runs no longer has left is known
// by its lock.
class Recovery : public QObject
{
    Q_OBJECT
public:
    // How long a change waits, in milliseconds.
    struct Waits {
        qint64 afterLast = 2'000;
        qint64 afterFirst = 10'000; // of those not yet written
    };

    // `folder` is where to keep it; empty: nothing is kept. `unsaved` gives what differs at that moment.
    // While `mayWrite` says no, what is due waits.
    Recovery(QString folder, std::function<Unsaved()> unsaved, std::function<bool()> mayWrite, Waits waits);
    Recovery(QString folder, std::function<Unsaved()> unsaved, std::function<bool()> mayWrite = {})
        : Recovery(std::move(folder), std::move(unsaved), std::move(mayWrite), Waits())
    {
    }

    // Until then nothing is kept. What earlier programs have left stays as it is.
    void begin();

    // Whether another program ran in the data folder at that moment.
    bool isSecond() const { return isSecond_; }
    // Whether it could be made sure that what is typed will be kept.
    bool canKeep() const { return place_ > 0; }

    // A song was changed.
    void note();
    // Writes now what was noted and not yet written; false if that failed.
    bool write();
    // What was noted is saved, or is not wanted.
    void forget();

    // Keeps what is unsaved now in place of such a file, which then goes; false, with nothing changed, if
    // that failed.
    bool takeOver(const QString &left);

    // The files that programs which run no longer have left, the oldest first.
    QStringList leftBehind() const;

private:
    QString pathOf(int place) const;
    QString lockOf(int place) const;
    void writeWhenItMay();

    const QString folder_;
    const std::function<Unsaved()> unsaved_;
    const std::function<bool()> mayWrite_;
    const Waits waits_;
    std::unique_ptr<QLockFile> lock_;
    bool isSecond_ = false;
    int place_ = 0; // from 1; 0: none could be had
    QTimer due_;
    QElapsedTimer sinceFirst_; // invalid while nothing is noted
    QElapsedTimer sinceLast_;
};
