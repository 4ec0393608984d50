#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QProcess>
#include <QStringList>

#include <deque>
#include <functional>
#include <memory>
#include <vector>

// Programs that are run beside each other, as many at once as there are cores, each with a limit of time and
// of memory. What they write is kept until it is taken.
class Jobs
{
public:
    struct Job {
        QString program;
        QStringList arguments;
    };
    enum class End { Done, Failed, NoSuchProgram, TookTooLong, Stopped };
    struct Outcome {
        End end = End::Done;
        QByteArray output; // at most 128 MB
        QByteArray errors;
    };

    explicit Jobs(int secondsEach = 60)
        : secondsEach_(secondsEach)
    {
    }
    ~Jobs();
    Q_DISABLE_COPY_MOVE(Jobs)

    // They run in this order. Returns the job's place.
    size_t add(const Job &job);

    // Waits for it. To be called once for each, in the order of their places; a job that is passed over is
    // thrown away. `goOn` is asked from time to time, and false ends the waiting.
    Outcome take(size_t place, const std::function<bool()> &goOn);

private:
    struct Running {
        QProcess process;
        QElapsedTimer since;
        Outcome outcome;
        bool hasEnded = false;
    };

    void startMore();
    void start(Running &running, const Job &job);
    void read(Running &running);
    void endWhatTakesTooLong();

    const int secondsEach_;
    std::vector<Job> jobs_;
    size_t first_ = 0; // place of the first in running_
    std::deque<std::unique_ptr<Running>> running_; // those that were started and not taken
};
